#include "platform/web/page_input.h"

#include <cmath>

#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/graph/graph.h"
#include "platform/grid/edit_grid.h"
#include "platform/labels.h"
#include "platform/outline.h"
#include "platform/panels.h"
#include "platform/tab_book.h"
#include "platform/web/grid_orders.h"
#include "platform/window.h"

namespace tolmer {
namespace {

// The keys stand behind that field.
ClickKeys heldIn(const PageMessage& message, std::size_t index) {
  return {message.flag(index), message.flag(index + 1)};
}

KeyPress keyIn(const PageMessage& message, std::size_t index) {
  return {message.whole(index), message.flag(index + 1), message.flag(index + 2),
          message.flag(index + 3)};
}

bool takesInput(const Control& control) {
  const Window* window = control.window();
  return window && window->takesInput();
}

TextMark markIn(const PageMessage& message, std::size_t index) {
  return {message.count(index), message.count(index + 1)};
}

}  // namespace

void PageInput::take(const PageMessage& message) {
  const std::string& kind = message.kind();
  if (kind == "key") return key(message);
  const int id = message.whole(0);
  if (kind == "click") return click(id);
  Control* control = nodes_.control(id);
  if (control && kind == "scrolled") return seen(*control, message);
  if (!control || !takesInput(*control)) return;
  if (kind == "mouse") return mouse(*control, message);
  if (kind == "hover") return hover(*control, message);
  if (control->kind() == ControlKind::window)
    return window(static_cast<Window&>(*control), message);
  if (!control->canBeUsed()) return;
  if (kind == "focus") return focus(*control);
  auto& page = static_cast<NodePeer*>(control->peer())->value;
  if (kind == "value" || kind == "choose" || kind == "text") page = message.text(1);
  if (kind == "value" || kind == "choose") {
    // What is on beside it went off, or comes on again by what the page has not heard yet.
    if (control->kind() == ControlKind::optionButton) page.reset();
    return value(*control, message.whole(1));
  }
  if (auto* outline = dynamic_cast<Outline*>(control)) {
    if (kind == "moveto") outline->moveTo(message.whole(1));
    if (kind == "expand") outline->openByUser(message.whole(1), message.flag(2));
    return;
  }
  if (kind == "text" || kind == "marked") return text(*control, message);
  if (kind == "wheel") {
    turnWheel(*control, message.number(1));
    return;
  }
  if (control->kind() == ControlKind::graph) return graph(static_cast<Graph&>(*control), message);
  if (kind == "point") return point(*control, message);
  if (auto* grid = dynamic_cast<EditGrid*>(control)) edited(*grid, message);
}

void PageInput::click(int id) {
  if (MenuItem* entry = nodes_.entry(id)) {
    if (entry->enabled()) entry->click();
    return;
  }
  Control* control = nodes_.control(id);
  if (!control || !takesInput(*control) || !control->canBeUsed()) return;
  // From a click on the control may be gone.
  if (control->kind() == ControlKind::button) return static_cast<Button&>(*control).click();
  if (control->kind() == ControlKind::label) static_cast<Label&>(*control).click();
}

// To the control with the focus, or to its window; Tab moves on where nothing else has a use for
// it.
void PageInput::key(const PageMessage& message) {
  const KeyPress key = keyIn(message, 0);
  Window* window = desktop_.inputWindow();
  Control* focus = desktop_.focus();
  if (!window || !window->takesInput()) return;
  if (const TakenKey* taken = takenKey(focus ? *focus : *window, key)) return raise(taken->work);
  if (MenuItem* bar = desktop_.menuBar())
    if (MenuItem* entry = bar->withShortcut(key); entry && entry->enabled()) return entry->click();
  if (focus && focus->kind() == ControlKind::grid) {
    const int id = NodePeer::idOf(focus);
    ToldGrid* grid = told(*focus);
    bool taken = grid && grid->sight.scrollByKey(key);
    taken = static_cast<Grid&>(*focus).pressKey(key) || taken;
    tellAgain(id);
    if (taken) return;
    const bool asksMenu = key.code == keys::menu || (key.code == keys::f10 && key.shift);
    if (asksMenu && nodes_.control(id)) return raise(focus->MouseUp, MouseButton::right);
  }
  if (key.code == keys::tab && !key.control && !key.alt) return window->moveFocus(key.shift);
  window->pressKey(key);
}

void PageInput::value(Control& control, int value) {
  if (auto* box = dynamic_cast<CheckBox*>(&control)) return box->setValue(value);
  if (auto* option = dynamic_cast<OptionButton*>(&control)) return option->setValue(true);
  if (auto* box = dynamic_cast<NumberBox*>(&control)) return box->setValue(value);
  if (auto* bar = dynamic_cast<ScrollBar*>(&control)) return bar->setValue(value);
  if (auto* list = dynamic_cast<ComboBox*>(&control)) return list->setListIndex(value);
  if (auto* book = dynamic_cast<TabBook*>(&control)) return book->chooseTab(value);
  if (auto* outline = dynamic_cast<Outline*>(&control)) outline->click(value);
}

void PageInput::text(Control& control, const PageMessage& message) {
  if (control.kind() != ControlKind::textBox) return;
  auto& box = static_cast<TextBox&>(control);
  const bool isText = message.kind() == "text";
  const TextMark mark = markIn(message, isText ? 2 : 1);
  if (isText) {
    const int id = NodePeer::idOf(&box);
    if (!box.readOnly()) box.setText(message.text(1));
    if (!nodes_.control(id)) return;
  }
  box.reportMarked({mark.first, mark.length});
}

// The page has put the focus there itself.
void PageInput::focus(Control& control) {
  desktop_.knownFocus_ = NodePeer::idOf(&control);
  desktop_.activate(*control.window());
  if (control.takesFocus()) control.setFocus();
}

void PageInput::mouse(Control& control, const PageMessage& message) {
  const std::string& act = message.text(1);
  const MouseButton button = message.text(2) == "right" ? MouseButton::right : MouseButton::left;
  MouseRoute& route = desktop_.mouse_;
  if (act == "move") return route.move(control);
  const bool isOwn = raisesItsOwnMouse(control);
  if (act == "press")
    return isOwn ? raise(control.MouseDown, button) : route.press(control, button);
  if (act == "double") return route.doubleClick(control);
  if (isOwn) return raise(control.MouseUp, button);
  route.release(control, button, message.flag(3));
}

// What of a grid is seen is no news of the grid's.
void PageInput::tellAgain(int id) {
  if (Control* control = nodes_.control(id)) control->peer()->changed(Change::text);
}

ToldGrid* PageInput::told(const Control& control) {
  return static_cast<NodePeer*>(control.peer())->grid.get();
}

void PageInput::seen(Control& control, const PageMessage& message) {
  ToldGrid* grid = told(control);
  if (!grid) return;
  grid->isSeen({message.whole(1), message.whole(2)}, message.whole(3), message.whole(4));
  if (message.whole(3) == 0) grid->pointer.giveUp();
  tellAgain(message.whole(0));
}

void PageInput::point(Control& control, const PageMessage& message) {
  ToldGrid* grid = told(control);
  if (!grid) return;
  const int id = message.whole(0);
  const std::string& act = message.text(1);
  const PixelPoint at{message.whole(2), message.whole(3)};
  const MouseButton button = message.text(4) == "right" ? MouseButton::right : MouseButton::left;
  if (act == "press") {
    focus(control);
    if (nodes_.control(id)) grid->pointer.press(at, button, heldIn(message, 5));
  } else if (act == "double") {
    grid->pointer.doubleClick(at);
  } else if (act == "release") {
    grid->pointer.moveTo(at);
    if (nodes_.control(id)) grid->pointer.release(at, button);
  } else if (act == "rest") {
    grid->pointer.scrollOn();
  } else {
    if (!grid->pointer.isDragging()) grid->cursor = grid->cursorAt(at);
    grid->pointer.moveTo(at);
  }
  tellAgain(id);
}

void PageInput::edited(EditGrid& grid, const PageMessage& message) {
  const std::string& kind = message.kind();
  if (kind == "type") return grid.typeText(message.text(1));
  if (kind == "edit" && grid.editMode())
    return grid.setEditText(message.text(1), markIn(message, 2));
  if (kind == "editmark" && grid.editMode()) return grid.reportEditMark(markIn(message, 1));
  if (kind == "keyup") return grid.releaseKey(keyIn(message, 1));
  if (kind == "leave") grid.commitEdit();
}

void PageInput::graph(Graph& graph, const PageMessage& message) {
  if (message.kind() != "graph") return;
  const int id = message.whole(0);
  const std::string& act = message.text(1);
  const ViewPoint at{message.number(2), message.number(3)};
  const auto isThere = [&] { return nodes_.control(id) != nullptr; };
  if (act == "drag") return graph.dragTo(at);
  if (act == "press") {
    focus(graph);
    if (isThere()) raise(graph.MouseDown, MouseButton::left);
    if (isThere()) graph.press(at, heldIn(message, 4));
    return;
  }
  raise(graph.MouseUp, MouseButton::left);
  if (act == "release" && isThere()) graph.click();
  if (isThere()) graph.release();
}

void PageInput::hover(Control& control, const PageMessage& message) {
  std::string words;
  const PixelPoint at{message.whole(1), message.whole(2)};
  if (control.kind() == ControlKind::graph)
    words = static_cast<Graph&>(control).tipAt({message.number(1), message.number(2)});
  else if (const ToldGrid* grid = told(control); grid && grid->sight.isOverCells(at))
    words = static_cast<Grid&>(control).tipOn(grid->sight.cellAt(at));
  nodes_.order("tip", "id", message.whole(0), "words", words);
}

// The page has whole pixels: what they make of the size that is known is no news.
void PageInput::resize(Window& window, Size shown) {
  const float scale = window.magnification();
  const auto isKnown = [=](Twips now, Twips known) {
    return std::abs(now - known * scale) < pixels(0.6F);
  };
  if (isKnown(shown.width, window.innerWidth()) && isKnown(shown.height, window.innerHeight()))
    return;
  window.reportInnerSize({shown.width / scale, shown.height / scale});
}

void PageInput::window(Window& window, const PageMessage& message) {
  const std::string& kind = message.kind();
  if (kind == "close") {
    window.requestClose();
  } else if (kind == "move") {
    window.reportPosition(pixels(message.number(1)), pixels(message.number(2)));
  } else if (kind == "resize") {
    resize(window, {pixels(message.number(1)), pixels(message.number(2))});
  } else if (kind == "state") {
    const bool isMaximised = message.text(1) == "maximised";
    window.reportState(isMaximised ? WindowState::maximised : WindowState::normal);
  } else if (kind == "activate") {
    desktop_.activate(window);
  } else if (kind == "wheel") {
    turnWheel(window, message.number(1));
  }
}

}  // namespace tolmer
