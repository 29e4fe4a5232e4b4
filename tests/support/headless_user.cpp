#include "support/headless_user.h"

#include <algorithm>
#include <stdexcept>

#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/graph/graph.h"
#include "platform/grid/edit_grid.h"
#include "platform/labels.h"

namespace tolmer::test {
namespace {

void raiseMouse(Control& control) {
  raise(control.MouseDown, MouseButton::left);
  raise(control.MouseUp, MouseButton::left);
}

// Of those kinds that have a press of their own.
void press(Control& control) {
  switch (control.kind()) {
    case ControlKind::button:
      return static_cast<Button&>(control).click();
    case ControlKind::label:
      if (control.takesFocus()) static_cast<Label&>(control).click();
      return;
    case ControlKind::optionButton:
      return static_cast<OptionButton&>(control).setValue(true);
    case ControlKind::checkBox: {
      auto& box = static_cast<CheckBox&>(control);
      return box.setValue(box.value() == 1 ? 0 : 1);
    }
    case ControlKind::graph:
      raiseMouse(control);
      return static_cast<Graph&>(control).click();
    case ControlKind::grid: {
      auto& grid = static_cast<Grid&>(control);
      raiseMouse(control);
      grid.press(grid.activeCell());
      return grid.click(grid.activeCell());
    }
    default:
      return;
  }
}

// The mouse on a child of the frame makes it the active one.
void reachFor(Control& control) {
  if (Window* window = control.window(); window && window->frame()) window->activate();
}

// Are keys that edit text the business of the control? Text that can only be read keeps the key for
// copying while some of it is marked.
bool editsText(const Control* focus, const KeyPress& key) {
  if (!focus) return false;
  if (const auto* box = dynamic_cast<const TextBox*>(focus))
    return !box->readOnly() || (key.code == 'C' && box->marked().length > 0);
  const auto* grid = dynamic_cast<const EditGrid*>(focus);
  return grid && grid->editMode();
}

// A child's menu is the frame's.
bool pressShortcut(Window& window, const KeyPress& key) {
  MenuItem* bar = (window.frame() ? *window.frame() : window).menuBar();
  MenuItem* entry = bar ? bar->withShortcut(key) : nullptr;
  const bool isTextKey = key.control && std::string_view("ACVXYZ").find(
                                            static_cast<char>(key.code)) != std::string_view::npos;
  if (!entry || !entry->enabled() || (isTextKey && editsText(window.focus(), key))) return false;
  entry->click();
  return true;
}

}  // namespace

void HeadlessUser::doClick(Control& control) {
  reachFor(control);
  if (control.takesFocus()) control.setFocus();
  mouse_.press(control, MouseButton::left);
  mouse_.release(control, MouseButton::left, true);
  press(control);
}

void HeadlessUser::doDoubleClick(Control& control) {
  if (control.kind() != ControlKind::optionButton && control.kind() != ControlKind::label)
    throw std::runtime_error("a double click on " + control.name() + " means nothing");
  doClick(control);
  mouse_.doubleClick(control);
}

void HeadlessUser::doRightClick(Control& control) {
  reachFor(control);
  releaseRight(control);
}

void HeadlessUser::doType(Control& control, const std::string& text) {
  control.setFocus();
  if (control.kind() == ControlKind::numberBox)
    static_cast<NumberBox&>(control).setValue(std::stoi(text));
  else if (control.kind() == ControlKind::grid)
    dynamic_cast<EditGrid&>(control).typeText(text);
  else
    dynamic_cast<TextBox&>(control).setText(text);
}

void HeadlessUser::doChoose(Control& control, int index) {
  reachFor(control);
  control.setFocus();
  static_cast<ComboBox&>(control).setListIndex(index);
}

void HeadlessUser::doMenu(Window&, const std::vector<MenuItem*>& path) {
  for (MenuItem* item : path) {
    if (!item->enabled())
      throw std::runtime_error("the menu entry " + item->name() + " is disabled");
    item->click();
  }
}

void HeadlessUser::doKey(Window& window, const KeyPress& key) {
  if (auto* frame = dynamic_cast<FrameWindow*>(&window);
      frame && frame->activeChild() && !frame->focus())
    return doKey(*frame->activeChild(), key);
  if (pressShortcut(window, key)) return;
  bool taken = false;
  Control* focus = window.focus();
  if (auto* box = dynamic_cast<TextBox*>(focus); box && key.control && key.code == 'C') {
    if (box->marked().length > 0) desktop_.setClipboard({.text = box->markedText()});
    return;
  }
  auto* grid = focus && focus->kind() == ControlKind::grid ? static_cast<Grid*>(focus) : nullptr;
  if (const TakenKey* found = takenKey(focus ? *focus : window, key)) {
    taken = true;
    raise(found->work);
  }
  if (!taken && grid) taken = grid->pressKey(key);
  if (auto* edited = dynamic_cast<EditGrid*>(window.focus())) edited->releaseKey(key);
  if (taken) return;
  if (window.pressKey(key)) return;
  if (key.code == keys::tab) window.moveFocus(key.shift);
}

}  // namespace tolmer::test
