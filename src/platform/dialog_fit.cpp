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
  bool wide = whole.width > room.width;
  const bool tall = whole.height + (wide ? barThickness : 0) > room.height;
  wide = wide || (tall && whole.width + barThickness > room.width);
  const Size shown{std::min(whole.width + (tall ? barThickness : 0), room.width),
                   std::min(whole.height + (wide ? barThickness : 0), room.height)};
  DialogFit fit{shown, whole.height, std::max(whole.width - shown.width, 0.0F)};
  if (!tall && !wide) return fit;
  const Twips footTop = footOf(window, whole.height);
  // What scrolls has to have more than half of the room.
  if (whole.height - footTop > shown.height / 2) return fit;
  if (std::ranges::all_of(window.children(), [&](const Control* child) {
        return child->top() < footTop || child->left() >= fit.footShift;
      }))
    fit.footTop = footTop;
  return fit;
}

}  // namespace tolmer
