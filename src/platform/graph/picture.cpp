#include "platform/graph/picture.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "platform/text_metrics.h"

namespace tolmer {
namespace {

// Heights of ascenders and depths of descenders of Liberation Serif, in parts of the font size.
constexpr double ascent = 0.70;
constexpr double descent = 0.22;

bool isFinite(const ViewPoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }
bool isFinite(const ViewRect& rect) {
  return isFinite(ViewPoint{rect.left, rect.bottom}) &&
         isFinite(ViewPoint{rect.width, rect.height});
}

struct HasFiniteCoordinates {
  bool operator()(const BoxPrimitive& box) const { return isFinite(box.place); }
  bool operator()(const LinePrimitive& line) const {
    return std::all_of(line.points.begin(), line.points.end(),
                       [](const ViewPoint& point) { return isFinite(point); });
  }
  bool operator()(const SymbolPrimitive& symbol) const { return isFinite(symbol.centre); }
  bool operator()(const TextPrimitive& text) const { return isFinite(text.anchor); }
};

bool isInside(const ViewRect& inner, const ViewSize& outer) {
  return inner.left >= 0 && inner.bottom >= 0 && inner.right() <= outer.width &&
         inner.top() <= outer.height;
}

bool overlap(const ViewRect& a, const ViewRect& b) {
  return a.left < b.right() && b.left < a.right() && a.bottom < b.top() && b.bottom < a.top();
}

bool goesOn(const LinePrimitive& line, const LinePrimitive& next) {
  return line.colour == next.colour && line.width == next.width && line.dashed == next.dashed &&
         !line.isClosed() && line.points.back() == next.points.front();
}

// Cuts off what lies below a level of one coordinate, or above it for side -1. False if nothing is
// left. The cut end gets the level itself, which keeps ends far away from rounding errors.
bool cutAt(double level, double side, double ViewPoint::*along, double ViewPoint::*across,
           ViewPoint& a, ViewPoint& b) {
  const bool aIsOut = (a.*along - level) * side < 0;
  const bool bIsOut = (b.*along - level) * side < 0;
  if (aIsOut && bIsOut) return false;
  if (!aIsOut && !bIsOut) return true;
  const double share = (level - a.*along) / (b.*along - a.*along);
  const double other = a.*across + share * (b.*across - a.*across);
  ViewPoint& outer = aIsOut ? a : b;
  outer.*along = level;
  outer.*across = other;
  return true;
}

// Where lines may run: the plot area with its headroom, and one unit more for the width of lines
// along its edges.
ViewRect lineArea(const Picture& picture) {
  const ViewRect& plot = picture.plot;
  return {plot.left - 1, plot.bottom - 1, plot.width + 2, plot.height + picture.headroom + 2};
}

// Leaves the part of a segment inside the area; False if there is none or the segment is not
// finite.
bool clip(ViewPoint& a, ViewPoint& b, const ViewRect& area) {
  if (!std::isfinite(b.x - a.x) || !std::isfinite(b.y - a.y)) return false;
  return cutAt(area.left, 1, &ViewPoint::x, &ViewPoint::y, a, b) &&
         cutAt(area.right(), -1, &ViewPoint::x, &ViewPoint::y, a, b) &&
         cutAt(area.bottom, 1, &ViewPoint::y, &ViewPoint::x, a, b) &&
         cutAt(area.top(), -1, &ViewPoint::y, &ViewPoint::x, a, b);
}

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

BoxPrimitive tintedBox(const ViewRect& place, int colour) {
  const Colour full = paletteColour(colour);
  return {place, tint(full, fillShare), full};
}

void Picture::add(Primitive primitive) {
  if (std::visit(HasFiniteCoordinates{}, primitive)) primitives.push_back(std::move(primitive));
}

void Picture::addSegment(LinePrimitive segment) {
  if (!clip(segment.points[0], segment.points[1], lineArea(*this))) return;
  auto* last = primitives.empty() ? nullptr : std::get_if<LinePrimitive>(&primitives.back());
  if (last && goesOn(*last, segment))
    last->points.push_back(segment.points.back());
  else
    add(std::move(segment));
}

void Picture::addText(TextPrimitive text) {
  if (!hasText || text.text.find_first_not_of(' ') == std::string::npos) return;
  const ViewRect bounds = textBounds(text);
  if (!isFinite(bounds) || !isInside(bounds, size)) return;
  if (std::any_of(textPlaces.begin(), textPlaces.end(),
                  [&](const ViewRect& earlier) { return overlap(bounds, earlier); }))
    return;
  textPlaces.push_back(bounds);
  add(std::move(text));
}

ViewRect textBounds(const TextPrimitive& text) {
  const double length = textWidth(graphFont(text.pixels), text.text);
  const double before = text.align == Align::left     ? 0
                        : text.align == Align::centre ? length / 2
                                                      : length;
  const double height = (ascent + descent) * text.pixels;
  if (text.turned)
    return {text.anchor.x - ascent * text.pixels, text.anchor.y - before, height, length};
  return {text.anchor.x - before, text.anchor.y - descent * text.pixels, length, height};
}

Font graphFont(double pixels) { return {FontFamily::serif, static_cast<float>(pixels), false}; }

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
