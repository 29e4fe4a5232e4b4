// The graph control: settings in, a picture out.
#pragma once

#include <string>

#include "platform/control.h"
#include "platform/graph/drawing_view.h"
#include "platform/graph/graph_settings.h"
#include "platform/graph/picture.h"
#include "platform/graph/tidy_scale.h"

namespace tolmer {

// What a graph holds, for resetData; bits.
namespace graphData {
inline constexpr int values = 1;
inline constexpr int labels = 2;
inline constexpr int all = values | labels;
}  // namespace graphData

// Changes of the settings show when DrawMode is set to 2, which draws everything anew and drops
// what had been drawn on top; so a window makes its settings, sets DrawMode 2 and then draws on the
// view. The peer is told at that moment and paints later, when the overlay is complete.
class Graph : public Control {
 public:
  Graph(Container* parent, std::string name, GraphDesign design = {});
  ~Graph() override { setPeer(nullptr); }
  ControlKind kind() const override { return ControlKind::graph; }
  bool takesFocus() const override { return true; }

  GraphSettings settings;

  void resetData(int what);
  void setNumPoints(int count);
  int numPoints() const { return static_cast<int>(settings.points.size()); }
  // Points count from 1.
  void setPoint(int point, float x, float value);
  void setPointLabel(int point, std::string text);

  enum DrawMode { hold = 1, draw = 2 };
  void setDrawMode(DrawMode mode);

  // The plot area as it was drawn last: 1 and 2 lower and upper bound of the scale of x, 3 and 4
  // upper and lower bound of the scale of y; in view units 5 width, 6 height, 7 left, 8 bottom.
  double SDKInfo(int index) const;

  DrawingView& GSUseView() { return view_; }

  const Picture& picture() const { return view_.picture(); }
  const std::vector<OverlayCall>& overlay() const { return view_.overlay(); }

  // The user's click with the left button.
  void click() { raise(Click); }

  Event<> Click;

 private:
  GraphDesign design_;
  Scale x_;
  Scale y_;
  DrawingView view_;
};

}  // namespace tolmer
