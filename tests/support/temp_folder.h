// An empty folder of a test's own, gone with the test: tests run side by side.
#pragma once

#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>

namespace tolmer::test {

// In memory where there is such a place: a disk takes longer over each save than all else.
inline std::filesystem::path placeForFiles() {
  const std::filesystem::path memory = "/dev/shm";
  return std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
}

class TempFolder {
 public:
  explicit TempFolder(
      const std::filesystem::path& within = std::filesystem::temp_directory_path()) {
    std::random_device random;
    for (int tries = 0; tries < 10; ++tries) {
      const auto folder = within / ("tolmer." + std::to_string(random()));
      if (std::filesystem::create_directory(folder)) {
        name_ = folder.generic_string();
        return;
      }
    }
    throw std::runtime_error("no temporary folder");
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(name_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& path() const { return name_; }
  std::string file(const std::string& name) const { return name_ + "/" + name; }

 private:
  std::string name_;
};

}  // namespace tolmer::test
