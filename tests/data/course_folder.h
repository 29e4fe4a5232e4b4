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

}  // namespace tolmer::test
