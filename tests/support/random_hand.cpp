#include "support/random_hand.h"

#include <algorithm>

#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/graph/graph.h"
#include "platform/grid/edit_grid.h"
#include "platform/labels.h"
#include "platform/outline.h"
#include "platform/panels.h"
#include "platform/tab_book.h"

namespace tolmer::test {
namespace {

bool canBeWorkedWith(const Control& control) {
  switch (control.kind()) {
    case ControlKind::label:
      return static_cast<bool>(static_cast<const Label&>(control).Click);
    case ControlKind::image:
      return static_cast<bool>(static_cast<const Image&>(control).Click);
    case ControlKind::panel:
      return static_cast<bool>(static_cast<const Panel&>(control).Click);
    case ControlKind::window:
    case ControlKind::frame:
      return false;
    default:
      return true;
  }
}

void collect(Container& container, std::vector<Control*>& found) {
  for (Control* child : container.children()) {
    if (!child->enabled() || !child->visible()) continue;
    if (canBeWorkedWith(*child)) found.push_back(child);
    if (auto* inner = dynamic_cast<Container*>(child)) collect(*inner, found);
  }
}

std::vector<Window*> inReach(Window& window) {
  if (window.style() != WindowStyle::frame) return {&window};
  std::vector<Window*> shown;
  for (Window* child : static_cast<FrameWindow&>(window).childWindows()) {
    if (!child->visible()) continue;
    if (child->state() == WindowState::maximised) return {child};
    shown.push_back(child);
  }
  if (!window.children().empty()) shown.push_back(&window);
  return shown;
}

}  // namespace

RandomHand::RandomHand(HeadlessDesktop& desktop, std::mt19937& random)
    : HeadlessUser(desktop), desktop_(desktop), random_(random) {
  desktop_.onPopupMenu = [this](MenuItem& menu, Window&) {
    if (!oneIn(6)) choose(menu);
  };
}

std::vector<Control*> RandomHand::usable(Container& container) {
  std::vector<Control*> found;
  collect(container, found);
  return found;
}

void RandomHand::act(Window& window) {
  if (!window.takesInput()) return desktop_.advance(2000);
  const int what = upTo(99);
  if (what < 60) return useAnyControl(window);
  if (what < 75) return pressAnyKey(window);
  if (what < 88 && window.menuBar()) return choose(*window.menuBar());
  if (what < 94) {
    const int milliseconds = upTo(oneIn(4) ? 4000 : 700);
    tell("waits " + std::to_string(milliseconds));
    return desktop_.advance(milliseconds);
  }
  if (what < 96) {
    ClipboardContent content{.text = anyText()};
    tell("other program copies " + content.text);
    return desktop_.setClipboard(content);
  }
  handleFrame(window);
}

void RandomHand::useAnyControl(Window& window) {
  const std::vector<Window*> windows = inReach(window);
  if (windows.empty()) return;
  Window& at = *anyOf(windows);
  if (at.frame() && oneIn(3)) {
    tell("right click on " + at.name());
    return doRightClick(at);
  }
  const std::vector<Control*> controls = usable(at);
  if (controls.empty()) return;
  Control& control = *anyOf(controls);
  if (leavesAlone(control.name())) return;
  tell("uses " + at.name() + "." + control.name());
  use(control);
}

void RandomHand::use(Control& control) {
  switch (control.kind()) {
    case ControlKind::textBox:
    case ControlKind::numberBox:
      return useText(control);
    case ControlKind::grid:
      return useGrid(static_cast<Grid&>(control));
    case ControlKind::graph:
      return useGraph(static_cast<Graph&>(control));
    case ControlKind::outline:
      return useOutline(control);
    case ControlKind::comboBox: {
      const int entries = static_cast<int>(static_cast<ComboBox&>(control).items().size());
      if (entries > 0) doChoose(control, upTo(entries - 1));
      return;
    }
    case ControlKind::tabBook: {
      auto& book = static_cast<TabBook&>(control);
      return book.chooseTab(upTo(book.tabCount()));
    }
    case ControlKind::scrollBar: {
      auto& bar = static_cast<ScrollBar&>(control);
      return bar.setValue(upTo(bar.max()));
    }
    case ControlKind::optionButton:
      return oneIn(4) ? doDoubleClick(control) : doClick(control);
    case ControlKind::label:
      return static_cast<Label&>(control).DblClick && oneIn(4) ? doDoubleClick(control)
                                                               : doClick(control);
    default:
      return oneIn(8) ? doRightClick(control) : doClick(control);
  }
}

void RandomHand::useText(Control& control) {
  if (control.kind() == ControlKind::numberBox) {
    auto& box = static_cast<NumberBox&>(control);
    return doType(control, std::to_string(box.min() + upTo(box.max() - box.min())));
  }
  auto& box = static_cast<TextBox&>(control);
  if (!box.readOnly() && oneIn(2)) return doType(control, anyText());
  doClick(control);
  const auto length = box.text().size();
  const auto first = static_cast<std::size_t>(upTo(static_cast<int>(length)));
  box.reportMarked({first, static_cast<std::size_t>(upTo(static_cast<int>(length - first)))});
}

void RandomHand::useGrid(Grid& grid) {
  if (oneIn(8)) return doRightClick(grid);
  doClick(grid);
  const CellPosition cell = anyCell(grid);
  if (!grid.tipOn(cell).empty()) tell(grid.tipOn(cell));
  grid.press(cell, {.shift = oneIn(4), .control = oneIn(8)});
  if (oneIn(6)) grid.dragTo(anyCell(grid));
  grid.click(cell);
  if (oneIn(6)) return grid.doubleClick(cell);
  auto* edited = dynamic_cast<EditGrid*>(&grid);
  if (!edited) return;
  if (oneIn(12)) return edited->dragColWidth(std::max(cell.col, 1), anySize().width);
  if (!oneIn(2)) return;
  edited->typeText(anyText());
  if (!oneIn(4)) edited->pressKey({.code = oneIn(2) ? keys::enter : keys::tab});
}

// A click on what stands for a case, or anywhere, or a drag from there.
void RandomHand::useGraph(Graph& graph) {
  if (oneIn(8)) return doRightClick(graph);
  const ViewSize size = graph.viewSize();
  const auto anywhere = [&] {
    return ViewPoint{size.width * upTo(100) / 100, size.height * upTo(100) / 100};
  };
  ViewPoint at = anywhere();
  if (!graph.marks().empty() && !oneIn(3)) {
    const ViewRect& place = anyOf(graph.marks()).place;
    at = {place.left + place.width / 2, place.bottom + place.height / 2};
  }
  if (!graph.tipAt(at).empty()) tell(graph.tipAt(at));
  graph.press(at, {.shift = oneIn(6), .control = oneIn(4)});
  if (oneIn(4)) graph.dragTo(anywhere());
  doClick(graph);
  graph.release();
}

void RandomHand::useOutline(Control& control) {
  auto& outline = static_cast<Outline&>(control);
  if (outline.items().empty()) return;
  control.setFocus();
  const int item = upTo(static_cast<int>(outline.items().size()) - 1);
  const int how = upTo(9);
  if (how < 5) return outline.click(item);
  if (how < 7) return outline.moveTo(item);
  if (how < 9) return outline.openByUser(item, oneIn(2));
  outline.click(item);
  outline.doubleClick();
}

void RandomHand::choose(MenuItem& menu) {
  MenuItem* at = &menu;
  while (!at->items().empty()) {
    std::vector<MenuItem*> there;
    for (MenuItem* item : at->items())
      if (item->enabled() && !item->isSeparator()) there.push_back(item);
    if (there.empty()) return;
    at = anyOf(there);
    if (leavesAlone(at->name())) return;
    tell("menu " + at->name());
    at->click();
    if (!at->enabled()) return;
  }
}

void RandomHand::pressAnyKey(Window& window) {
  static const std::vector<int> codes = {
      keys::tab,  keys::enter, keys::escape, keys::space,     keys::pageUp,    keys::pageDown,
      keys::home, keys::end,   keys::left,   keys::right,     keys::up,        keys::down,
      keys::f1,   keys::f2,    keys::f6,     keys::deleteKey, keys::backspace, keys::menu};
  static const std::vector<int> letters = {'A', 'C', 'V', 'X', 'Z', 'Y', 'S', 'O', 'N'};
  const bool isLetter = oneIn(3);
  const KeyPress key{isLetter ? anyOf(letters) : anyOf(codes), oneIn(5), isLetter || oneIn(6)};
  auto* frame = dynamic_cast<FrameWindow*>(&window);
  if (frame && oneIn(3)) return moveWithin(*frame);
  Window* active = frame ? frame->activeChild() : &window;
  tell("key " + std::to_string(key.code) + (key.shift ? " Shift" : "") +
       (key.control ? " Ctrl" : "") + " in " + active->name());
  doKey(*active, key);
}

void RandomHand::moveWithin(FrameWindow& frame) {
  const int how = upTo(3);
  const int letter = 'A' + upTo(25);
  tell("moves within " + frame.name() + " " + std::to_string(how) + static_cast<char>(letter));
  if (how < 2) return doKey(frame, {keys::f6, how == 1});
  if (how == 2) return doKey(frame, {keys::f10, false, true});
  doKey(frame, {letter, false, false, true});
}

void RandomHand::handleFrame(Window& window) {
  const int how = upTo(3);
  if (how == 0 && leavesAlone(window.name())) return;
  tell("frame of " + window.name() + " " + std::to_string(how));
  if (how == 0) return doClose(window);
  if (how == 1 && window.style() == WindowStyle::frame) {
    window.reportState(oneIn(2) ? WindowState::minimised : WindowState::normal);
    desktop_.advance(upTo(700));
    return window.reportState(WindowState::maximised);
  }
  const Size size = anySize();
  if (how == 2) return window.reportPosition(size.width / 3, size.height / 3);
  if (window.sizable()) window.reportInnerSize(size);
}

// Mostly where others have been before.
CellPosition RandomHand::anyCell(const Grid& grid) {
  const bool far = oneIn(12);
  const int rows = far ? grid.maxRows() : std::min(grid.maxRows(), 12);
  const int columns = far ? grid.maxCols() : std::min(grid.maxCols(), 7);
  const int least = dynamic_cast<const EditGrid*>(&grid) && oneIn(12) ? 0 : 1;
  return {least + upTo(std::max(rows - 1, 0)), least + upTo(std::max(columns - 1, 0))};
}

std::string RandomHand::anyText() {
  static const std::vector<std::string> texts = {
      "",      "x",    "Name",    "12.5",          "-3",    "0",          "1e38",    "1e-30",
      "5,4",   "a\tb", "=B1*2",   "=SUM(B1:B9)",   "=A1/0", "=LAG(Var1)", "ü ß",     "\"",
      "1 2 3", "1\n2", "=RAND()", "=AVERAGE(A:A)", "1.234", "a,b\n1,2",   "1;2\n3;4"};
  if (oneIn(3)) return anyTable();
  return oneIn(2) ? std::to_string(upTo(99)) : anyOf(texts);
}

std::string RandomHand::anyTable() {
  const int rows = 3 + upTo(12), columns = 2 + upTo(3);
  std::string table;
  for (int row = oneIn(2) ? 0 : 1; row <= rows; ++row)
    for (int column = 1; column <= columns; ++column)
      table += (row == 0 ? "x" + std::to_string(column)
                         : std::to_string(upTo(400)) + "." + std::to_string(1 + upTo(8))) +
               (column < columns ? "\t" : "\n");
  return table;
}

Size RandomHand::anySize() {
  return {pixels(static_cast<float>(200 + upTo(1800))),
          pixels(static_cast<float>(100 + upTo(900)))};
}

}  // namespace tolmer::test
