// Colours, fonts and alignment of controls.
#pragma once

#include <cstdint>

namespace tolmer {

// A colour of the system's theme or a fixed one.
struct Colour {
  enum class Kind : std::uint8_t { rgb, buttonFace, buttonText, window, windowText };
  Kind kind = Kind::rgb;
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  static constexpr Colour rgb(int red, int green, int blue) {
    return {Kind::rgb, static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green),
            static_cast<std::uint8_t>(blue)};
  }
  friend bool operator==(const Colour&, const Colour&) = default;
};

namespace colours {
inline constexpr Colour buttonFace{Colour::Kind::buttonFace};
inline constexpr Colour buttonText{Colour::Kind::buttonText};
inline constexpr Colour window{Colour::Kind::window};
inline constexpr Colour windowText{Colour::Kind::windowText};
inline constexpr Colour white = Colour::rgb(255, 255, 255);
inline constexpr Colour black = Colour::rgb(0, 0, 0);
inline constexpr Colour red = Colour::rgb(255, 0, 0);
inline constexpr Colour green = Colour::rgb(0, 255, 0);
inline constexpr Colour cyan = Colour::rgb(0, 255, 255);
inline constexpr Colour yellow = Colour::rgb(255, 255, 0);
}  // namespace colours

enum class FontFamily : std::uint8_t { interface, serif };

struct Font {
  FontFamily family = FontFamily::interface;
  float pixels = 12;  // logical pixels
  bool bold = false;
  friend bool operator==(const Font&, const Font&) = default;
};

enum class Align : std::uint8_t { left, centre, right };

}  // namespace tolmer
