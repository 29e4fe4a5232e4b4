#include "support/layout_check.h"

#include <algorithm>

#include "platform/buttons.h"
#include "platform/curtain.h"
#include "platform/labels.h"
#include "platform/panels.h"
#include "platform/tab_book.h"
#include "platform/text_metrics.h"
#include "platform/window.h"

namespace tolmer::test {
namespace {

// Half a pixel: places are rounded to whole ones on the screen.
constexpr Twips slack = twipsPerPixel / 2;

bool overlap(const Control& a, const Control& b) {
  return a.left() + slack < b.right() && b.left() + slack < a.right() &&
         a.top() + slack < b.bottom() && b.top() + slack < a.bottom();
}

bool reachesOut(const Control& control, Container& container) {
  Size room{container.width(), container.height()};
  if (auto* window = dynamic_cast<Window*>(&container))
    room = {window->innerWidth(), window->innerHeight()};
  const Twips highest = container.kind() == ControlKind::tabBook ? TabBook::tabHeight : 0;
  const bool scrolls = container.kind() == ControlKind::panel && control.height() > room.height;
  return control.left() < -slack || control.right() > room.width + slack ||
         (!scrolls && (control.top() < highest - slack || control.bottom() > room.height + slack));
}

// The room that a text needs, in pixels, and the room it has.
bool isCut(const Font& font, const std::string& text, bool wraps, const Control& control,
           double frame) {
  const double width = static_cast<double>(control.width()) / twipsPerPixel - frame;
  const double height = static_cast<double>(control.height()) / twipsPerPixel;
  if (text.empty()) return false;
  if (wraps) return wrappedHeight(font, text, width) > height + 0.5;
  return textWidth(font, text) > width + 0.5 || lineHeight(font) > height + 0.5;
}

bool textIsCut(const Control& control) {
  constexpr double buttonFrame = 10, boxAndGap = 22;  // pixels beside the caption
  if (const auto* label = dynamic_cast<const Label*>(&control)) {
    const std::string text =
        label->usesMnemonic() ? withoutMnemonic(label->caption()) : label->caption();
    return isCut(label->font(), text, label->wordWrap(), control, 0);
  }
  if (const auto* button = dynamic_cast<const Button*>(&control))
    return isCut(button->font(), withoutMnemonic(button->caption()), false, control, buttonFrame);
  if (const auto* box = dynamic_cast<const CheckBox*>(&control))
    return isCut(box->font(), withoutMnemonic(box->caption()), false, control, boxAndGap);
  return false;
}

}  // namespace

std::string layoutFaults(Container& container) {
  std::string faults;
  std::vector<Control*> shown;
  for (Control* child : container.children())
    if (child->visible()) shown.push_back(child);
  for (std::size_t i = 0; i < shown.size(); ++i) {
    Control& control = *shown[i];
    if (reachesOut(control, container))
      faults += control.name() + " reaches out of " + container.name() + "\n";
    if (textIsCut(control)) faults += control.name() + " cuts its text off\n";
    for (std::size_t j = 0; j < i; ++j)
      if (overlap(control, *shown[j]) && !dynamic_cast<const Curtain*>(shown[j]))
        faults += control.name() + " lies over " + shown[j]->name() + "\n";
    if (auto* inner = dynamic_cast<Container*>(&control)) faults += layoutFaults(*inner);
  }
  return faults;
}

}  // namespace tolmer::test
