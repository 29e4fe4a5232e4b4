// A course of a test's own: a root folder with the program's folder and data files in it.
#pragma once

#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "data/data_sources.h"

namespace tolmer::test {

class CourseFolder {
 public:
  CourseFolder() {
    static int made = 0;
    root_ = std::filesystem::temp_directory_path() /
            ("tolmer_data_" + std::to_string(::getpid()) + "_" + std::to_string(++made));
    std::filesystem::create_directories(root_ / "data");
    std::filesystem::create_directories(root_ / "tolmod");
  }
  ~CourseFolder() { std::filesystem::remove_all(root_); }
  CourseFolder(const CourseFolder&) = delete;
  CourseFolder& operator=(const CourseFolder&) = delete;

  // Returns the host's full name.
  std::string write(const std::string& name, std::string_view bytes) const {
    const auto path = root_ / "data" / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path.string();
  }
  std::string file(const std::string& name) const { return (root_ / "data" / name).string(); }
  std::string programFolder() const { return (root_ / "tolmod").string(); }

 private:
  std::filesystem::path root_;
};

// Two scenarios as a notebook hands them out: parameters 1 to 7.
class StandInScenarios : public ScenarioSource {
 public:
  using Parameters = std::array<std::string, 7>;
  Parameters last;
  Parameters standard;

  std::string LastScenarioParameter(int iIndex) const override {
    return last.at(static_cast<std::size_t>(iIndex) - 1);
  }
  std::string DefaultScenarioParameter(int iIndex) const override {
    return standard.at(static_cast<std::size_t>(iIndex) - 1);
  }
};

// An editor with variables of equal length; observations and variables count from 1.
class StandInEditor : public EditorData {
 public:
  struct Variable {
    std::string header;
    std::vector<double> values;
  };
  std::vector<Variable> variables;
  std::vector<std::string> labels;
  Int16 cases = 0;
  bool cancelled = false;
  std::function<void()> onShow;
  int shown = 0;

  Int16 CompleteObservations() const override { return cases; }
  bool DataLabelsEntered() const override { return !labels.empty(); }
  std::string DataLabel(int iOb) const override {
    const auto at = static_cast<std::size_t>(iOb) - 1;
    return at < labels.size() ? labels[at] : std::string();
  }
  double DataValue(int iVar, int iOb) const override {
    const auto at = static_cast<std::size_t>(iVar) - 1;
    return at < variables.size() ? variables[at].values.at(static_cast<std::size_t>(iOb) - 1) : 0;
  }
  std::string VarHeader(int iVarNum) const override {
    const auto at = static_cast<std::size_t>(iVarNum) - 1;
    return at < variables.size() ? variables[at].header : std::string();
  }
  bool UserCancel() const override { return cancelled; }
  void ShowDataEditor() override {
    ++shown;
    if (onShow) onShow();
  }
};

}  // namespace tolmer::test
