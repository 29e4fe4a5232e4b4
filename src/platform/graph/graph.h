// The control that shows a plot.
#pragma once

#include <cmath>
#include <string>
#include <utility>

#include "platform/control.h"
#include "platform/graph/plot.h"

namespace tolmer {

class Graph : public Control {
 public:
  Graph(Container* parent, std::string name) : Control(parent, std::move(name)) {
    setFont(graphFont(12));
    setBackColour(colours::white);
    setForeColour(colours::black);
  }
  ~Graph() override { setPeer(nullptr); }
  ControlKind kind() const override { return ControlKind::graph; }
  bool takesFocus() const override { return true; }

  // The size that a plot must have to fill the control.
  ViewSize viewSize() const {
    return {std::round(width() / twipsPerPixel), std::round(height() / twipsPerPixel)};
  }
  void show(Plot plot) {
    plot_ = std::move(plot);
    notify(Change::content);
  }
  const Plot& plot() const { return plot_; }

  // The user's click with the left button.
  void click() { raise(Click); }

  Event<> Click;

 private:
  Plot plot_;
};

}  // namespace tolmer
