#include "platform/graph/plot_drawing.h"

#include <algorithm>

#include "platform/graph/label_fit.h"
#include "platform/graph/plot_points.h"

namespace tolmer {
namespace {

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

}  // namespace

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
  drawPoints(settings, layout, picture);
  return picture;
}

}  // namespace tolmer
