#include "graphs/spoken_text.h"

#include <array>
#include <charconv>
#include <cmath>

#include "engine/number_picture.h"

namespace tolmer {

std::string spokenNumber(float sValue) {
  if (!std::isfinite(sValue)) return generalText(sValue);
  std::array<char, 32> text{};
  const auto written = std::to_chars(text.data(), text.data() + text.size(), sValue,
                                     std::chars_format::scientific, 3);
  float rounded = 0;
  std::from_chars(text.data(), written.ptr, rounded);
  return generalText(rounded);
}

std::string spokenCount(int iCount, const std::string& thing) {
  return std::to_string(iCount) + ' ' + thing + (iCount == 1 ? "" : "s");
}

}  // namespace tolmer
