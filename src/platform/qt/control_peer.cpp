#include "platform/qt/control_peer.h"

#include <QLabel>
#include <QPalette>
#include <algorithm>
#include <map>

#include "platform/panels.h"
#include "platform/qt/convert.h"
#include "platform/qt/theme.h"
#include "platform/tab_order.h"
#include "platform/window.h"

namespace tolmer {
namespace {

void setAll(QPalette& palette, std::initializer_list<QPalette::ColorRole> roles, QColor colour) {
  // The disabled group keeps its grey text.
  for (const auto group : {QPalette::Active, QPalette::Inactive})
    for (const auto role : roles) palette.setColor(group, role, colour);
}

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

ControlPeer::ControlPeer(Mirror& mirror, Control& control, QWidget* ground)
    : mirror_(mirror),
      control_(control),
      ground_(ground),
      connections_(std::make_unique<QObject>()) {}

ControlPeer::~ControlPeer() {
  // The slots belong to a class whose part of this object is gone already.
  connections_.reset();
  drop();
}

QWidget* ControlPeer::widgetOf(const Control& control) {
  const Peer* peer = control.peer();
  return peer ? static_cast<const ControlPeer*>(peer)->widget() : nullptr;
}

void ControlPeer::changed(Change what) {
  if (widget_)
    push(what);
  else if (control_.visible())
    build();
}

void ControlPeer::build() {
  widget_ = create(ground_);
  widget_->setObjectName(toQt(control_.name()));
  watch();
  push(Change::all);
  takePlaceAmongSiblings(control_);
}

void ControlPeer::watch() { mirror_.input.watch(*widget_, control_); }

void ControlPeer::remake() {
  drop();
  build();
}

void ControlPeer::drop() {
  mirror_.input.forget(control_);
  if (!widget_) return;
  // Where the focus goes now is no wish of the user's.
  const Gate::Shut shut(mirror_.gate);
  widget_->hide();
  widget_->setParent(nullptr);
  widget_->deleteLater();
  widget_ = nullptr;
}

void ControlPeer::push(Change what) {
  ++busy_;
  if (has(what, Change::look)) applyLook();
  if (has(what, Change::place)) place();
  update(what);
  if (has(what, Change::enabled)) widget_->setEnabled(control_.enabled());
  if (has(what, Change::tip) || has(what, Change::text)) describe();
  if (has(what, Change::visible)) show(control_.visible());
  --busy_;
}

void ControlPeer::place() { widget_->setGeometry(toPixels(control_.place(), scale())); }

float ControlPeer::scale() const { return scaleOf(control_); }

void ControlPeer::moveTo(QWidget* ground) {
  ground_ = ground;
  if (!widget_ || widget_->parentWidget() == ground) return;
  const bool wasHidden = widget_->isHidden();
  widget_->setParent(ground);
  widget_->setVisible(!wasHidden);
}

void ControlPeer::show(bool visible) { widget_->setVisible(visible); }

void ControlPeer::applyLook() {
  const bool hadOwnFont = widget_->testAttribute(Qt::WA_SetFont);
  const bool isMagnified = scale() != theme::zoom();
  if (hasOwnLook_ || hadOwnFont || isMagnified || control_.font() != Font{})
    widget_->setFont(toQt(control_.font(), scale()));
  if (hasOwnLook_ || control_.hasOwnGround() || control_.hasOwnInk()) applyColours();
}

void ControlPeer::applyColours() {
  hasOwnLook_ = true;
  QPalette palette;
  if (control_.hasOwnInk())
    setAll(palette, {QPalette::WindowText, QPalette::Text, QPalette::ButtonText},
           toQt(control_.foreColour()));
  if (control_.hasOwnGround())
    setAll(palette, {QPalette::Window, QPalette::Base, QPalette::Button},
           toQt(control_.backColour()));
  widget_->setPalette(palette);
  if (control_.kind() == ControlKind::label)
    widget_->setAutoFillBackground(control_.hasOwnGround());
}

void ControlPeer::describe() {
  widget_->setToolTip(toQt(control_.tip()));
  // A name would hide a label's text and a window's title.
  if (control_.kind() != ControlKind::label && control_.kind() != ControlKind::window)
    widget_->setAccessibleName(toQt(accessibleName()));
  widget_->setAccessibleDescription(toQt(control_.accessibleDescription()));
}

void ContainerPeer::update(Change what) {
  if (!has(what, Change::children)) return;
  for (Control* child : container_.children()) {
    if (child->peer()) continue;
    child->setPeer(makePeer(mirror_, *child, groundOf(*child)));
    child->peer()->changed(Change::all);
  }
}

void ContainerPeer::applyLook() { widget()->update(); }

void ContainerPeer::showAnew() {
  ControlPeer::showAnew();
  for (Control* child : container_.children())
    if (child->peer()) static_cast<ControlPeer*>(child->peer())->showAnew();
}

PeerPointer makePeer(Mirror& mirror, Control& control, QWidget* ground) {
  static const std::map<ControlKind, PeerMaker*> makers{
      {ControlKind::label, makeLabelPeer},
      {ControlKind::button, makeButtonPeer},
      {ControlKind::textBox, makeTextBoxPeer},
      {ControlKind::checkBox, makeCheckBoxPeer},
      {ControlKind::optionButton, makeOptionButtonPeer},
      {ControlKind::comboBox, makeComboBoxPeer},
      {ControlKind::frame, makeFramePeer},
      {ControlKind::panel, makePanelPeer},
      {ControlKind::scrollBar, makeScrollBarPeer},
      {ControlKind::image, makeImagePeer},
      {ControlKind::tabBook, makeTabBookPeer},
      {ControlKind::outline, makeOutlinePeer},
      {ControlKind::numberBox, makeNumberBoxPeer},
      {ControlKind::graph, makeGraphPeer},
      {ControlKind::grid, makeGridPeer}};
  const auto maker = makers.find(control.kind());  // windows are not in containers
  return maker == makers.end() ? nullptr : maker->second(mirror, control, ground);
}

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
