#include "graphs/residual_plots.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "graphs/axis_labels.h"
#include "graphs/graph_fixture.h"
#include "platform/graph/svg_writer.h"

namespace tolmer {
namespace {

using test::all;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

using GraphMaker = GraphContent (*)(const AnalysisState&, ViewSize, MessagePort&);

// Ten residuals from -4 to 6 in four classes, and a standard error of 3.
class TenResiduals : public test::GraphFixture {
 protected:
  TenResiduals() {
    test::setResiduals(state, {-4, -3, -2, -1, -1, 0, 1, 2, 2, 6}, 3);
    state.iNumResidClasses = 4;
    state.sResidClassLimit = {0, -4, -1.5F, 1, 3.5F, 6.001F};
    state.iResidClassCount = {0, 3, 3, 3, 1};
    state.iStdResidClassCount = {0, 0, 0, 2, 3, 3, 1, 1, 0};
    state.iStdResidOutside = 0;
    draw();
  }
  void draw() {
    residuals = residualHistogram(state, {480, 280}, messages);
    standardized = standardizedHistogram(state, {480, 280}, messages);
  }

  GraphContent residuals;
  GraphContent standardized;
  const Plot& gphResid = residuals.plot;
  const Plot& gphStd = standardized.plot;
};

// The extremes of ten normal residuals, 1.645 standard errors, are 4.93: the axis must reach from
// there to the largest residual in steps of 2.
TEST_F(TenResiduals, AxesHoldDataNormalExtremesAndTheFullestClass) {
  const Axis& x = gphResid.settings.x;
  EXPECT_EQ(x.scaleMode, ScaleMode::userLimits);
  EXPECT_EQ(x.minimum, 0);
  EXPECT_EQ(x.maximum, 14);
  EXPECT_EQ(x.ticks, 7);
  EXPECT_THAT(x.labels, ElementsAre("-6", "-4", "-2", "0", "2", "4", "6", "8"));
  EXPECT_EQ(x.title, "Residual");
  const Axis& y = gphResid.settings.y;
  EXPECT_EQ(y.minimum, 0);
  EXPECT_EQ(y.maximum, 3.5F);
  EXPECT_THAT(y.labels, ElementsAre("0", "", "1", "", "2", "", "3", ""));
  EXPECT_EQ(y.title, "Frequency");
}

TEST(AxisLabels, HaveTheDigitsThatTellThemApart) {
  Axis axis;
  setScaledAxis(axis, {1e9F, 1000, 3}, 0);
  EXPECT_THAT(axis.labels, ElementsAre("1000000000", "1000001000", "1000002000", "1000003000"));
  setScaledAxis(axis, {1e20F, 2e14F, 2}, 0);
  EXPECT_THAT(axis.labels, testing::Each(testing::HasSubstr("E+20")));
  EXPECT_NE(axis.labels[0], axis.labels[1]);
  EXPECT_THAT(scaleTexts({0, 0}), ElementsAre("0", "0"));
}

TEST_F(TenResiduals, BarsStandBetweenTheShiftedLimits) {
  const ViewRect& plot = gphResid.picture().plot;
  const auto boxes = all<BoxCall>(gphResid.overlay());
  ASSERT_THAT(boxes, SizeIs(4));
  const auto at = [&](double value) { return plot.left + (value + 6) / 14 * plot.width; };
  EXPECT_NEAR(boxes[0].x, at(-4) + 1, 0.01);
  EXPECT_NEAR(boxes[3].x + boxes[3].width, at(6.001) - 1, 0.01);
  EXPECT_NEAR(boxes[3].height, plot.height / 3.5, 0.01);
  EXPECT_THAT(gphResid.settings.points, SizeIs(2));
  EXPECT_EQ(gphResid.settings.points[0].x, -28) << "far off the scale";
}

// By the normal density exp(-z^2 / 2) / sqrt(2 pi) / 3 times 10 cases times class width 2.50025.
TEST_F(TenResiduals, CurveIsTheExpectedCountOfAClass) {
  const ViewRect& plot = gphResid.picture().plot;
  const auto curve = all<LineCall>(gphResid.overlay());
  ASSERT_THAT(curve, SizeIs(100));
  const double z = 2.32635;  // of 0.1 / 10
  for (std::size_t i = 0; i < curve.size(); ++i) {
    const double value = -3 * z + static_cast<double>(i + 1) * 6 * z / 99;
    const double count =
        10 * 2.50025 * std::exp(-value * value / 18) / std::sqrt(2 * std::numbers::pi) / 3;
    EXPECT_NEAR(curve[i].x2, plot.left + (value + 6) / 14 * plot.width, 0.001);
    EXPECT_NEAR(curve[i].y2, plot.bottom + count / 3.5 * plot.height, 0.001);
    EXPECT_EQ(curve[i].mode, 5);
    EXPECT_EQ(curve[i].style, 2);
    EXPECT_EQ(curve[i].colour, 12);
  }
}

TEST_F(TenResiduals, StandardizedClassesAreFixed) {
  const Axis& x = gphStd.settings.x;
  EXPECT_EQ(x.minimum, 0);
  EXPECT_EQ(x.maximum, 8);
  EXPECT_EQ(x.labelFormat, "0");
  EXPECT_THAT(x.labels, ElementsAre("-4", "-3", "-2", "-1", "0", "1", "2", "3", "4"));
  EXPECT_EQ(x.title, "Standardized Residual");

  const ViewRect& plot = gphStd.picture().plot;
  const auto boxes = all<BoxCall>(gphStd.overlay());
  ASSERT_THAT(boxes, SizeIs(5));
  EXPECT_NEAR(boxes[0].x, plot.left + plot.width / 4 + 1, 0.01);
  EXPECT_NEAR(boxes[4].x + boxes[4].width, plot.left + plot.width * 7 / 8 - 1, 0.01);

  const auto curve = all<LineCall>(gphStd.overlay());
  ASSERT_THAT(curve, SizeIs(100));
  EXPECT_NEAR(curve.front().x1, plot.left + plot.width / 8, 0.001);
  EXPECT_NEAR(curve.back().x2, plot.left + (7 + 6.0 / 99) / 8 * plot.width, 0.001);
}

// The curve's peak is 3.99 cases, the top of the axis 3.5.
TEST_F(TenResiduals, ACurveHigherThanTheAxesIsSeenWhole) {
  const Picture& picture = gphStd.picture();
  double top = 0;
  for (const LinePrimitive& line : all<LinePrimitive>(picture))
    if (line.points.size() > 50)
      for (const ViewPoint& point : line.points) top = std::max(top, point.y);
  EXPECT_GT(top, picture.plot.top());
  EXPECT_LT(top, picture.size.height - 5);
  state.iStdResidClassCount = {0, 0, 0, 0, 5, 5, 0, 0, 0};
  draw();
  EXPECT_EQ(gphStd.picture().headroom, 0);
}

TEST_F(TenResiduals, AreToldInWords) {
  EXPECT_EQ(residuals.description,
            "Histogram of 10 residuals in 4 classes from -4 to 6.001, with the normal curve for "
            "standard error 3. The fullest class, -4 to -1.5, holds 3 cases.");
  EXPECT_EQ(standardized.description,
            "Histogram of 10 standardized residuals in eight classes one standard error wide, with "
            "the standard normal curve. 9 of them lie within 2 standard errors of zero, 0 beyond "
            "3.");
}

// Every class has its bar, its cases and, unless it is empty, its place among the drawn boxes.
TEST_F(TenResiduals, BarsKnowTheirCases) {
  state = cementModel();
  Analyse(state, messages);
  draw();
  for (const GraphContent* content : {&residuals, &standardized}) {
    std::vector<BoxCall> boxes = all<BoxCall>(content->plot.overlay());
    std::size_t cases = 0;
    std::size_t drawn = 0;
    for (const PlottedBar& bar : content->bars) {
      EXPECT_EQ(bar.length, static_cast<double>(bar.cases.size())) << bar.label;
      cases += bar.cases.size();
      if (bar.cases.empty()) continue;
      ASSERT_LT(drawn, boxes.size());
      EXPECT_EQ(bar.place.left, boxes[drawn].x);
      EXPECT_EQ(bar.place.height, boxes[drawn].height);
      ++drawn;
    }
    EXPECT_EQ(cases, 13U);
    EXPECT_EQ(drawn, boxes.size());
  }
  EXPECT_EQ(standardized.bars.size(), 8U);
  EXPECT_EQ(standardized.bars[0].label + " " + standardized.bars[0].upperLimit, "-4 -3");
  EXPECT_THAT(residuals.bars.back().cases, Contains(6)) << "the largest residual, 3.925";
}

// Pictures of whole analyses, from 3 cases to 500 and from tiny to huge numbers.
class AnalysedHistograms : public test::GraphFixture,
                           public testing::WithParamInterface<std::tuple<int, float>> {
 protected:
  AnalysedHistograms() {
    const auto [cases, scale] = GetParam();
    state = noisyModel(cases, 1);
    for (int c = 1; c <= cases; ++c) state.sData(c, 2) *= scale;
    Analyse(state, messages);
  }
};

void expectBarsInside(const Picture& picture, std::size_t fewest) {
  const ViewRect& plot = picture.plot;
  const auto boxes = all<BoxPrimitive>(picture);
  EXPECT_GE(boxes.size(), fewest);
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    EXPECT_GE(boxes[i].place.left, plot.left);
    EXPECT_LE(boxes[i].place.right(), plot.right());
    EXPECT_LE(boxes[i].place.top(), plot.top());
    if (i == 0) continue;
    EXPECT_GT(boxes[i].place.left, boxes[i - 1].place.right());
  }
}

TEST_P(AnalysedHistograms, AreReadableAtEverySize) {
  for (const GraphMaker make : {residualHistogram, standardizedHistogram})
    for (const ViewSize size :
         {ViewSize{240, 150}, {480, 280}, {400, 700}, {960, 500}, {1920, 1000}}) {
      SCOPED_TRACE(size.width);
      const Picture picture = make(state, size, messages).plot.picture();
      EXPECT_THAT(test::texts(picture), Contains("Frequency"));
      EXPECT_GE(test::texts(picture).size(), 7U) << "titles and labels";
      test::expectReadable(picture);
      expectBarsInside(picture, 1);
    }
  EXPECT_THAT(messages.boxes(), SizeIs(0));
}

INSTANTIATE_TEST_SUITE_P(CasesAndScale, AnalysedHistograms,
                         testing::Combine(testing::Values(4, 20, 100, 500),
                                          testing::Values(1e-12F, 1.0F, 1e12F)));

// Numbers that leave nothing to draw must not stop the program.
TEST(DegenerateResiduals, DrawWhatCanBeDrawn) {
  constexpr float nan = std::numeric_limits<float>::quiet_NaN();
  constexpr float infinity = std::numeric_limits<float>::infinity();
  for (const float value : {0.0F, 5.0F, -1e30F, 1e-42F, 3e38F, nan, infinity})
    for (const float standardError : {0.0F, 1.0F, 1e30F, 3e38F, nan}) {
      SCOPED_TRACE(std::to_string(value) + " " + std::to_string(standardError));
      MessageLog messages;
      AnalysisState state;
      test::setResiduals(state, {value, value, value}, standardError);
      state.iNumResidClasses = 4;
      state.sResidClassLimit.fill(value);
      for (const GraphMaker make : {residualHistogram, standardizedHistogram}) {
        const GraphContent content = make(state, {480, 280}, messages);
        EXPECT_THAT(test::texts(content.plot.picture()), Contains("Frequency"));
        const std::string svg = writeSvg(content.plot.picture(), "", content.description);
        EXPECT_THAT(svg, testing::Not(HasSubstr("\"nan")));
        EXPECT_THAT(svg, testing::Not(HasSubstr("\"inf")));
      }
    }
}

class NormalityPlot : public test::GraphFixture {
 protected:
  void draw(const std::vector<float>& sorted, float standardError) {
    test::setResiduals(state, sorted, standardError);
    content = normalityPlot(state, {480, 280}, messages);
  }

