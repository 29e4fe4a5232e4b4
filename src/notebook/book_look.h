// Colours, fonts and sizes that the windows of the book share.
#pragma once

#include <algorithm>
#include <cmath>
#include <string_view>

#include "platform/geometry.h"
#include "platform/look.h"
#include "platform/text_metrics.h"

namespace tolmer::book_look {

inline constexpr Colour paper = colours::white;
inline constexpr Colour linkInk = colours::buttonText;  // the front end shows links in its own blue
inline constexpr Colour ink = Colour::rgb(33, 37, 41);
inline constexpr Colour headingInk = Colour::rgb(38, 62, 92);  // the curtain's blue
inline constexpr Colour quietInk = Colour::rgb(106, 115, 125);

// Few: the system looks up each font, weight and size anew, and the start waits for it.
inline constexpr Font textFont{FontFamily::interface, 12, false};
inline constexpr Font boldFont{FontFamily::interface, 12, true};
inline constexpr Font headingFont{FontFamily::serif, 20, true};
inline constexpr Font coverHeadingFont{FontFamily::serif, 24, true};  // as the curtain's
inline constexpr Font pageHeaderFont{FontFamily::serif, 15, false};

// Where the elements of a page stand.
inline constexpr Size pageContainer{pixels(620), pixels(520)};
// The heading of the first page, and the two captions that head all others.
inline constexpr Twips headerLeft = 300;
inline constexpr Twips headerWidth = pageContainer.width - 2 * headerLeft;
// What the tabs and the pages stand on.
inline constexpr Twips pageMargin = pixels(20);
inline constexpr Twips bookWidth = pageContainer.width + 2 * pageMargin;

// The notebook's window where the screen has room for all of it.
inline constexpr Size bookWindow{pixels(684), pixels(670)};

// How much larger it is shown on a large screen. Letters of 12 pixels are whole ones at each step.
// The cover stays as it is: its picture would take the start four times as long to draw.
inline float magnificationOn(Size screen) {
  constexpr float steps = 12, most = 2, share = 0.9F;
  const float room =
      share * std::min(screen.width / bookWindow.width, screen.height / bookWindow.height);
  return std::clamp(std::floor(room * steps) / steps, 1.0F, most);
}

// Height of a text at that width, both in twips, on whole pixels.
inline Twips heightOf(const Font& font, std::string_view text, Twips width) {
  return pixels(static_cast<float>(
      std::ceil(wrappedHeight(font, text, static_cast<double>(width / twipsPerPixel)))));
}

// Width of a text on one line, on whole pixels.
inline Twips widthOf(const Font& font, std::string_view text) {
  return pixels(static_cast<float>(std::ceil(textWidth(font, text))));
}

}  // namespace tolmer::book_look
