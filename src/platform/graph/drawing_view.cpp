#include "platform/graph/drawing_view.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "platform/graph/palette.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

// Share of the full colour in filled boxes: on the tint red lines keep a contrast of 2.7 : 1.
constexpr double fillShare = 0.38;

// Text that begins at the frame would touch it.
constexpr double distanceFromFrame = 4;

constexpr double hangingBaseline = 0.70;  // parts of the font size

LinePrimitive lineOf(const LineCall& call) {
  const bool thin = call.mode == 1;
  LinePrimitive line{{{call.x1, call.y1}, {call.x2, call.y2}}, paletteColour(call.colour)};
  line.width = thin ? 1 : 2;
  line.dashed = thin && call.style == 2;
  return line;
}

// One unit more than the plot area, for the width of lines along its edges.
ViewRect clipArea(const Picture& picture) {
  const ViewRect& plot = picture.plot;
  return {plot.left - 1, plot.bottom - 1, plot.width + 2, plot.height + picture.headroom + 2};
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

// Leaves the part of a segment inside the area; False if there is none.
bool clip(ViewPoint& a, ViewPoint& b, const ViewRect& area) {
  if (!std::isfinite(b.x - a.x) || !std::isfinite(b.y - a.y)) return false;
  return cutAt(area.left, 1, &ViewPoint::x, &ViewPoint::y, a, b) &&
         cutAt(area.right(), -1, &ViewPoint::x, &ViewPoint::y, a, b) &&
         cutAt(area.bottom, 1, &ViewPoint::y, &ViewPoint::x, a, b) &&
         cutAt(area.top(), -1, &ViewPoint::y, &ViewPoint::x, a, b);
}

ViewRect intersection(const ViewRect& a, const ViewRect& b) {
  const double left = std::max(a.left, b.left);
  const double bottom = std::max(a.bottom, b.bottom);
  return {left, bottom, std::min(a.right(), b.right()) - left, std::min(a.top(), b.top()) - bottom};
}

bool liesOnFrame(const LinePrimitive& line, const ViewRect& plot) {
  const auto near = [](double a, double b) { return std::abs(a - b) <= 0.5; };
  const auto [a, b] = std::pair{line.points.front(), line.points.back()};
  if (a.x == b.x) return near(a.x, plot.left) || near(a.x, plot.right());
  return a.y == b.y && (near(a.y, plot.bottom) || near(a.y, plot.top()));
}

bool sameLook(const LinePrimitive& a, const LinePrimitive& b) {
  return a.colour == b.colour && a.width == b.width && a.dashed == b.dashed;
}

}  // namespace

void DrawingView::begin(Picture picture, double textPixels) {
  picture_ = std::move(picture);
  overlay_.clear();
  usualPixels_ = textPixels;
  pixels_ = textPixels;
}

void DrawingView::GSBox2D(double x, double y, double width, double height, int pattern,
                          int colour) {
  overlay_.push_back(BoxCall{x, y, width, height, pattern, colour});
  const ViewRect place = intersection({x, y, width, height}, picture_.plot);
  if (!(place.width > 0 && place.height > 0)) return;
  const Colour full = paletteColour(colour);
  picture_.add(BoxPrimitive{place, tint(full, fillShare), full});
}

void DrawingView::GSLineAbs(double x1, double y1, double x2, double y2, int mode, int style,
                            int colour) {
  const LineCall call{x1, y1, x2, y2, mode, style, colour};
  overlay_.push_back(call);
  LinePrimitive line = lineOf(call);
  if (!clip(line.points[0], line.points[1], clipArea(picture_))) return;
  // A dashed line over the frame would make the frame look dashed.
  if (line.width > 1 || !liesOnFrame(line, picture_.plot)) addLine(std::move(line));
}

// A chain of short segments is one line: its dashes run on and its joints are smooth.
void DrawingView::addLine(LinePrimitive line) {
  auto* last = picture_.primitives.empty()
                   ? nullptr
                   : std::get_if<LinePrimitive>(&picture_.primitives.back());
  if (last && sameLook(*last, line) && last->points.back() == line.points.front())
    last->points.push_back(line.points.back());
  else
    picture_.add(std::move(line));
}

void DrawingView::GSLoadRFont(int percent) { pixels_ = std::round(usualPixels_ * percent / 100); }

void DrawingView::GSRText(double x, double y, int flags, const std::string& text) {
  overlay_.push_back(TextCall{x, y, flags, text});
  const bool centred = (flags & textFlags::centred) != 0;
  const bool hanging = (flags & textFlags::hanging) != 0;
  if (!centred && std::abs(x - picture_.plot.right()) < 0.5) x += distanceFromFrame;
  const double baseline = hanging ? y - hangingBaseline * pixels_ : y - 0.33 * pixels_;
  picture_.addText({{x, baseline}, text, pixels_, centred ? Align::centre : Align::left});
}

double DrawingView::GSGetRTextWid(const std::string& text) const {
  return textWidth(graphFont(pixels_), text);
}

}  // namespace tolmer
