#include "platform/graph/layout.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "platform/text_metrics.h"

namespace tolmer {
namespace {

constexpr double smallestPlotWidth = 80;
constexpr double smallestPlotHeight = 50;

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

double labelWidth(const std::string& label, double pixels) {
  return textWidth(graphFont(pixels), label);
}

double widestLabel(const Axis& axis, double pixels) {
  double widest = 0;
  for (const std::string& label : axis.labels) widest = std::max(widest, labelWidth(label, pixels));
  return widest;
}

bool isBlank(const std::string& text) { return text.find_first_not_of(' ') == std::string::npos; }

void setTextSizes(GraphLayout& layout, const GraphDesign& design) {
  layout.textPixels = textPixelsFor(layout.view);
  for (std::size_t i = 0; i < layout.classPixels.size(); ++i)
    layout.classPixels[i] = classPixelsFor(layout.textPixels, design.textPercent[i]);
  const double pixels = layout.tickLabelPixels();
  layout.tickLength = std::max(4.0, std::round(0.4 * pixels));
  layout.gap = std::max(3.0, std::round(0.25 * pixels));
  layout.pad = std::max(6.0, std::round(0.5 * pixels));
}

double leftMargin(const GraphLayout& layout, const GraphSettings& settings) {
  const double pixels = layout.tickLabelPixels();
  const double title = settings.y.title.empty() ? 0 : 1.1 * layout.axisTitlePixels() + layout.gap;
  const double ofLabels =
      layout.pad + title + widestLabel(settings.y, pixels) + layout.gap + layout.tickLength;
  const auto& below = settings.x.labels;
  return below.empty() ? ofLabels : std::max(ofLabels, labelWidth(below.front(), pixels) / 2 + 4);
}

double bottomMargin(const GraphLayout& layout, const GraphSettings& settings) {
  const double labels = layout.tickLength + layout.gap + 0.9 * layout.tickLabelPixels();
  if (isBlank(settings.x.title)) return labels + layout.pad;
  return labels + layout.gap + 1.15 * layout.axisTitlePixels() + 0.6 * layout.pad;
}

double topMargin(const GraphLayout& layout, const GraphDesign& design) {
  if (design.roomForCaption) return 10 + 0.9 * layout.textPixels + layout.gap + 2;
  return std::max(10.0, 0.8 * layout.tickLabelPixels());
}

double rightMargin(const GraphLayout& layout, const GraphSettings& settings,
                   const GraphDesign& design) {
  const auto& below = settings.x.labels;
  const double label =
      below.empty() ? 0 : labelWidth(below.back(), layout.tickLabelPixels()) / 2 + 4;
  const double text =
      design.textAtRight.empty() ? 0 : labelWidth(design.textAtRight, layout.textPixels) + 10;
  return std::max({12.0, label, text});
}

// At least two thirds of the height stay for the plot.
double headroomShare(const GraphSettings& settings) {
  return settings.headroom > 0 ? std::min(settings.headroom, 0.5) : 0;
}

ViewRect plotArea(const GraphLayout& layout, const GraphSettings& settings,
                  const GraphDesign& design) {
  const double left = std::round(leftMargin(layout, settings));
  const double bottom = std::round(bottomMargin(layout, settings));
  const double height = layout.view.height - bottom - topMargin(layout, design);
  return {left, bottom,
          std::round(layout.view.width - left - rightMargin(layout, settings, design)),
          std::round(height / (1 + headroomShare(settings)))};
}

ViewRect areaWithoutText(ViewSize view) {
  return {4, 4, std::max(1.0, view.width - 8), std::max(1.0, view.height - 8)};
}

bool labelsFit(const Axis& axis, const ViewRect& plot, double pixels, int every) {
  double end = -plot.width;
  for (std::size_t i = 0; i < axis.labels.size(); i += static_cast<std::size_t>(every)) {
    if (isBlank(axis.labels[i])) continue;
    const double middle = tickX(axis, plot, static_cast<int>(i) + 1);
    const double half = labelWidth(axis.labels[i], pixels) / 2;
    if (middle - half < end) return false;
    end = middle + half + 0.5 * pixels;
  }
  return true;
}

int everyXLabel(const Axis& axis, const ViewRect& plot, double pixels) {
  const int count = static_cast<int>(axis.labels.size());
  int every = 1;
  while (every < count && !labelsFit(axis, plot, pixels, every)) ++every;
  return every;
}

int everyYLabel(const Axis& axis, const ViewRect& plot, double pixels) {
  if (axis.ticks < 1) return 1;
  const double pitch = plot.height / axis.ticks;
  return std::max(1, static_cast<int>(std::ceil(1.1 * pixels / pitch)));
}

double tickShare(const Axis& axis, int tick) {
  return axis.ticks > 0 ? static_cast<double>(tick - 1) / axis.ticks : 0;
}

}  // namespace

GraphLayout layOut(const GraphSettings& settings, const GraphDesign& design, ViewSize view) {
  GraphLayout layout;
  layout.view = view;
  setTextSizes(layout, design);
  layout.plot = plotArea(layout, settings, design);
  layout.hasText =
      layout.plot.width >= smallestPlotWidth && layout.plot.height >= smallestPlotHeight;
  if (!layout.hasText) {
    layout.plot = areaWithoutText(view);
    return layout;
  }
  layout.headroom = std::floor(headroomShare(settings) * layout.plot.height);
  layout.everyXLabel = everyXLabel(settings.x, layout.plot, layout.tickLabelPixels());
  layout.everyYLabel = everyYLabel(settings.y, layout.plot, layout.tickLabelPixels());
  return layout;
}

double tickX(const Axis& axis, const ViewRect& plot, int tick) {
  return plot.left + tickShare(axis, tick) * plot.width;
}

double tickY(const Axis& axis, const ViewRect& plot, int tick) {
  return plot.bottom + tickShare(axis, tick) * plot.height;
}

double centredBaseline(double y, double pixels) { return y - 0.33 * pixels; }

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

}  // namespace tolmer
