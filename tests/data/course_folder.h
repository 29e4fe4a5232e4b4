// A course of a test's own: a root folder with the program's folder and data files in it.
#pragma once

#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "data/data_sources.h"
#include "support/temp_folder.h"

namespace tolmer::test {

class CourseFolder {
 public:
  CourseFolder() {
    for (const char* part : {"data", "tolmod"}) std::filesystem::create_directory(root_.file(part));
  }

  // Returns the host's full name.
  std::string write(const std::string& name, std::string_view bytes) const {
    std::ofstream(file(name), std::ios::binary) << bytes;
    return file(name);
  }
  std::string file(const std::string& name) const { return root_.file("data/" + name); }
  std::string programFolder() const { return root_.file("tolmod"); }

 private:
  TempFolder root_;
};

// Labels "Town 1", names "Variable 1", values of the variable's number and quarters.
inline WorkingCopy dataSet(int iNumCases, int iNumCols, bool bLabeled) {
  WorkingCopy copy;
  copy.miNumCases = static_cast<Int16>(iNumCases);
  copy.miNumCols = static_cast<Int16>(iNumCols);
  copy.mbLabeledData = bLabeled;
  copy.mtLabelColName = "Town";
  DimensionModelDesignerArrays(copy);
  setInterceptColumn(copy);
  for (int j = 1; j <= iNumCols; ++j) copy.otColName(j) = "Variable " + std::to_string(j);
  for (int i = 1; i <= iNumCases; ++i) {
    copy.otCaseLabel(i) = "Town " + std::to_string(i);
    for (int j = 1; j <= iNumCols; ++j)
      copy.osData(i, j) = static_cast<float>(j) + static_cast<float>(i) / 4;
  }
  return copy;
}

// Two scenarios as a notebook hands them out: parameters 1 to 7.
class StandInScenarios : public ScenarioSource {
 public:
  using Parameters = std::array<std::string, 9>;
  Parameters last;
  Parameters standard;

  std::string LastScenarioParameter(int iIndex) const override {
    return last.at(static_cast<std::size_t>(iIndex) - 1);
  }
  std::string DefaultScenarioParameter(int iIndex) const override {
    return standard.at(static_cast<std::size_t>(iIndex) - 1);
  }
};

}  // namespace tolmer::test