  GraphContent content;
  const Plot& graph = content.plot;
};

// R: 2 * qnorm((1:5 - .5) / 5). The expected extremes, 2.56, reach farther down than the residuals,
// the largest residual farther up.
TEST_F(NormalityPlot, SetsResidualsAgainstNormalQuantilesOnTwoEqualAxes) {
  draw({-2, -1, 0.5F, 1, 5}, 2);
  const std::vector<double> expected = {-2.5631031, -1.0488010, 0, 1.0488010, 2.5631031};
  ASSERT_THAT(graph.settings.points, SizeIs(5));
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(graph.settings.points[i].x, state.sSortedResid[i + 1] + 3);
    EXPECT_NEAR(graph.settings.points[i].value, expected[i] + 3, 2e-6);
  }
  EXPECT_EQ(graph.settings.points[2].value, 3) << "the middle case is expected at zero, exactly";
  for (const Axis* axis : {&graph.settings.x, &graph.settings.y}) {
    EXPECT_EQ(axis->scaleMode, ScaleMode::userLimits);
    EXPECT_EQ(axis->minimum, 0);
    EXPECT_EQ(axis->maximum, 9);
    EXPECT_THAT(axis->labels, ElementsAre("-3", "-2", "-1", "0", "1", "2", "3", "4", "5", "6"));
  }
  EXPECT_EQ(graph.settings.x.title, "Observed");
  EXPECT_EQ(graph.settings.y.title, "Expected");
  EXPECT_EQ(graph.settings.pointSymbol, 12);
  EXPECT_EQ(graph.settings.pointColour, 9);

