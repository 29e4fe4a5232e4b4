#include "platform/graph/label_fit.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "platform/graph/picture.h"
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

}  // namespace

double labelWidth(const std::string& label, double pixels) {
  return textWidth(graphFont(pixels), label);
}

double widestLabel(const AxisMarks& marks, double pixels) {
  double widest = 0;
  for (const AxisMark& mark : marks) widest = std::max(widest, labelWidth(mark.label, pixels));
  return widest;
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

void thinLabelsBeside(AxisMarks& marks, double pixels, double length) {
  thinLabels(marks, length, [pixels](const AxisMark& a, const AxisMark& b) {
    return (labelWidth(a.label, pixels) + labelWidth(b.label, pixels)) / 2 + 0.5 * pixels;
  });
}

void thinLabelsBelow(AxisMarks& marks, double distance, double length) {
  thinLabels(marks, length, [distance](const AxisMark&, const AxisMark&) { return distance; });
}

}  // namespace tolmer
