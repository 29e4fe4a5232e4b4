// Places and sizes of windows and controls.
#pragma once

namespace tolmer {

// Places and sizes are twips, 15 to the logical pixel.
using Twips = float;
inline constexpr Twips twipsPerPixel = 15;

inline constexpr Twips pixels(float count) { return count * twipsPerPixel; }

struct Size {
  Twips width = 0;
  Twips height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
  Twips left = 0;
  Twips top = 0;
  Twips width = 0;
  Twips height = 0;

  Twips right() const { return left + width; }
  Twips bottom() const { return top + height; }
  friend bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace tolmer
