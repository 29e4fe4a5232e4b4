#include "platform/graph/graph_colours.h"

#include <array>
#include <cmath>

namespace tolmer {
namespace {

// The customary order of 16 colours. Blue and red are chosen for at least 5 : 1 against white and a
// wide distance under red-green blindness, grey to be seen at all as a thin line (2.2 : 1).
constexpr std::array<Colour, 16> colours16{
    Colour::rgb(0x00, 0x00, 0x00), Colour::rgb(0x00, 0x00, 0x8B), Colour::rgb(0x00, 0x64, 0x00),
    Colour::rgb(0x00, 0x6E, 0x7F), Colour::rgb(0x8B, 0x00, 0x00), Colour::rgb(0x7A, 0x00, 0x7A),
    Colour::rgb(0x7A, 0x4A, 0x00), Colour::rgb(0xB0, 0xB0, 0xB0), Colour::rgb(0x60, 0x60, 0x60),
    Colour::rgb(0x1A, 0x4F, 0xE0), Colour::rgb(0x1B, 0x8A, 0x2F), Colour::rgb(0x00, 0x96, 0xA8),
    Colour::rgb(0xD9, 0x1E, 0x18), Colour::rgb(0xC0, 0x2A, 0xC0), Colour::rgb(0xC8, 0x9B, 0x00),
    Colour::rgb(0xFF, 0xFF, 0xFF)};

int onWhite(int channel, double share) {
  return static_cast<int>(std::lround(255 + (channel - 255) * share));
}

}  // namespace

Colour paletteColour(int index) {
  if (index < 0 || index >= static_cast<int>(colours16.size())) return colours::black;
  return colours16[index];
}

Colour tint(Colour colour, double share) {
  return Colour::rgb(onWhite(colour.red, share), onWhite(colour.green, share),
                     onWhite(colour.blue, share));
}

}  // namespace tolmer
