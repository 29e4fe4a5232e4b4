#include "base/markup_text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tolmer {
namespace {

bool isControl(char c) {
  return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
}

}  // namespace

std::string markupText(std::string_view text) {
  constexpr std::array<std::pair<char, const char*>, 4> entities{
      {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}}};
  std::string result;
  for (const char c : text) {
    const auto* entity = std::ranges::find(entities, c, &std::pair<char, const char*>::first);
    if (entity != entities.end())
      result += entity->second;
    else
      result += isControl(c) ? ' ' : c;
  }
  return result;
}

std::string hexColour(unsigned red, unsigned green, unsigned blue) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text = "#";
  for (const unsigned part : {red, green, blue}) {
    text += digits[part / 16];
    text += digits[part % 16];
  }
  return text;
}

}  // namespace tolmer
