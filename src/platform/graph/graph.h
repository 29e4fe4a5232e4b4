// The control that shows a plot.
#pragma once

#include <cmath>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/control.h"
#include "platform/graph/case_marks.h"
#include "platform/graph/plot.h"

namespace tolmer {

// Its symbols and bars can stand for cases: these are named to a pointer that rests on them, taken
// by clicks, drags and keys, and drawn so that they stand out while they are selected. What
// selection follows is the business of whoever listens to Pick.
class Graph : public Control {
 public:
  Graph(Container* parent, std::string name);
  ~Graph() override { setPeer(nullptr); }
  ControlKind kind() const override { return ControlKind::graph; }
  bool takesFocus() const override { return true; }

  // The size that a plot must have to fill the control.
  ViewSize viewSize() const {
    return {std::round(width() / twipsPerPixel), std::round(height() / twipsPerPixel)};
  }
  // `bars` are those of the plot that stand for cases. Nothing is lit.
  void show(Plot plot, std::vector<CaseMark> bars = {});
  const Plot& plot() const { return plot_; }
  // What stands for cases, from left to right.
  const std::vector<CaseMark>& marks() const;
  // Those stand out from now on.
  void light(LitCases lit);
  const LitCases& lit() const { return lit_; }
  // The mark of the case that keys go on from.
  std::optional<std::size_t> currentMark() const;
  // As it is on the screen: the plot's, with what is lit and the band of a drag.
  Picture picture() const;

  // --- the user, told by the front end; places are view units
  // The left button goes down, moves, and is let go. A move of a few units makes it a drag, which
  // draws a band around what it will take.
  void press(ViewPoint at, ClickKeys held = {});
  void dragTo(ViewPoint at);
  void release();
  // The click that press and release make where the button was let go over the control.
  void click() { raise(Click); }
  // What a pointer that rests there is told; empty where nothing stands for a case.
  std::string tipAt(ViewPoint at) const;
  // The same of one of the marks.
  std::string wordsOn(std::size_t mark) const;

  Event<> Click;
  // Cases that were clicked or dragged around, or stepped to by a key, and whether they are to
  // stand beside what is selected. No cases: a band around nothing.
  Event<const std::vector<int>&, ClickKeys> Pick;
  // What is to be said of cases that lie on one place, or of the bar of that index.
  std::function<std::string(const CaseMark&)> describe;

 private:
  struct Drag {
    ViewPoint from;
    ViewPoint to;
    ClickKeys held;
    bool isBand = false;
  };
  void takeKeys();
  void stepByPlace(int step, bool adds);
  void stepByNumber(int step, bool adds);
  const Picture& base() const;

  Plot plot_;
  std::vector<CaseMark> bars_;
  LitCases lit_;
  std::optional<Drag> drag_;
  mutable std::optional<Picture> base_;  // of the plot; made when it is asked for
  mutable std::optional<std::vector<CaseMark>> marks_;
};

}  // namespace tolmer
