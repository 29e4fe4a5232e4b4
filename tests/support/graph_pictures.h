// What the tests of graphs look for in pictures.
#pragma once

#include <gtest/gtest.h>

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

// Every text stands inside the picture, on no other one and not on the plot.
inline void expectReadable(const Picture& picture, bool alsoOffThePlot = false) {
  const auto areApart = [](const ViewRect& a, const ViewRect& b) {
    return a.right() <= b.left || b.right() <= a.left || a.top() <= b.bottom || b.top() <= a.bottom;
  };
  const auto texts = all<TextPrimitive>(picture);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const ViewRect a = textBounds(texts[i]);
    EXPECT_TRUE(a.left >= 0 && a.bottom >= 0 && a.right() <= picture.size.width &&
                a.top() <= picture.size.height)
        << texts[i].text;
    EXPECT_TRUE(!alsoOffThePlot || areApart(a, picture.plot)) << texts[i].text << " on the plot";
    for (std::size_t j = 0; j < i; ++j)
      EXPECT_TRUE(areApart(a, textBounds(texts[j]))) << texts[i].text << " on " << texts[j].text;
  }
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
