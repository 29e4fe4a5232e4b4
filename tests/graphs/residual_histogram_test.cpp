#include "graphs/residual_histogram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "graphs/graph_fixture.h"
#include "graphs/standardized_histogram.h"

namespace tolmer {
namespace {

using test::all;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

// Ten residuals from -4 to 6 in four classes, and a standard error of 3.
class TenResiduals : public test::DisplayFixture {
 protected:
  TenResiduals() {
    test::setResiduals(state, {-4, -3, -2, -1, -1, 0, 1, 2, 2, 6}, 3);
    state.iNumResidClasses = 4;
    state.sResidClassLimit = {0, -4, -1.5F, 1, 3.5F, 6.001F};
    state.iResidClassCount = {0, 3, 3, 3, 1};
    state.iStdResidClassCount = {0, 0, 0, 2, 3, 3, 1, 1, 0};
    state.iStdResidOutside = 0;
    test::setInnerSize(residuals, 480, 280);
    test::setInnerSize(standardized, 480, 280);
  }

  frmResidHist residuals{desktop, state, host};
  frmStdResidHist standardized{desktop, state, host};
  Graph& gphResid = residuals.gphResidHist;
  Graph& gphStd = standardized.gphStdResidHist;
};

// The extremes of ten normal residuals, 1.645 standard errors, are 4.93: the axis must reach from
// there to the largest residual in steps of 2.
TEST_F(TenResiduals, HorizontalAxisHoldsDataAndNormalExtremes) {
  const Axis& x = gphResid.settings.x;
  EXPECT_EQ(x.scaleMode, ScaleMode::userLimits);
  EXPECT_EQ(x.minimum, 0);
  EXPECT_EQ(x.maximum, 14);
  EXPECT_EQ(x.ticks, 7);
  EXPECT_THAT(x.labels, ElementsAre("-6", "-4", "-2", "0", "2", "4", "6", "8"));
  EXPECT_EQ(x.title, "Residual");
}

TEST_F(TenResiduals, VerticalAxisHoldsTheFullestClass) {
  const Axis& y = gphResid.settings.y;
  EXPECT_EQ(y.minimum, 0);
  EXPECT_EQ(y.maximum, 3.5F);
  EXPECT_THAT(y.labels, ElementsAre("0.0", "0.5", "1.0", "1.5", "2.0", "2.5", "3.0", "3.5"));
  EXPECT_EQ(y.title, "Frequency");
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
    const double count = 10 * 2.50025 * std::exp(-value * value / 18) / std::sqrt(2 * M_PI) / 3;
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
  standardized.UpdateDisplay();
  EXPECT_EQ(gphStd.picture().headroom, 0);
}

TEST_F(TenResiduals, AreToldInWords) {
  EXPECT_EQ(gphResid.accessibleName(), "Histogram of Residuals");
  EXPECT_EQ(gphResid.accessibleDescription(),
            "Histogram of 10 residuals in 4 classes from -4 to 6.001, with the normal curve for "
            "standard error 3. The fullest class, -4 to -1.5, holds 3 cases.");
  EXPECT_EQ(gphStd.accessibleDescription(),
            "Histogram of 10 standardized residuals in eight classes one standard error wide, with "
            "the standard normal curve. 9 of them lie within 2 standard errors of zero, 0 beyond "
            "3.");
  state.Fit.bSingular = true;
  residuals.UpdateDisplay();
  EXPECT_THAT(gphResid.accessibleDescription(), HasSubstr("No valid fit. Histogram of 10"));
}

// Pictures of whole analyses, from 3 cases to 500 and from tiny to huge numbers.
class AnalysedHistograms : public test::DisplayFixture,
                           public testing::WithParamInterface<std::tuple<int, float>> {
 protected:
  AnalysedHistograms() {
    const auto [cases, scale] = GetParam();
    state = noisyModel(cases, 1);
    for (int c = 1; c <= cases; ++c) state.sData(c, 2) *= scale;
    test::analyse(state, desktop);
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
  frmResidHist residuals(desktop, state, host);
  frmStdResidHist standardized(desktop, state, host);
  for (GraphDisplay* display : std::initializer_list<GraphDisplay*>{&residuals, &standardized})
    for (const auto& [width, height] : std::vector<std::pair<double, double>>{
             {240, 150}, {480, 280}, {400, 700}, {960, 500}, {1920, 1000}}) {
      test::setInnerSize(*display, width, height);
      SCOPED_TRACE(display->name() + " " + std::to_string(width));
      const Picture& picture = display->GraphPointer->picture();
      EXPECT_THAT(test::texts(picture), Contains("Frequency"));
      EXPECT_GE(test::texts(picture).size(), 7U) << "titles and labels";
      test::expectReadable(picture);
      expectBarsInside(picture, 1);
    }
  EXPECT_THAT(desktop.boxes(), SizeIs(0));
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
      HeadlessDesktop desktop;
      test::RecordingHost host;
      AnalysisState state;
      test::setResiduals(state, {value, value, value}, standardError);
      state.iNumResidClasses = 4;
      state.sResidClassLimit.fill(value);
      frmResidHist residuals(desktop, state, host);
      frmStdResidHist standardized(desktop, state, host);
      for (GraphDisplay* display :
           std::initializer_list<GraphDisplay*>{&residuals, &standardized}) {
        test::setInnerSize(*display, 480, 280);
        EXPECT_THAT(test::texts(display->GraphPointer->picture()), Contains("Frequency"));
        display->CopyGraph();
        EXPECT_THAT(desktop.clipboard().svg, testing::Not(HasSubstr("nan")));
        EXPECT_THAT(desktop.clipboard().svg, testing::Not(HasSubstr("inf")));
      }
    }
}

}  // namespace
}  // namespace tolmer
