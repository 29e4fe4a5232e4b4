// A hand that does anything a user can do with what is on the screen, always the same for the same
// random numbers: it knows kinds of controls, and no window.
#pragma once

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "platform/graph/graph.h"
#include "platform/grid/grid.h"
#include "support/headless_user.h"

namespace tolmer::test {

class RandomHand : public HeadlessUser {
 public:
  RandomHand(HeadlessDesktop& desktop, std::mt19937& random);

  // One action at this window, which takes the input: at one of its controls that can be used, by
  // a key, its menu, its frame, or by doing nothing for a while. Of a frame's children the
  // maximised one covers the others. A window that takes no input is waited for.
  void act(Window& window);
  void press(Control& control) { doClick(control); }
  void key(Window& window, const KeyPress& key) { doKey(window, key); }
  // An entry anywhere in that menu which can be chosen, and those above it as they open.
  void choose(MenuItem& menu);
  // The controls in there that can be used, of kinds that a user can do something with.
  static std::vector<Control*> usable(Container& container);

  // Numbers, words, formulas, tables of numbers.
  std::string anyText();
  // With names above its columns, or without.
  std::string anyTable();

  // Told of each action before it is done; whether the control or entry of that name is left alone
  // this time.
  std::function<void(const std::string&)> tell;
  std::function<bool(const std::string&)> leavesAlone;

  int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }
  bool oneIn(int number) { return upTo(number - 1) == 0; }
  template <class Value>
  const Value& anyOf(const std::vector<Value>& values) {
    return values.at(static_cast<std::size_t>(upTo(static_cast<int>(values.size()) - 1)));
  }

 private:
  void useAnyControl(Window& window);
  void use(Control& control);
  void useText(Control& control);
  void useGrid(Grid& grid);
  void useGraph(Graph& graph);
  void useOutline(Control& control);
  void pressAnyKey(Window& window);
  void moveWithin(FrameWindow& frame);
  void handleFrame(Window& window);
  CellPosition anyCell(const Grid& grid);
  Size anySize();

  HeadlessDesktop& desktop_;
  std::mt19937& random_;
};

}  // namespace tolmer::test
