// Names of files between this program, which has them in UTF-8, and the standard library, which may
// read a plain text in the system's own encoding.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tolmer::host {

inline std::filesystem::path pathOf(std::string_view name) {
  return {std::u8string(name.begin(), name.end())};
}

// With slashes, whatever the system's own separator is.
inline std::string nameOf(const std::filesystem::path& path) {
  const std::u8string name = path.generic_u8string();
  return {name.begin(), name.end()};
}

}  // namespace tolmer::host
