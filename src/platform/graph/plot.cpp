#include "platform/graph/plot.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <utility>

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

// At the percentage of the usual size that the settings say or, for 0, that suits the number of
// points.
double symbolDiameter(const GraphSettings& settings, const GraphLayout& layout) {
  const int percent = settings.symbolSize > 0
                          ? settings.symbolSize
                          : symbolSizeFor(static_cast<int>(settings.points.size()));
  const bool filled = settings.pointSymbol == filledCircle;
  const double ofText = std::sqrt(layout.textPixels / 12);
  const double ofPlot = std::clamp(std::min(layout.plot.width, layout.plot.height) / 180, 0.5, 1.0);
  return std::max(filled ? 3.0 : 4.0, (filled ? 5.5 : 7.5) * percent / 100 * ofText * ofPlot);
}

// Half symbols look like data, so a point outside the scale is left out.
void drawSymbols(const Drawing& d, const std::vector<ViewPoint>& places) {
  const int symbol = d.settings.pointSymbol;
  if (symbol != openCircle && symbol != filledCircle) return;
  const double diameter = symbolDiameter(d.settings, d.layout);
  const Colour colour = paletteColour(d.settings.pointColour);
  int point = 0;
  for (ViewPoint place : places) {
    ++point;
    if (bringIntoScale(place, d.layout.plot))
      d.picture.add(SymbolPrimitive{place, diameter, colour, symbol == filledCircle, point});
  }
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

// What the settings say of their points.
void drawPoints(const Drawing& d) {
  if (d.settings.graphType == GraphType::horizontalBars) return drawBars(d);
  const std::vector<ViewPoint> places = placesOf(d);
  if (d.settings.graphType == GraphType::lineWithSymbols) drawJoiningLine(d, places);
  drawSymbols(d, places);
  if (d.settings.lineStatistics == leastSquaresLine) drawLeastSquaresLine(d, places);
}

// Marks closer than this are a grey bar.
constexpr double closestTicks = 3;
constexpr double shortTick = 0.6;

void drawFrame(const Drawing& d) {
  const ViewRect& plot = d.layout.plot;
  d.picture.add(LinePrimitive{{{plot.left, plot.bottom},
                               {plot.left, plot.top()},
                               {plot.right(), plot.top()},
                               {plot.right(), plot.bottom},
                               {plot.left, plot.bottom}},
                              colours::black});
}

// Marks without a label are shorter, and left out where they would be a grey bar.
struct TickDrawing {
  bool crowded = false;
  double longTick = 0;

  TickDrawing(const AxisMarks& marks, double length, double tickLength)
      : crowded(length < closestTicks * static_cast<double>(marks.size())), longTick(tickLength) {}

  double lengthOf(const AxisMark& mark) const {
    if (!mark.ticked) return 0;
    if (!isBlank(mark.label)) return longTick;
    return crowded ? 0 : shortTick * longTick;
  }
};

void drawMarksBelow(const Drawing& d) {
  const AxisMarks& marks = d.layout.axes.below;
  const ViewRect& plot = d.layout.plot;
  const TickDrawing ticks(marks, plot.width, d.layout.tickLength);
  const double pixels = d.layout.tickLabelPixels();
  const double baseline = plot.bottom - d.layout.tickLength - d.layout.gap - 0.67 * pixels;
  for (const AxisMark& mark : marks) {
    const double x = plot.left + mark.place * plot.width;
    const double end = plot.bottom - ticks.lengthOf(mark);
    if (end < plot.bottom)
      d.picture.add(LinePrimitive{{{x, plot.bottom}, {x, end}}, colours::black});
    d.picture.addText({{x, baseline}, mark.label, pixels, Align::centre});
  }
}

void drawMarksLeft(const Drawing& d) {
  const AxisMarks& marks = d.layout.axes.left;
  const ViewRect& plot = d.layout.plot;
  const TickDrawing ticks(marks, plot.height, d.layout.tickLength);
  const double pixels = d.layout.leftLabelPixels;
  const double right = plot.left - d.layout.tickLength - d.layout.gap;
  for (const AxisMark& mark : marks) {
    const double y = plot.bottom + mark.place * plot.height;
    const double end = plot.left - ticks.lengthOf(mark);
    if (end < plot.left) d.picture.add(LinePrimitive{{{plot.left, y}, {end, y}}, colours::black});
    d.picture.addText({{right, centredBaseline(y, pixels)}, mark.label, pixels, Align::right});
  }
}

// A title that fits the view, and its middle: over the plot if it fits in so, else moved into the
// view.
struct Title {
  std::string text;
  double middle = 0;

  Title(const std::string& whole, double pixels, double plotMiddle, double room)
      : text(fitText(whole, pixels, room - 8)) {
    const double half = labelWidth(text, pixels) / 2 + 2;
    middle = std::clamp(plotMiddle, half, std::max(half, room - half));
  }
};

void drawTitles(const Drawing& d) {
  const double pixels = d.layout.axisTitlePixels();
  const ViewRect& plot = d.layout.plot;
  const ViewSize& view = d.layout.view;
  const Title below(d.settings.x.title, pixels, plot.left + plot.width / 2, view.width);
  const Title left(d.settings.y.title, pixels, plot.bottom + plot.height / 2, view.height);
  const double baseline = 0.6 * d.layout.pad + 0.28 * pixels;
  d.picture.addText({{below.middle, baseline}, below.text, pixels, Align::centre});
  d.picture.addText(
      {{d.layout.pad + 0.75 * pixels, left.middle}, left.text, pixels, Align::centre, true});
}

Picture drawPlot(const GraphSettings& settings, const GraphLayout& layout) {
  Picture picture;
  picture.size = layout.view;
  picture.plot = layout.plot;
  picture.headroom = layout.headroom;
  picture.hasText = layout.hasText;
  const Drawing drawing{settings, layout, picture};
  drawFrame(drawing);
  if (layout.hasText) {
    drawMarksBelow(drawing);
    drawMarksLeft(drawing);
    drawTitles(drawing);
  }
  drawPoints(drawing);
  return picture;
}

// Draws the calls on the graph's own picture.
struct OverlayPainter {
  Picture& picture;

  void operator()(const BoxCall& call) const {
    const ViewRect place = intersection({call.x, call.y, call.width, call.height}, picture.plot);
    if (place.width > 0 && place.height > 0) picture.add(tintedBox(place, call.colour));
  }
  void operator()(const LineCall& call) const {
    LinePrimitive line = lineOf(call);
    // A dashed line over the frame would make the frame look dashed.
    if (line.width > 1 || !liesOnFrame(line, picture.plot)) picture.addSegment(std::move(line));
  }
  void operator()(const TextCall& call) const {
    const bool centred = (call.flags & textFlags::centred) != 0;
    const bool hanging = (call.flags & textFlags::hanging) != 0;
    const bool touches = !centred && std::abs(call.x - picture.plot.right()) < 0.5;
    const double x = touches ? call.x + distanceFromFrame : call.x;
    const double baseline =
        hanging ? call.y - hangingBaseline * call.pixels : centredBaseline(call.y, call.pixels);
    picture.addText({{x, baseline}, call.text, call.pixels, centred ? Align::centre : Align::left});
  }
};

}  // namespace

