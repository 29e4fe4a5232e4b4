#include "platform/qt/siblings.h"

#include <QLabel>
#include <algorithm>

#include "platform/panel.h"
#include "platform/qt/control_peer.h"
#include "platform/tab_order.h"
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

void makeBuddies(Control& before, Control& after) {
  if (!isLabelOf(before, after)) return;
  auto* label = qobject_cast<QLabel*>(ControlPeer::widgetOf(before));
  QWidget* widget = ControlPeer::widgetOf(after);
  if (!label || !widget) return;
  label->setBuddy(widget);
  before.peer()->changed(Change::text);  // only with a buddy does "&" mark a letter
}

// Of those that are on the screen.
std::vector<QWidget*> stopsOf(const Window& window) {
  std::vector<QWidget*> stops;
  for (const Control* stop : tabStops(window))
    if (QWidget* widget = ControlPeer::widgetOf(*stop)) stops.push_back(widget);
  return stops;
}

// Only the neighbours matter, unless there is none before: the toolkit moves a widget behind
// another, never before it.
void placeInTabOrder(Control& control, QWidget* widget) {
  const std::vector<QWidget*> stops = stopsOf(*control.window());
  const auto here = std::find(stops.begin(), stops.end(), widget);
  if (here != stops.begin() && here != stops.end())
    return QWidget::setTabOrder(*(here - 1), widget);
  orderTabStops(*control.window());
}

}  // namespace

void orderTabStops(const Window& window) {
  const std::vector<QWidget*> stops = stopsOf(window);
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
