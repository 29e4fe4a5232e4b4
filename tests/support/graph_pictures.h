// What the tests of graphs look for in pictures.
#pragma once

#include <string>
#include <vector>

#include "platform/graph/plot.h"

namespace tolmer::test {

template <class Kind>
std::vector<Kind> all(const Picture& picture) {
  std::vector<Kind> found;
  for (const Primitive& primitive : picture.primitives)
    if (const auto* one = std::get_if<Kind>(&primitive)) found.push_back(*one);
  return found;
}

template <class Kind>
std::vector<Kind> all(const std::vector<OverlayCall>& calls) {
  std::vector<Kind> found;
  for (const OverlayCall& call : calls)
    if (const auto* one = std::get_if<Kind>(&call)) found.push_back(*one);
  return found;
}

inline std::vector<std::string> texts(const Picture& picture) {
  std::vector<std::string> found;
  for (const TextPrimitive& text : all<TextPrimitive>(picture)) found.push_back(text.text);
  return found;
}

// A plot of that size in pixels with numeric axes 0 .. 100 in five steps.
class SampleGraph : public Plot {
 public:
  SampleGraph(double width, double height, GraphDesign design = {})
      : Plot({width, height}, std::move(design)) {
    for (Axis* axis : {&settings.x, &settings.y}) {
      axis->scaleMode = ScaleMode::userLimits;
      axis->maximum = 100;
      label(*axis, {"0", "20", "40", "60", "80", "100"});
    }
    settings.x.title = "Residual";
    settings.y.title = "Frequency";
  }
  static void label(Axis& axis, std::vector<std::string> labels) {
    axis.ticks = static_cast<int>(labels.size()) - 1;
    axis.labels = std::move(labels);
  }
};

}  // namespace tolmer::test