void DrawingView::begin(ViewSize size, double textPixels) {
  size_ = size;
  overlay_.clear();
  usualPixels_ = textPixels;
  pixels_ = textPixels;
}

void DrawingView::GSBox2D(double x, double y, double width, double height, int pattern,
                          int colour) {
  overlay_.push_back(BoxCall{x, y, width, height, pattern, colour});
}

void DrawingView::GSLineAbs(double x1, double y1, double x2, double y2, int mode, int style,
                            int colour) {
  overlay_.push_back(LineCall{x1, y1, x2, y2, mode, style, colour});
}

void DrawingView::GSLoadRFont(int percent) { pixels_ = std::round(usualPixels_ * percent / 100); }

void DrawingView::GSRText(double x, double y, int flags, const std::string& text) {
  overlay_.push_back(TextCall{x, y, flags, text, pixels_});
}

double DrawingView::GSGetRTextWid(const std::string& text) const {
  return textWidth(graphFont(pixels_), text);
}

void Plot::setNumPoints(int count) {
  settings.points.resize(static_cast<std::size_t>(count < 0 ? 0 : count));
}

void Plot::setPoint(int point, float x, float value, int iCase) {
  settings.points.at(point - 1) = {x, value, iCase};
}

void Plot::setPointLabel(int point, std::string text) {
  auto& labels = settings.pointLabels;
  if (labels.size() < static_cast<std::size_t>(point))
    labels.resize(static_cast<std::size_t>(point));
  labels[point - 1] = std::move(text);
}

void Plot::setDrawMode(DrawMode) {
  const GraphLayout layout = layOut(settings, design_, size_);
  isDrawn_ = true;
  area_ = layout.plot;
  x_ = layout.axes.x;
  y_ = layout.axes.y;
  view_.begin(size_, layout.textPixels);
}

Picture Plot::picture() const {
  if (!isDrawn_) return {};
  Picture picture = drawPlot(settings, layOut(settings, design_, size_));
  for (const OverlayCall& call : overlay()) std::visit(OverlayPainter{picture}, call);
  return picture;
}

double Plot::SDKInfo(int index) const {
  if (index == 1) return x_.minimum;
  if (index == 2) return x_.maximum;
  if (index == 3) return y_.maximum;
  if (index == 4) return y_.minimum;
  if (index == 5) return area_.width;
  if (index == 6) return area_.height;
  if (index == 7) return area_.left;
  if (index == 8) return area_.bottom;
  return 0;
}

}  // namespace tolmer
