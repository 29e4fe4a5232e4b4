// What the page's own parts take of the browser's window; its style sheet has the same numbers.
#pragma once

#include "platform/window.h"

namespace tolmer {

inline constexpr Twips webEdges = pixels(2);      // of a dialog, left and right
inline constexpr Twips webTitleBar = pixels(30);  // of a dialog, upper and lower edge included
inline constexpr Twips webMenuBar = pixels(26);

// The largest inside of a window on that screen.
inline Size webRoom(const Window& window, Size screen) {
  const bool isBare = window.style() == WindowStyle::bare;
  const Twips bars = (isBare ? 0 : webTitleBar) + (window.menuBar() ? webMenuBar : 0);
  return {screen.width - (isBare ? 0 : webEdges), screen.height - bars};
}

}  // namespace tolmer
