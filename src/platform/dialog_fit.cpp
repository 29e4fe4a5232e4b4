#include "platform/dialog_fit.h"

#include <algorithm>

namespace tolmer {
namespace {

// Where the lowest row of buttons begins; the end where there are none.
Twips lowestRow(const Window& window, Twips end) {
  Twips lowest = 0;
  const auto isButton = [](const Control* child) { return child->kind() == ControlKind::button; };
  for (const Control* child : window.children())
    if (isButton(child)) lowest = std::max(lowest, child->bottom());
  Twips top = end;
  for (const Control* child : window.children())
    if (isButton(child) && child->bottom() > lowest - child->height() / 2)
      top = std::min(top, child->top());
  return top;
}

// A little above the buttons may begin what stands beside them.
Twips footOf(const Window& window, Twips end) {
  constexpr Twips tolerance = pixels(8);
  const Twips buttons = lowestRow(window, end);
  Twips top = buttons;
  for (const Control* child : window.children()) {
    if (!child->visible() || child->bottom() <= buttons) continue;
    if (child->top() < buttons - tolerance) return end;
    top = std::min(top, child->top());
  }
  return top;
}

}  // namespace

DialogFit fitDialog(const Window& window, Size whole, Size room, Twips barThickness) {
  const bool scrolls = whole.height > room.height;
  const Twips wanted = whole.width + (scrolls ? barThickness : 0);
  const Size shown{std::min(wanted, room.width), std::min(whole.height, room.height)};
  const Twips footTop = scrolls ? footOf(window, whole.height) : whole.height;
  // What scrolls has to have more than half of the room.
  const bool isLow = whole.height - footTop < shown.height / 2;
  return {shown, isLow ? footTop : whole.height};
}

}  // namespace tolmer