  const ViewRect& area = graph.picture().plot;
  const auto lines = all<LineCall>(graph.overlay());
  ASSERT_THAT(lines, SizeIs(1));
  EXPECT_EQ((ViewPoint{lines[0].x1, lines[0].y1}), (ViewPoint{area.left, area.bottom}));
  EXPECT_EQ((ViewPoint{lines[0].x2, lines[0].y2}), (ViewPoint{area.right(), area.top()}));
  EXPECT_THAT((std::vector{lines[0].mode, lines[0].style, lines[0].colour}), ElementsAre(1, 0, 12));
}

TEST_F(NormalityPlot, DegenerateSamples) {
  draw({0.5F}, 2);
  ASSERT_THAT(graph.settings.points, SizeIs(1));
  EXPECT_EQ(graph.settings.points[0].value, 0) << "one case: zero";
  draw({-2, 1, 1}, 0);
  for (const GraphPoint& point : graph.settings.points) EXPECT_EQ(point.value, 2) << "s is zero";
}

// R: the residuals of lm(Y ~ X1 + X2 + X3 + X4), sorted, and s * qnorm((1:13 - .5) / 13).
TEST_F(NormalityPlot, IsToldInWords) {
  state = cementModel();
  Analyse(state, messages);
  content = normalityPlot(state, {480, 280}, messages);
  EXPECT_EQ(content.description,
            "Normality plot of 13 residuals, observed from -3.175 to 3.925 against the values "
            "expected of a normal sample; correlation of the points 0.9851. The point farthest "
            "from the diagonal is residual 1 in rising order: observed -3.175, expected -4.327.");
  EXPECT_THAT(all<SymbolPrimitive>(graph.picture()), SizeIs(13));
  for (std::size_t i = 0; i < 13; ++i)
    EXPECT_EQ(state.Fit.sResid[graph.settings.points[i].iCase], state.sSortedResid[i + 1]);
  EXPECT_EQ(graph.settings.points[0].iCase, 8);
}

}  // namespace
}  // namespace tolmer
