#include "platform/user_input.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/buttons.h"
#include "platform/desktop.h"
#include "platform/labels.h"
#include "platform/panels.h"
#include "platform/window.h"

namespace tolmer {
namespace {

const TakenKey* fitting(const std::vector<TakenKey>& keys, const KeyPress& key) {
  for (const TakenKey& taken : keys)
    if (taken.key.fits(key) && (!taken.when || taken.when())) return &taken;
  return nullptr;
}

// On the list while it is being told.
class Told {
 public:
  Told(std::vector<const Control*>& list, const Control& control) : list_(list) {
    list_.push_back(&control);
  }
  ~Told() { list_.pop_back(); }
  Told(const Told&) = delete;
  Told& operator=(const Told&) = delete;
  bool isThere() const { return list_.back() != nullptr; }

 private:
  std::vector<const Control*>& list_;
};

void clickOn(Control& control) {
  const ControlKind kind = control.kind();
  if (kind == ControlKind::label && !control.takesFocus()) static_cast<Label&>(control).click();
  if (kind == ControlKind::panel) return static_cast<Panel&>(control).click();
  if (kind == ControlKind::image) return static_cast<Image&>(control).click();
  if (kind == ControlKind::window) return raise(static_cast<Window&>(control).Click);
}

}  // namespace

bool raisesItsOwnMouse(const Control& control) {
  return control.kind() == ControlKind::grid || control.kind() == ControlKind::graph;
}

const TakenKey* takenKey(Control& focus, const KeyPress& key) {
  const Window* window = focus.window();
  if (window && !window->takesInput()) return nullptr;
  const Window* frame = window ? window->frame() : nullptr;
  for (const Control* from :
       {static_cast<const Control*>(&focus), static_cast<const Control*>(window),
        static_cast<const Control*>(frame)})
    if (const TakenKey* found = from ? fitting(from->takenKeys(), key) : nullptr) return found;
  return window ? takenKey(window->desktop(), key) : nullptr;
}

const TakenKey* takenKey(const Desktop& desktop, const KeyPress& key) {
  return fitting(desktop.takenKeys(), key);
}

void releaseRight(Control& control) {
  if (const Window* window = control.window(); window && !window->takesInput()) return;
  for (Control* target = &control; target; target = target->parent())
    if (target->MouseUp) return raise(target->MouseUp, MouseButton::right);
}

bool turnWheel(Control& control, float lines) {
  constexpr std::array own{ControlKind::outline,   ControlKind::grid,     ControlKind::textBox,
                           ControlKind::numberBox, ControlKind::comboBox, ControlKind::scrollBar};
  if (std::ranges::find(own, control.kind()) != own.end()) return false;
  for (Control* target = &control; target; target = target->parent()) {
    auto* panel = dynamic_cast<Panel*>(target);
    if (!panel || !panel->Wheel) continue;
    raise(panel->Wheel, lines);
    return true;
  }
  return false;
}

Window* takerOfDrops(Window* modal, const std::vector<Window*>& shown) {
  const auto frame = std::ranges::find(shown, WindowStyle::frame, &Window::style);
  Window* taker = modal || frame == shown.end() ? modal : *frame;
  return taker && taker->Dropped && taker->takesInput() ? taker : nullptr;
}

void MouseRoute::press(Control& control, MouseButton button) {
  pressed_ = nullptr;
  if (!control.canBeUsed() || raisesItsOwnMouse(control)) return;
  if (button == MouseButton::left) pressed_ = &control;
  raise(control.MouseDown, button);
}

void MouseRoute::release(Control& control, MouseButton button, bool inside) {
  if (raisesItsOwnMouse(control)) return;
  if (button == MouseButton::right) return releaseRight(control);
  releaseLeft(control, inside);
}

void MouseRoute::releaseLeft(Control& control, bool inside) {
  const bool clicked = std::exchange(pressed_, nullptr) == &control && inside;
  if (!control.canBeUsed()) return;
  const Told told(released_, control);
  raise(control.MouseUp, MouseButton::left);
  // The handler may have unloaded the control.
  if (clicked && told.isThere()) clickOn(control);
}

void MouseRoute::doubleClick(Control& control) {
  pressed_ = nullptr;
  if (!control.canBeUsed()) return;
  if (control.kind() == ControlKind::optionButton)
    static_cast<OptionButton&>(control).doubleClick();
  else if (control.kind() == ControlKind::label)
    static_cast<Label&>(control).doubleClick();
}

void MouseRoute::move(Control& control) {
  if (control.MouseMove && control.canBeUsed()) raise(control.MouseMove);
}

void MouseRoute::forget(const Control& control) {
  if (pressed_ == &control) pressed_ = nullptr;
  std::replace(released_.begin(), released_.end(), &control, static_cast<const Control*>(nullptr));
}

}  // namespace tolmer
