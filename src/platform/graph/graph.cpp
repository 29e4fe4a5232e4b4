#include "platform/graph/graph.h"

#include <cmath>
#include <utility>

#include "platform/graph/layout.h"
#include "platform/graph/plot_drawing.h"

namespace tolmer {

Graph::Graph(Container* parent, std::string name, GraphDesign design)
    : Control(parent, std::move(name)), design_(std::move(design)) {
  setFont(graphFont(12));
  setBackColour(colours::white);
  setForeColour(colours::black);
}

void Graph::resetData(int what) {
  if (what & graphData::values) settings.points.clear();
  if (!(what & graphData::labels)) return;
  settings.x.labels.clear();
  settings.y.labels.clear();
  settings.pointLabels.clear();
}

void Graph::setNumPoints(int count) {
  settings.points.resize(static_cast<std::size_t>(count < 0 ? 0 : count));
}

void Graph::setPoint(int point, float x, float value) {
  settings.points.at(static_cast<std::size_t>(point) - 1) = {x, value};
}

void Graph::setPointLabel(int point, std::string text) {
  auto& labels = settings.pointLabels;
  if (labels.size() < static_cast<std::size_t>(point))
    labels.resize(static_cast<std::size_t>(point));
  labels[static_cast<std::size_t>(point) - 1] = std::move(text);
}

void Graph::setDrawMode(DrawMode mode) {
  if (mode != draw) return;
  const ViewSize view{std::round(width() / twipsPerPixel), std::round(height() / twipsPerPixel)};
  const GraphLayout layout = layOut(settings, design_, view);
  x_ = layout.axes.x;
  y_ = layout.axes.y;
  view_.begin(drawPlot(settings, layout), layout.textPixels);
  notify(Change::content);
}

double Graph::SDKInfo(int index) const {
  const ViewRect& plot = picture().plot;
  switch (index) {
    case 1:
      return x_.minimum;
    case 2:
      return x_.maximum;
    case 3:
      return y_.maximum;
    case 4:
      return y_.minimum;
    case 5:
      return plot.width;
    case 6:
      return plot.height;
    case 7:
      return plot.left;
    case 8:
      return plot.bottom;
    default:
      return 0;
  }
}

}  // namespace tolmer
