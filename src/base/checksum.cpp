#include "base/checksum.h"

#include <array>
#include <cstdint>

namespace tolmer {
namespace {

constexpr std::array<std::uint32_t, 256> table = [] {
  std::array<std::uint32_t, 256> steps{};
  for (std::uint32_t i = 0; i < steps.size(); ++i) {
    std::uint32_t sum = i;
    for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xEDB88320U : 0U);
    steps[i] = sum;
  }
  return steps;
}();

}  // namespace

std::string checksumText(std::string_view bytes) {
  std::uint32_t sum = 0xFFFFFFFFU;
  for (const char byte : bytes)
    if (byte != '\r') sum = (sum >> 8) ^ table[(sum ^ static_cast<unsigned char>(byte)) & 255];
  std::string digits;
  for (int shift = 28; shift >= 0; shift -= 4) digits += "0123456789ABCDEF"[(~sum >> shift) & 15];
  return digits;
}

}  // namespace tolmer
