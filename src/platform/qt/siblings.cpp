#include "platform/qt/siblings.h"

#include <QLabel>
#include <algorithm>

#include "platform/label.h"
#include "platform/panel.h"
#include "platform/qt/control_peer.h"
#include "platform/window.h"

namespace tolmer {
namespace {

using Place = std::vector<Control*>::const_iterator;

bool isRaised(const Control& control) {
  return control.kind() == ControlKind::panel && static_cast<const Panel&>(control).raised() > 0;
}

void stackUnderLaterOnes(Control& control, Place next, Place end) {
  if (isRaised(control)) return;
  const auto above =
      std::find_if(next, end, [](Control* other) { return ControlPeer::widgetOf(*other); });
  if (above != end) ControlPeer::widgetOf(control)->stackUnder(ControlPeer::widgetOf(**above));
}

bool hasTextOfItsOwn(const Control& control) {
  return control.kind() == ControlKind::label || control.kind() == ControlKind::button ||
         control.kind() == ControlKind::checkBox || control.kind() == ControlKind::optionButton;
}

void makeBuddies(Control& before, Control& after) {
  if (before.kind() != ControlKind::label || before.takesFocus()) return;
  if (!after.takesFocus() || hasTextOfItsOwn(after)) return;
  auto* label = qobject_cast<QLabel*>(ControlPeer::widgetOf(before));
  QWidget* widget = ControlPeer::widgetOf(after);
  if (!label || !widget) return;
  label->setBuddy(widget);
  before.peer()->changed(Change::text);  // only with a buddy does "&" mark a letter
}

bool stopsByPlace(const Container& container) {
  return container.kind() == ControlKind::panel &&
         static_cast<const Panel&>(container).stopsByPlace();
}

// What the Tab key stops at, in the order of construction or as the container wants it.
void collectStops(const Container& container, std::vector<QWidget*>& stops) {
  std::vector<Control*> children = container.children();
  if (stopsByPlace(container))
    std::stable_sort(children.begin(), children.end(), [](const Control* a, const Control* b) {
      return std::pair(a->top(), a->left()) < std::pair(b->top(), b->left());
    });
  for (Control* child : children) {
    if (QWidget* widget = ControlPeer::widgetOf(*child); widget && child->takesFocus())
      stops.push_back(widget);
    if (const auto* inner = dynamic_cast<const Container*>(child)) collectStops(*inner, stops);
  }
}

// Only the neighbours matter, unless there is none before: the toolkit moves a widget behind
// another, never before it.
void placeInTabOrder(Control& control, QWidget* widget) {
  std::vector<QWidget*> stops;
  collectStops(*control.window(), stops);
  const auto here = std::find(stops.begin(), stops.end(), widget);
  if (here != stops.begin() && here != stops.end())
    return QWidget::setTabOrder(*(here - 1), widget);
  orderTabStops(*control.window());
}

}  // namespace

void orderTabStops(const Window& window) {
  std::vector<QWidget*> stops;
  collectStops(window, stops);
  for (std::size_t i = 1; i < stops.size(); ++i) QWidget::setTabOrder(stops[i - 1], stops[i]);
}

void takePlaceAmongSiblings(Control& control) {
  if (!control.parent()) return;
  const auto& siblings = control.parent()->children();
  const auto here = std::find(siblings.begin(), siblings.end(), &control);
  if (here != siblings.begin()) makeBuddies(**(here - 1), control);
  if (here + 1 != siblings.end()) makeBuddies(control, **(here + 1));
  stackUnderLaterOnes(control, here + 1, siblings.end());

  // In a window that is only being built, the order of making is that of the Tab key.
  QWidget* widget = ControlPeer::widgetOf(control);
  if (widget->window()->isVisible() && control.takesFocus()) placeInTabOrder(control, widget);
}

}  // namespace tolmer
