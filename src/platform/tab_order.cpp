#include "platform/tab_order.h"

#include <algorithm>
#include <utility>

#include "platform/buttons.h"
#include "platform/panels.h"

namespace tolmer {
namespace {

bool hasTextOfItsOwn(const Control& control) {
  return control.kind() == ControlKind::label || control.kind() == ControlKind::button ||
         control.kind() == ControlKind::checkBox || control.kind() == ControlKind::optionButton;
}

bool stopsByPlace(const Container& container) {
  return container.kind() == ControlKind::panel &&
         static_cast<const Panel&>(container).stopsByPlace();
}

void collectStops(const Container& container, std::vector<Control*>& stops) {
  std::vector<Control*> children = container.children();
  if (stopsByPlace(container))
    std::stable_sort(children.begin(), children.end(), [](const Control* a, const Control* b) {
      return std::pair(a->top(), a->left()) < std::pair(b->top(), b->left());
    });
  for (Control* child : children) {
    if (child->takesFocus()) stops.push_back(child);
    if (const auto* inner = dynamic_cast<const Container*>(child)) collectStops(*inner, stops);
  }
}

}  // namespace

std::vector<Control*> tabStops(const Container& container) {
  std::vector<Control*> stops;
  collectStops(container, stops);
  return stops;
}

bool isTabStop(const Control& control) {
  if (control.kind() != ControlKind::optionButton) return control.takesFocus();
  const auto isOn = [](const Control* one) {
    return one->kind() == ControlKind::optionButton &&
           static_cast<const OptionButton*>(one)->value();
  };
  const Container* group = control.parent();
  return !group || isOn(&control) || std::ranges::none_of(group->children(), isOn);
}

bool isLabelOf(const Control& before, const Control& after) {
  return before.kind() == ControlKind::label && !before.takesFocus() && after.takesFocus() &&
         !hasTextOfItsOwn(after);
}

}  // namespace tolmer
