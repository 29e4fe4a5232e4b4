#include "graphs/vif_chart.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "graphs/graph_fixture.h"

namespace tolmer {
namespace {

using test::all;
using testing::ElementsAre;
using testing::SizeIs;

class VifChart : public test::GraphFixture {
 protected:
  // The display of a fit with those variance inflation factors.
  void draw(const std::vector<float>& vifs) {
    state = noisyModel(100, static_cast<int>(vifs.size()));
    Analyse(state, messages);
    std::copy(vifs.begin(), vifs.end(), state.sVIF.begin() + 1);
    state.tVarName[2] = "Außentemperatur";
    content = vifChart(state, {480, 280}, messages);
  }
  std::vector<float> bars() const {
    std::vector<float> lengths;
    for (const GraphPoint& point : graph.settings.points) lengths.push_back(point.value);
    return lengths;
  }

  GraphContent content;
  Plot& graph = content.plot;
};

TEST_F(VifChart, BarsAreLogarithmsWithinTheirLimits) {
  draw({1, 0.999F, 10, 1000, 3000, 5000});
  EXPECT_THAT(bars(), ElementsAre(0, 0, 1, 3, testing::FloatEq(3.4771213F), 3.5F));
  EXPECT_THAT(graph.settings.pointLabels, ElementsAre("X1", "Außentempe", "X3", "X4", "X5", "X6"));
  EXPECT_EQ(content.tip, "Außentemperatur");
  EXPECT_EQ(graph.settings.graphType, GraphType::horizontalBars);
  EXPECT_EQ(graph.settings.y.scaleMode, ScaleMode::userLimits);
  EXPECT_EQ(graph.settings.y.minimum, 0);
  EXPECT_EQ(graph.settings.y.maximum, 3);
  EXPECT_EQ(graph.settings.pointColour, 9);
  draw({7});
  EXPECT_THAT(bars(), ElementsAre(0)) << "one predictor is collinear with nothing";
  EXPECT_EQ(all<TextCall>(graph.overlay()).back().text,
            "X1 is the only predictor: it overlaps with no other.");
}

TEST_F(VifChart, ReferenceLinesStandAtTheirLogarithms) {
  draw({1, 10, 100});
  const ViewRect& area = graph.picture().plot;
  const auto at = [&](double q) { return area.left + std::log10(q) / 3 * area.width; };
  const std::vector<int> values = {1, 2, 5, 10, 20, 50, 100, 200, 500, 1000};
  const auto lines = all<LineCall>(graph.overlay());
  ASSERT_THAT(lines, SizeIs(10)) << "none at 1, and 10 once more";
  EXPECT_EQ(lines[9].colour, 12);
  EXPECT_EQ(lines[9].x1, lines[2].x1);
  const auto texts = all<TextCall>(graph.overlay());
  ASSERT_THAT(texts, SizeIs(11));
  for (std::size_t i = 0; i < values.size(); ++i) {
    EXPECT_EQ(texts[i].text, std::to_string(values[i]));
    EXPECT_NEAR(texts[i].x, at(values[i]), 1e-9);
    EXPECT_EQ(texts[i].y, area.bottom - 8);
    EXPECT_EQ(texts[i].flags, 0x112);
    if (i == 0) continue;
    const LineCall& line = lines[i - 1];
    EXPECT_NEAR(line.x1, at(values[i]), 1e-9);
    EXPECT_EQ(line.x2, line.x1);
    EXPECT_EQ(line.y1, area.top());
    EXPECT_EQ(line.y2, area.bottom);
    EXPECT_THAT((std::vector{line.mode, line.style, line.colour}), ElementsAre(1, 2, 7));
  }
  const TextCall& caption = texts[10];
  EXPECT_EQ(caption.text, "Variance Inflation Factor (log 10)");
  const double width = graph.GSUseView().GSGetRTextWid(caption.text);
  EXPECT_NEAR(caption.x + width / 2, area.left + area.width / 2, 1e-9);
  EXPECT_EQ(caption.y, 10);
  EXPECT_EQ(caption.flags, 0x100);
}

// R: 1 / (1 - R squared) of each predictor on the others.
TEST_F(VifChart, IsToldInWords) {
  state = cementModel();
  Analyse(state, messages);
  EXPECT_EQ(vifChart(state, {480, 280}, messages).description,
            "Bar chart of the variance inflation factors of 4 predictors on a logarithmic scale "
            "from 1 to 1000. The largest is 282.5 for X4; 4 of 4 exceed 10. X1 38.5, X2 254.4, "
            "X3 46.87, X4 282.5.");
  draw({7});
  EXPECT_EQ(content.description,
            "Bar chart of variance inflation factors without a bar: X1 is the only predictor.");
}

}  // namespace
}  // namespace tolmer
