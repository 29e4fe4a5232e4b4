#include "notebook/picture_size.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <string_view>

namespace tolmer {
namespace {

constexpr std::string_view pngStart = "\x89PNG\r\n\x1A\n";
constexpr std::size_t headerBytes = 24;  // signature, length, "IHDR", width, height

float bigEndian(std::string_view bytes) {
  float value = 0;
  for (const char byte : bytes)
    value = value * 256 + static_cast<float>(static_cast<unsigned char>(byte));
  return value;
}

// The first bytes of a PNG; empty for anything else.
std::string pngHeader(const std::string& hostFile) {
  std::string header(headerBytes, '\0');
  std::ifstream file(hostFile, std::ios::binary);
  const bool whole = static_cast<bool>(file.read(header.data(), headerBytes));
  return whole && header.starts_with(pngStart) ? header : std::string();
}

}  // namespace

bool isPng(const std::string& hostFile) { return !pngHeader(hostFile).empty(); }

Size pictureSize(const std::string& hostFile) {
  const std::string header = pngHeader(hostFile);
  if (header.empty()) return {pixels(320), pixels(200)};
  const std::string_view fields(header);
  return {pixels(std::max(bigEndian(fields.substr(16, 4)), 1.0F)),
          pixels(std::max(bigEndian(fields.substr(20, 4)), 1.0F))};
}

}  // namespace tolmer
