#include "platform/graph/layout.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "platform/text_metrics.h"

namespace tolmer {
namespace {

bool isShown(const AxisMark& mark, int every) {
  return std::fmod(mark.number, every) == 0 && !isBlank(mark.label);
}

// `distance` tells how far apart the middles of two neighbours have to be.
template <class Distance>
bool labelsFit(const AxisMarks& marks, double length, int every, const Distance& distance) {
  const AxisMark* before = nullptr;
  for (const AxisMark& mark : marks) {
    if (!isShown(mark, every)) continue;
    if (before && std::abs(mark.place - before->place) * length < distance(*before, mark))
      return false;
    before = &mark;
  }
  return true;
}

template <class Distance>
void thinLabels(AxisMarks& marks, double length, const Distance& distance) {
  const int most = static_cast<int>(marks.size());
  int every = 1;
  while (every < most && !labelsFit(marks, length, every, distance)) ++every;
  for (AxisMark& mark : marks)
    if (!isShown(mark, every)) mark.label.clear();
}

// Blanks as many labels as it takes: those stay whose number is a multiple of the least possible
// count. Labels lie beside one another along a side of that length, or one below the other, where
// their middles need that distance.
void thinLabelsBeside(AxisMarks& marks, double pixels, double length) {
  thinLabels(marks, length, [pixels](const AxisMark& a, const AxisMark& b) {
    return (labelWidth(a.label, pixels) + labelWidth(b.label, pixels)) / 2 + 0.5 * pixels;
  });
}

void thinLabelsBelow(AxisMarks& marks, double distance, double length) {
  thinLabels(marks, length, [distance](const AxisMark&, const AxisMark&) { return distance; });
}

// Distances of labels one below the other, in parts of the font size; names of bars may move closer
// where room is short. Letters cover 0.92 of it.
constexpr double leastLinePitch = 1.1;
constexpr double leastPitchOfNames = 0.95;

double widestLabel(const AxisMarks& marks, double pixels) {
  double widest = 0;
  for (const AxisMark& mark : marks) widest = std::max(widest, labelWidth(mark.label, pixels));
  return widest;
}

constexpr double smallestPlotWidth = 80;
constexpr double smallestPlotHeight = 50;

// Names of bars shrink to this size, and move closer, before they are thinned or cut.
constexpr double smallestNamePixels = 9;

// Names take no more of the view's width than this; numbers are never cut.
constexpr double widestNameLeft = 0.36;
constexpr double widestNameBelow = 0.25;

// Text grows with the window, but slower: 12 in a quadrant of a small screen, 18 maximised on a
// large one. At more than 18 a caption ten units above the lower edge would be cut.
double textPixelsFor(ViewSize view) {
  const double room = std::min(0.5625 * view.width, view.height);
  return std::clamp(std::round(12 + (room - 280) / 120), 11.0, 18.0);
}

// A text class grows by half of what its percentage says.
double classPixelsFor(double textPixels, int percent) {
  return std::round(textPixels * (1 + (percent - 100) / 200.0));
}

void setTextSizes(GraphLayout& layout, const GraphDesign& design) {
  layout.textPixels = textPixelsFor(layout.view);
  for (std::size_t i = 0; i < layout.classPixels.size(); ++i)
    layout.classPixels[i] = classPixelsFor(layout.textPixels, design.textPercent[i]);
  const double pixels = layout.tickLabelPixels();
  layout.leftLabelPixels = pixels;
  layout.tickLength = std::max(4.0, std::round(0.4 * pixels));
  layout.gap = std::max(3.0, std::round(0.25 * pixels));
  layout.pad = std::max(6.0, std::round(0.5 * pixels));
}

double bottomMargin(const GraphLayout& layout, const GraphSettings& settings,
                    const GraphDesign& design) {
  // The caption hangs from a height of 10, the labels from 8 below the plot area.
  if (design.scaleAsOverlay)
    return 10 + 0.9 * layout.textPixels + layout.gap + 0.95 * layout.textPixels + 8;
  const double labels = layout.tickLength + layout.gap + 0.9 * layout.tickLabelPixels();
  if (isBlank(settings.x.title)) return labels + layout.pad;
  return labels + layout.gap + 1.15 * layout.axisTitlePixels() + 0.6 * layout.pad;
}

double topMargin(const GraphLayout& layout, const GraphDesign& design) {
  if (design.roomForCaption) return 10 + 0.9 * layout.textPixels + layout.gap + 2;
  return std::max(10.0, 0.8 * layout.tickLabelPixels());
}

// At least two thirds of the height stay for the plot.
double headroomShare(const GraphSettings& settings) {
  return settings.headroom > 0 ? std::min(settings.headroom, 0.5) : 0;
}

void setHeight(GraphLayout& layout, const GraphSettings& settings, const GraphDesign& design) {
  layout.plot.bottom = std::round(bottomMargin(layout, settings, design));
  const double height = layout.view.height - layout.plot.bottom - topMargin(layout, design);
  layout.plot.height = std::round(height / (1 + headroomShare(settings)));
  layout.headroom = std::floor(headroomShare(settings) * layout.plot.height);
}

// Every how many labels there is room for where labels need that distance.
double everyLabel(double distance, double pitch) {
  return std::max(1.0, std::ceil(distance / pitch));
}

// The largest size at which as many names stand in full as at the smallest one.
double namePixels(const GraphLayout& layout, const GraphSettings& settings, double widest) {
  const AxisMarks& names = layout.axes.left;
  const double pitch = layout.plot.height / static_cast<double>(settings.points.size()) *
                       std::max(1, settings.labelEvery);
  const double fewest = everyLabel(leastPitchOfNames * smallestNamePixels, pitch);
  double pixels = layout.tickLabelPixels();
  while (pixels > smallestNamePixels && (everyLabel(leastLinePitch * pixels, pitch) > fewest ||
                                         widestLabel(names, pixels) > widest))
    --pixels;
  return pixels;
}

void cutLabels(AxisMarks& marks, double pixels, double width) {
  for (AxisMark& mark : marks) mark.label = fitText(mark.label, pixels, width);
}

void fitNames(GraphLayout& layout, const GraphSettings& settings) {
  if (settings.graphType == GraphType::horizontalBars) {
    const double widest = widestNameLeft * layout.view.width;
    layout.leftLabelPixels = namePixels(layout, settings, widest);
    cutLabels(layout.axes.left, layout.leftLabelPixels, widest);
  } else if (settings.graphType == GraphType::lineWithSymbols) {
    cutLabels(layout.axes.below, layout.tickLabelPixels(), widestNameBelow * layout.view.width);
  }
}

// How far labels below the plot may reach beyond its left and its right edge.
struct Overhang {
  double left = 0;
  double right = 0;
};

Overhang overhang(const GraphLayout& layout, double plotWidth) {
  Overhang beyond;
  for (const AxisMark& mark : layout.axes.below) {
    if (isBlank(mark.label)) continue;
    const double half = labelWidth(mark.label, layout.tickLabelPixels()) / 2 + 4;
    beyond.left = std::max(beyond.left, half - mark.place * plotWidth);
    beyond.right = std::max(beyond.right, half - (1 - mark.place) * plotWidth);
  }
  return beyond;
}

double leftMargin(const GraphLayout& layout, const GraphSettings& settings) {
  const double title = isBlank(settings.y.title) ? 0 : 1.1 * layout.axisTitlePixels() + layout.gap;
  return layout.pad + title + widestLabel(layout.axes.left, layout.leftLabelPixels) + layout.gap +
         layout.tickLength;
}

double rightMargin(const GraphLayout& layout, const GraphDesign& design) {
  const double text =
      design.textAtRight.empty() ? 0 : labelWidth(design.textAtRight, layout.textPixels) + 10;
  const double lastLabel =
      design.scaleAsOverlay ? labelWidth("1000", layout.textPixels) / 2 + 4 : 0;
  return std::max({12.0, text, lastLabel});
}

void setWidth(GraphLayout& layout, const GraphSettings& settings, const GraphDesign& design) {
  const double left = leftMargin(layout, settings);
  const double right = rightMargin(layout, design);
  const Overhang beyond = overhang(layout, layout.view.width - left - right);
  layout.plot.left = std::round(std::max(left, beyond.left));
  layout.plot.width =
      std::round(layout.view.width - layout.plot.left - std::max(right, beyond.right));
}

ViewRect areaWithoutText(ViewSize view) {
  return {4, 4, std::max(1.0, view.width - 8), std::max(1.0, view.height - 8)};
}

}  // namespace

double labelWidth(const std::string& label, double pixels) {
  return textWidth(graphFont(pixels), label);
}

std::string fitText(const std::string& text, double pixels, double width) {
  if (labelWidth(text, pixels) <= width) return text;
  for (std::size_t bytes = text.size(); bytes > 0;) {
    --bytes;
    while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0U) == 0x80U) --bytes;
    std::string cut = text.substr(0, bytes) + "…";
    if (labelWidth(cut, pixels) <= width) return cut;
  }
  return {};
}

GraphLayout layOut(const GraphSettings& settings, const GraphDesign& design, ViewSize view) {
  GraphLayout layout;
  layout.view = view;
  layout.axes = plotAxes(settings);
  if (design.scaleAsOverlay) layout.axes.below.clear();
  setTextSizes(layout, design);
  setHeight(layout, settings, design);
  fitNames(layout, settings);
  setWidth(layout, settings, design);
  layout.hasText =
      layout.plot.width >= smallestPlotWidth && layout.plot.height >= smallestPlotHeight;
  if (!layout.hasText) {
    layout.plot = areaWithoutText(view);
    layout.headroom = 0;
    return layout;
  }
  thinLabelsBeside(layout.axes.below, layout.tickLabelPixels(), layout.plot.width);
  const bool areNames = settings.graphType == GraphType::horizontalBars;
  thinLabelsBelow(layout.axes.left,
                  (areNames ? leastPitchOfNames : leastLinePitch) * layout.leftLabelPixels,
                  layout.plot.height);
  return layout;
}

double centredBaseline(double y, double pixels) { return y - 0.33 * pixels; }

}  // namespace tolmer
