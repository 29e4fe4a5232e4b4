#include "platform/graph/plot_drawing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "platform/graph/palette.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

constexpr int openCircle = 12;
constexpr int filledCircle = 13;

// Marks closer than this are a grey bar.
constexpr double closestTicks = 3;
constexpr double shortTick = 0.6;

struct Drawing {
  const GraphSettings& settings;
  const GraphLayout& layout;
  Picture& picture;
};

void drawFrame(const Drawing& d) {
  const ViewRect& plot = d.layout.plot;
  d.picture.add(LinePrimitive{{{plot.left, plot.bottom},
                               {plot.left, plot.top()},
                               {plot.right(), plot.top()},
                               {plot.right(), plot.bottom},
                               {plot.left, plot.bottom}},
                              colours::black});
}

// Empty where the tick mark goes without a label.
std::string labelAt(const Axis& axis, int tick, int every) {
  const auto index = static_cast<std::size_t>(tick) - 1;
  if (index >= axis.labels.size() || (tick - 1) % every != 0) return {};
  const std::string& label = axis.labels[index];
  return label.find_first_not_of(' ') == std::string::npos ? std::string() : label;
}

double tickLength(const Drawing& d, const std::string& label) {
  return label.empty() ? shortTick * d.layout.tickLength : d.layout.tickLength;
}

void drawXTicks(const Drawing& d) {
  const Axis& axis = d.settings.x;
  const GraphLayout& layout = d.layout;
  if (axis.ticks < 1 || layout.plot.width / axis.ticks < closestTicks) return;
  const double pixels = layout.tickLabelPixels();
  const double baseline = layout.plot.bottom - layout.tickLength - layout.gap - 0.67 * pixels;
  for (int tick = 1; tick <= axis.ticks + 1; ++tick) {
    const double x = tickX(axis, layout.plot, tick);
    const std::string label = labelAt(axis, tick, layout.everyXLabel);
    const double end = layout.plot.bottom - tickLength(d, label);
    d.picture.add(LinePrimitive{{{x, layout.plot.bottom}, {x, end}}, colours::black});
    d.picture.addText({{x, baseline}, label, pixels, Align::centre});
  }
}

void drawYTicks(const Drawing& d) {
  const Axis& axis = d.settings.y;
  const GraphLayout& layout = d.layout;
  if (axis.ticks < 1 || layout.plot.height / axis.ticks < closestTicks) return;
  const double pixels = layout.tickLabelPixels();
  const double right = layout.plot.left - layout.tickLength - layout.gap;
  for (int tick = 1; tick <= axis.ticks + 1; ++tick) {
    const double y = tickY(axis, layout.plot, tick);
    const std::string label = labelAt(axis, tick, layout.everyYLabel);
    const double end = layout.plot.left - tickLength(d, label);
    d.picture.add(LinePrimitive{{{layout.plot.left, y}, {end, y}}, colours::black});
    d.picture.addText({{right, centredBaseline(y, pixels)}, label, pixels, Align::right});
  }
}

// The middle of a title of that length: over the plot if it fits in so, else moved into the view.
double titleMiddle(double middle, double length, double room) {
  const double half = length / 2 + 2;
  return std::clamp(middle, half, std::max(half, room - half));
}

void drawXTitle(const Drawing& d) {
  const double pixels = d.layout.axisTitlePixels();
  const std::string text = fitText(d.settings.x.title, pixels, d.layout.view.width - 8);
  const double length = textWidth(graphFont(pixels), text);
  const ViewRect& plot = d.layout.plot;
  const double x = titleMiddle(plot.left + plot.width / 2, length, d.layout.view.width);
  d.picture.addText({{x, 0.6 * d.layout.pad + 0.28 * pixels}, text, pixels, Align::centre});
}

void drawYTitle(const Drawing& d) {
  const double pixels = d.layout.axisTitlePixels();
  const std::string text = fitText(d.settings.y.title, pixels, d.layout.view.height - 8);
  const double length = textWidth(graphFont(pixels), text);
  const ViewRect& plot = d.layout.plot;
  const double y = titleMiddle(plot.bottom + plot.height / 2, length, d.layout.view.height);
  d.picture.addText({{d.layout.pad + 0.75 * pixels, y}, text, pixels, Align::centre, true});
}

// Half symbols look like data, so a point outside the scale is left out.
void drawPoints(const Drawing& d) {
  const GraphSettings& settings = d.settings;
  if (settings.pointSymbol != openCircle && settings.pointSymbol != filledCircle) return;
  const ViewRect& plot = d.layout.plot;
  const double diameter = symbolDiameter(settings, d.layout);
  const double width = settings.x.maximum - settings.x.minimum;
  const double height = settings.y.maximum - settings.y.minimum;
  const Colour colour = paletteColour(settings.pointColour);
  for (const GraphPoint& point : settings.points) {
    const double x = (point.x - settings.x.minimum) / width;
    const double y = (point.value - settings.y.minimum) / height;
    if (!(x >= 0 && x <= 1 && y >= 0 && y <= 1)) continue;
    d.picture.add(SymbolPrimitive{{plot.left + x * plot.width, plot.bottom + y * plot.height},
                                  diameter,
                                  colour,
                                  settings.pointSymbol == filledCircle});
  }
}

int usualSymbolSize(std::size_t points) {
  if (points > 150) return 50;
  if (points > 75) return 75;
  return points > 30 ? 100 : 125;
}

}  // namespace

Picture drawPlot(const GraphSettings& settings, const GraphLayout& layout) {
  Picture picture;
  picture.size = layout.view;
  picture.plot = layout.plot;
  picture.headroom = layout.headroom;
  const Drawing drawing{settings, layout, picture};
  drawFrame(drawing);
  if (layout.hasText) {
    drawXTicks(drawing);
    drawYTicks(drawing);
    drawXTitle(drawing);
    drawYTitle(drawing);
  }
  drawPoints(drawing);
  return picture;
}

double symbolDiameter(const GraphSettings& settings, const GraphLayout& layout) {
  const int percent =
      settings.symbolSize > 0 ? settings.symbolSize : usualSymbolSize(settings.points.size());
  const bool filled = settings.pointSymbol == filledCircle;
  const double ofText = std::sqrt(layout.textPixels / 12);
  const double ofPlot = std::clamp(std::min(layout.plot.width, layout.plot.height) / 180, 0.5, 1.0);
  return std::max(filled ? 3.0 : 4.0, (filled ? 5.5 : 7.5) * percent / 100 * ofText * ofPlot);
}

}  // namespace tolmer
