#include "platform/control.h"

#include "platform/window.h"

namespace tolmer {

Control::Control(Container* parent, std::string name) : parent_(parent), name_(std::move(name)) {
  if (parent_) parent_->children_.push_back(this);
}

Control::~Control() {
  setPeer(nullptr);
  if (!parent_) return;
  // A focus that stayed on a dead control would be followed.
  if (Window* owner = parent_->window()) owner->forget(*this);
  std::erase(parent_->children_, this);
}

Window* Control::window() {
  Control* top = this;
  while (top->parent_) top = top->parent_;
  return top->kind() == ControlKind::window ? static_cast<Window*>(top) : nullptr;
}

bool Control::canBeUsed() const {
  const Control* top = this;
  for (const Control* control = this; control; control = control->parent_) {
    if (!control->enabled_ || !control->visible_) return false;
    top = control;
  }
  return top->kind() != ControlKind::window || static_cast<const Window*>(top)->takesInput();
}

bool Control::hasOwnGround() const {
  if (kind() == ControlKind::window || kind() == ControlKind::panel) return true;
  const bool isEdit = kind() == ControlKind::textBox || kind() == ControlKind::comboBox ||
                      kind() == ControlKind::numberBox || kind() == ControlKind::outline;
  return backColour_ != colours::buttonFace && !(isEdit && backColour_ == colours::window);
}

bool Control::hasOwnInk() const {
  return foreColour_ != colours::buttonText && foreColour_ != colours::windowText;
}

bool Control::hasFocus() {
  Window* owner = window();
  return owner && owner->focus() == this;
}

void Control::setFocus() {
  if (Window* owner = window()) owner->setFocusTo(this);
}

Container::~Container() {
  for (Control* child : children_) child->parent_ = nullptr;
}

Control* Container::find(std::string_view name) {
  for (Control* child : children_) {
    if (child->name() == name) return child;
    if (auto* container = dynamic_cast<Container*>(child))
      if (Control* found = container->find(name)) return found;
  }
  return nullptr;
}

}  // namespace tolmer
