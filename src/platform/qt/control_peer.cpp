#include "platform/qt/control_peer.h"

#include <QPalette>

#include "platform/qt/convert.h"
#include "platform/qt/make_peer.h"
#include "platform/qt/siblings.h"
#include "platform/window.h"

namespace tolmer {
namespace {

void setAll(QPalette& palette, std::initializer_list<QPalette::ColorRole> roles, QColor colour) {
  // The disabled group keeps its grey text.
  for (const auto group : {QPalette::Active, QPalette::Inactive})
    for (const auto role : roles) palette.setColor(group, role, colour);
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

void ControlPeer::place() { widget_->setGeometry(toPixels(control_.place())); }

void ControlPeer::show(bool visible) { widget_->setVisible(visible); }

void ControlPeer::applyLook() {
  const bool hadOwnFont = widget_->testAttribute(Qt::WA_SetFont);
  if (hasOwnLook_ || hadOwnFont || control_.font() != Font{})
    widget_->setFont(toQt(control_.font()));
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
    child->setPeer(makePeer(mirror_, *child, childrenGround()));
    child->peer()->changed(Change::all);
  }
}

void ContainerPeer::applyLook() { widget()->update(); }

}  // namespace tolmer
