#include "platform/graph/plot_points.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "platform/graph/palette.h"

namespace tolmer {
namespace {

// A scale may begin up to a hundredth of a step above the least value, and a scale has at least
// four steps.
constexpr double nearScale = 0.0026;

constexpr double barShare = 2.0 / 3;  // of a bar's slot
constexpr double thickestBar = 40;

struct Drawing {
  const GraphSettings& settings;
  const GraphLayout& layout;
  Picture& picture;
};

bool isFinite(const ViewPoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

// Places of all points, also of those outside the scale or without a place.
std::vector<ViewPoint> placesOf(const Drawing& d) {
  const PlotAxes& axes = d.layout.axes;
  const ViewRect& plot = d.layout.plot;
  const bool isLine = d.settings.graphType == GraphType::lineWithSymbols;
  std::vector<ViewPoint> places;
  places.reserve(d.settings.points.size());
  for (const GraphPoint& point : d.settings.points) {
    const double x = isLine ? static_cast<double>(places.size()) + 1 : double{point.x};
    places.push_back({plot.left + axes.x.share(x) * plot.width,
                      plot.bottom + axes.y.share(point.value) * plot.height});
  }
  return places;
}

// False if the place is outside the scale; else it is moved onto the frame if it lies just beside.
bool bringIntoScale(ViewPoint& place, const ViewRect& plot) {
  const ViewPoint inside{std::clamp(place.x, plot.left, plot.right()),
                         std::clamp(place.y, plot.bottom, plot.top())};
  const bool near = std::abs(place.x - inside.x) <= nearScale * plot.width &&
                    std::abs(place.y - inside.y) <= nearScale * plot.height;
  place = inside;
  return near;
}

// Half symbols look like data, so a point outside the scale is left out.
void drawSymbols(const Drawing& d, const std::vector<ViewPoint>& places) {
  const int symbol = d.settings.pointSymbol;
  if (symbol != openCircle && symbol != filledCircle) return;
  const double diameter = symbolDiameter(d.settings, d.layout);
  const Colour colour = paletteColour(d.settings.pointColour);
  for (ViewPoint place : places)
    if (bringIntoScale(place, d.layout.plot))
      d.picture.add(SymbolPrimitive{place, diameter, colour, symbol == filledCircle});
}

// A point that is not finite leaves a gap.
void drawJoiningLine(const Drawing& d, const std::vector<ViewPoint>& places) {
  const Colour colour = paletteColour(d.settings.pointColour);
  for (std::size_t i = 1; i < places.size(); ++i)
    d.picture.addSegment(LinePrimitive{{places[i - 1], places[i]}, colour});
}

// Moments of the places in view units: the line is the same as that of the values.
struct Moments {
  double meanX = 0;
  double meanY = 0;
  double leastX = std::numeric_limits<double>::infinity();
  double greatestX = -leastX;
  double sumXX = 0;  // about the means
  double sumXY = 0;

  explicit Moments(const std::vector<ViewPoint>& places) {
    const auto count = static_cast<double>(places.size());
    for (const ViewPoint& place : places) {
      meanX += place.x / count;
      meanY += place.y / count;
      leastX = std::min(leastX, place.x);
      greatestX = std::max(greatestX, place.x);
    }
    for (const ViewPoint& place : places) {
      sumXX += (place.x - meanX) * (place.x - meanX);
      sumXY += (place.x - meanX) * (place.y - meanY);
    }
  }
  double lineAt(double x) const { return meanY + sumXY / sumXX * (x - meanX); }
};

void drawLeastSquaresLine(const Drawing& d, std::vector<ViewPoint> places) {
  std::erase_if(places, [](const ViewPoint& place) { return !isFinite(place); });
  const Moments m(places);
  if (!(m.leastX < m.greatestX)) return;
  LinePrimitive line{{{m.leastX, m.lineAt(m.leastX)}, {m.greatestX, m.lineAt(m.greatestX)}},
                     paletteColour(palette::brightRed)};
  line.width = 2;
  d.picture.addSegment(std::move(line));
}

// A bar that is longer than the scale ends at the frame; a white arrowhead cuts through it and says
// that it goes on.
void addNotch(Picture& picture, const ViewRect& bar) {
  if (bar.height < 4 || bar.width < 20) return;
  const double depth = std::min(5.0, bar.height / 2);
  const double base = bar.right() - 5 - depth;
  LinePrimitive notch{
      {{base, bar.top()}, {base + depth, bar.bottom + bar.height / 2}, {base, bar.bottom}},
      colours::white};
  notch.width = 3;
  picture.add(std::move(notch));
}

// Bars stand one unit off the left side of the frame, which stays black, and are all equally thick.
void drawBars(const Drawing& d) {
  const ViewRect& plot = d.layout.plot;
  const auto count = static_cast<double>(d.settings.points.size());
  const double slot = plot.height / count;
  const double thickness = std::max(1.0, std::round(std::min(barShare * slot, thickestBar)));
  for (std::size_t i = 0; i < d.settings.points.size(); ++i) {
    const double share = d.layout.axes.y.share(d.settings.points[i].value);
    if (!(share > 0)) continue;
    const double middle = plot.top() - (static_cast<double>(i) + 0.5) * slot;
    const double length = std::max(2.0, std::min(share, 1.0) * plot.width);
    const ViewRect bar{plot.left + 1, std::round(middle - thickness / 2), length - 1, thickness};
    d.picture.add(tintedBox(bar, d.settings.pointColour));
    if (share > 1) addNotch(d.picture, bar);
  }
}

}  // namespace

void drawPoints(const GraphSettings& settings, const GraphLayout& layout, Picture& picture) {
  const Drawing drawing{settings, layout, picture};
  if (settings.graphType == GraphType::horizontalBars) {
    drawBars(drawing);
    return;
  }
  const std::vector<ViewPoint> places = placesOf(drawing);
  if (settings.graphType == GraphType::lineWithSymbols) drawJoiningLine(drawing, places);
  drawSymbols(drawing, places);
  if (settings.lineStatistics == leastSquaresLine) drawLeastSquaresLine(drawing, places);
}

double symbolDiameter(const GraphSettings& settings, const GraphLayout& layout) {
  const int percent = settings.symbolSize > 0
                          ? settings.symbolSize
                          : symbolSizeFor(static_cast<int>(settings.points.size()));
  const bool filled = settings.pointSymbol == filledCircle;
  const double ofText = std::sqrt(layout.textPixels / 12);
  const double ofPlot = std::clamp(std::min(layout.plot.width, layout.plot.height) / 180, 0.5, 1.0);
  return std::max(filled ? 3.0 : 4.0, (filled ? 5.5 : 7.5) * percent / 100 * ofText * ofPlot);
}

}  // namespace tolmer
