// How a report lies on paper: the sizes of the pages, their margins, the letters, and the colours
// of grounds and lines. All lengths are points, 1/72 inch.
#pragma once

#include "platform/paper/printed_pages.h"
#include "tables/html_writer.h"

namespace tolmer {

// How letters of a text look on paper, sizes in points.
struct PrintedLook {
  float size = 10;
  bool isBold = false;
  Colour colour = Colour::rgb(0x22, 0x22, 0x22);
  double lineSpacing = 1.4;  // in parts of the size

  Font font() const { return {FontFamily::interface, size, isBold}; }
  double line() const { return size * lineSpacing; }
  // Of letters in the middle of a line that begins at `top`.
  double baseLine(double top) const { return top + line() / 2 + size * capHeight / 2; }
  static constexpr double capHeight = 0.714;  // of Noto Sans
};

namespace printed {
constexpr PaperSize sizeOf(Paper paper) {
  return paper == Paper::a4 ? PaperSize{595, 842} : PaperSize{612, 792};
}
inline constexpr double margin = 45;   // 16 mm, on all four sides
inline constexpr double partGap = 18;  // above a display
inline constexpr double headingGap = 3;
inline constexpr double gap = 6;  // between what belongs together
inline constexpr double panelPadding = 6;

inline constexpr Colour quietInk = Colour::rgb(0x55, 0x55, 0x55);
inline constexpr PrintedLook body{};
inline constexpr PrintedLook title{.size = 17, .isBold = true, .lineSpacing = 1.3};
inline constexpr PrintedLook heading{.size = 12, .isBold = true};
inline constexpr PrintedLook subheading{.size = 9.5F, .isBold = true};
inline constexpr PrintedLook small{.size = 9, .lineSpacing = 1.35};
inline constexpr PrintedLook equation{.size = 10.5F};
inline constexpr PrintedLook footer{.size = 8, .colour = quietInk};

struct PanelColours {
  Colour ground;
  Colour bar;  // at the left
};
inline constexpr PanelColours ofMessages{Colour::rgb(0xFF, 0xF3, 0xCD),
                                         Colour::rgb(0xB5, 0x89, 0x00)};
inline constexpr PanelColours ofEquation{Colour::rgb(0xF4, 0xF6, 0xF8),
                                         Colour::rgb(0x34, 0x65, 0xA4)};

inline constexpr Colour headGround = Colour::rgb(0xEC, 0xEC, 0xEC);  // of a table
inline constexpr Colour headLine = Colour::rgb(0x88, 0x88, 0x88);
inline constexpr Colour rowLine = Colour::rgb(0xD5, 0xD5, 0xD5);
inline constexpr double hairline = 0.5;
}  // namespace printed

}  // namespace tolmer
