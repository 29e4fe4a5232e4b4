#include "platform/graph/plot.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "platform/graph/layout.h"
#include "platform/graph/plot_drawing.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

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
  picture_.add(tintedBox(place, colour));
}

void DrawingView::GSLineAbs(double x1, double y1, double x2, double y2, int mode, int style,
                            int colour) {
  const LineCall call{x1, y1, x2, y2, mode, style, colour};
  overlay_.push_back(call);
  LinePrimitive line = lineOf(call);
  // A dashed line over the frame would make the frame look dashed.
  if (line.width > 1 || !liesOnFrame(line, picture_.plot)) picture_.addSegment(std::move(line));
}

void DrawingView::GSLoadRFont(int percent) { pixels_ = std::round(usualPixels_ * percent / 100); }

void DrawingView::GSRText(double x, double y, int flags, const std::string& text) {
  overlay_.push_back(TextCall{x, y, flags, text});
  const bool centred = (flags & textFlags::centred) != 0;
  const bool hanging = (flags & textFlags::hanging) != 0;
  if (!centred && std::abs(x - picture_.plot.right()) < 0.5) x += distanceFromFrame;
  const double baseline = hanging ? y - hangingBaseline * pixels_ : centredBaseline(y, pixels_);
  picture_.addText({{x, baseline}, text, pixels_, centred ? Align::centre : Align::left});
}

double DrawingView::GSGetRTextWid(const std::string& text) const {
  return textWidth(graphFont(pixels_), text);
}

void Plot::setNumPoints(int count) {
  settings.points.resize(static_cast<std::size_t>(count < 0 ? 0 : count));
}

void Plot::setPoint(int point, float x, float value, int iCase) {
  settings.points.at(static_cast<std::size_t>(point) - 1) = {x, value, iCase};
}

void Plot::setPointLabel(int point, std::string text) {
  auto& labels = settings.pointLabels;
  if (labels.size() < static_cast<std::size_t>(point))
    labels.resize(static_cast<std::size_t>(point));
  labels[static_cast<std::size_t>(point) - 1] = std::move(text);
}

void Plot::setDrawMode(DrawMode) {
  const GraphLayout layout = layOut(settings, design_, size_);
  x_ = layout.axes.x;
  y_ = layout.axes.y;
  view_.begin(drawPlot(settings, layout), layout.textPixels);
}

double Plot::SDKInfo(int index) const {
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
