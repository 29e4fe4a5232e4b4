#include "report/display_table.h"

#include <string_view>

namespace tolmer {

bool DisplayCell::isMarked() const {
  return back != colours::white && back != colours::window && back != colours::buttonFace;
}

std::string backName(Colour back) {
  if (back == colours::buttonFace) return "face";
  if (back == colours::white || back == colours::window) return "white";
  constexpr std::string_view hex = "0123456789ABCDEF";
  std::string name = "#";
  for (const unsigned part : {back.red, back.green, back.blue}) {
    name += hex[part >> 4U];
    name += hex[part & 15U];
  }
  return name;
}

}  // namespace tolmer
