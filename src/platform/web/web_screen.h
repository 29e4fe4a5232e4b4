// What the page's own parts take of the browser's window; its style sheet has the same numbers.
#pragma once

#include "platform/window.h"

namespace tolmer {

inline constexpr Twips webTitleBar = pixels(30);  // of a dialog, border included
inline constexpr Twips webMenuBar = pixels(26);

// The largest inside of a window on that screen.
inline Size webRoom(const Window& window, Size screen) {
  const Twips bars =
      (window.style() == WindowStyle::bare ? 0 : webTitleBar) + (window.menuBar() ? webMenuBar : 0);
  return {screen.width, screen.height - bars};
}

}  // namespace tolmer
