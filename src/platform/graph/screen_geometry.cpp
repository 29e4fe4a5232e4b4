#include "platform/graph/screen_geometry.h"

#include <algorithm>
#include <cmath>

namespace tolmer {
namespace {

// Marks and reference lines for one value may differ by a rounding error about a whole number;
// splitting at a quarter keeps them on one pixel.
double pixelMiddle(double v) { return std::floor(v + 0.25) + 0.5; }

void snapSegment(ViewPoint& a, ViewPoint& b) {
  if (a.x == b.x) {
    a.x = b.x = pixelMiddle(a.x);
  } else if (a.y == b.y) {
    a.y = b.y = pixelMiddle(a.y);
  }
}

}  // namespace

ViewPoint screenPoint(const ViewPoint& point, const ViewSize& view) {
  return {point.x, view.height - point.y};
}

std::vector<ViewPoint> screenLine(const LinePrimitive& line, const ViewSize& view) {
  std::vector<ViewPoint> points;
  points.reserve(line.points.size());
  for (const ViewPoint& point : line.points) points.push_back(screenPoint(point, view));
  if (line.width > 1) return points;
  if (points.size() == 2) snapSegment(points[0], points[1]);
  if (line.isClosed())
    for (ViewPoint& point : points) point = {pixelMiddle(point.x), pixelMiddle(point.y)};
  return points;
}

ViewRect screenBox(const BoxPrimitive& box, const ViewSize& view) {
  const double left = std::round(box.place.left);
  const double right = std::round(box.place.right());
  const double top = std::round(view.height - box.place.top());
  const double bottom = std::round(view.height - box.place.bottom);
  return {left + 0.5, top + 0.5, std::max(0.0, right - left - 1), std::max(0.0, bottom - top - 1)};
}

ViewPoint screenAnchor(const TextPrimitive& text, const ViewSize& view) {
  ViewPoint anchor = screenPoint(text.anchor, view);
  double& acrossLine = text.turned ? anchor.x : anchor.y;
  acrossLine = std::round(acrossLine);
  return anchor;
}

}  // namespace tolmer
