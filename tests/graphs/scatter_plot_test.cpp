#include "graphs/scatter_plot.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "graphs/graph_fixture.h"
#include "platform/graph/svg_writer.h"

namespace tolmer {
namespace {

using test::all;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

// Scatter plot 1 of a model with K predictors, whose choices K + 1 and K + 2 are the fitted values
// and the residuals or the order of entry.
class ScatterPlot : public test::GraphFixture {
 protected:
  void use(AnalysisState model) {
    state = std::move(model);
    Analyse(state, messages);
  }
  void draw(int xChoice, int yChoice) {
    state.iPlotXVar[1] = static_cast<Int16>(xChoice);
    state.iPlotYVar[1] = static_cast<Int16>(yChoice);
    content = scatterPlot(state, 1, {480, 280}, messages);
  }
  // Residuals and a standard error in place of those of the fit.
  void setResiduals(std::vector<float> values, float standardError) {
    values.insert(values.begin(), 0);
    state.Fit.sResid = values;
    std::sort(values.begin() + 1, values.end());
    state.sSortedResid = values;
    state.Fit.sStdErr = standardError;
  }
  std::string captionText() const {
    for (const TextCall& text : all<TextCall>(graph.overlay()))
      if (text.text.find('=') != std::string::npos) return text.text;
    return {};
  }

  GraphContent content;
  Plot& graph = content.plot;
  const GraphSettings& settings = graph.settings;
};

// Columns: a predictor below zero, one of two values, the dependent variable.
AnalysisState sixCases() {
  return modelOf({{-5, 0, 10}, {-4, 1, 14}, {-1, 0, 13}, {0, 1, 11}, {2, 1, 17}, {3, 0, 19.5F}});
}
constexpr int dependent = 0;
constexpr int negative = 1;
constexpr int binary = 2;
constexpr int fitted = 3;
constexpr int residuals = 4;
constexpr int entryOrder = 4;

TEST_F(ScatterPlot, ShiftsBothAxesAndEveryPoint) {
  use(sixCases());
  draw(dependent, negative);
  EXPECT_EQ(settings.graphType, GraphType::symbols);
  EXPECT_EQ(settings.x.title, "Y");
  EXPECT_EQ(settings.y.title, "X1");
  EXPECT_THAT(settings.x.labels,
              ElementsAre("10", "11", "12", "13", "14", "15", "16", "17", "18", "19", "20"));
  EXPECT_THAT(settings.y.labels,
              ElementsAre("-5", "-4", "-3", "-2", "-1", "0", "1", "2", "3", "4"));
  EXPECT_EQ(settings.x.minimum, 10);
  EXPECT_EQ(settings.x.maximum, 20);
  EXPECT_EQ(settings.y.minimum, 0);
  EXPECT_EQ(settings.y.maximum, 9);
  EXPECT_EQ(settings.points[0].x, 10);
  EXPECT_EQ(settings.points[0].value, 0);
  EXPECT_EQ(settings.points[5].x, 19.5F);
  EXPECT_EQ(settings.points[5].value, 8);
  EXPECT_EQ(settings.points[5].iCase, 6);
  EXPECT_EQ(settings.pointSymbol, 12);
  EXPECT_EQ(settings.pointColour, 9);
  EXPECT_THAT(graph.overlay(), IsEmpty());

  draw(negative, fitted);
  EXPECT_EQ(settings.x.minimum, 0);
  EXPECT_EQ(settings.points[1].x, 1);
  EXPECT_EQ(settings.y.title, "Fitted Y");
  EXPECT_EQ(settings.points[1].value, state.Fit.sFitted[2]);
  EXPECT_LE(settings.y.minimum, *std::min_element(&state.Fit.sFitted[1], &state.Fit.sFitted[7]));
  state.Fit.sFitted[6] = 100;  // the last case reaches farthest
  draw(negative, fitted);
  EXPECT_GE(settings.y.maximum, 100);
  for (std::size_t i = 1; i <= 6; ++i) state.Fit.sFitted[i] += 3e7F;
  draw(negative, fitted);
  EXPECT_GE(settings.y.minimum, 2.9e7F) << "the axis holds the fitted values, not a start value";
}

TEST_F(ScatterPlot, NamesTheTwoValuesOfABinaryVariable) {
  use(sixCases());
  draw(binary, binary);
  EXPECT_THAT(settings.x.labels, ElementsAre(" ", "0", " ", "1", " "));
  EXPECT_EQ(settings.x.minimum, 0);
  EXPECT_EQ(settings.x.maximum, 2);
  EXPECT_EQ(settings.x.labelFormat, "0");
  EXPECT_EQ(settings.points[0].x, 0.5F);
  EXPECT_EQ(settings.points[1].x, 1.5F);
  EXPECT_THAT(settings.y.labels, ElementsAre("0.0", "0.2", "0.4", "0.6", "0.8", "1.0", "1.2"))
      << "an ordinary axis";
}

TEST_F(ScatterPlot, BandsStandAtThreeStandardErrors) {
  use(sixCases());
  setResiduals({-2, 1, 0.5F, -1, 2, -0.5F}, 0.9F);
  state.bShowRegressionLine = true;
  draw(fitted, residuals);
  EXPECT_THAT(settings.y.labels, ElementsAre("-3", "-2", "-1", "0", "1", "2", "3"));
  EXPECT_EQ(settings.y.title, "Residuals");
  EXPECT_EQ(settings.x.title, "Fitted Y");
  EXPECT_EQ(settings.points[0].value, 1);
  EXPECT_EQ(settings.lineStatistics, 0) << "no line through residuals";
  const ViewRect& area = graph.picture().plot;
  const auto lines = all<LineCall>(graph.overlay());
  const auto texts = all<TextCall>(graph.overlay());
  ASSERT_THAT(lines, SizeIs(3));
  ASSERT_THAT(texts, SizeIs(2));
  const double y[] = {3.0 / 6, 5.7 / 6, 0.3 / 6};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(lines[i].x1, area.left);
    EXPECT_EQ(lines[i].x2, area.right());
    EXPECT_NEAR(lines[i].y1, area.bottom + y[i] * area.height, 1e-4);
    EXPECT_EQ(lines[i].y2, lines[i].y1);
    EXPECT_THAT((std::vector{lines[i].mode, lines[i].style, lines[i].colour}),
                ElementsAre(1, 2, i == 0 ? 0 : 12));
  }
  EXPECT_EQ(texts[0].text, "+3SE");
  EXPECT_EQ(texts[1].text, "-3SE");
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_EQ(texts[i].x, area.right());
    EXPECT_EQ(texts[i].y, lines[i + 1].y1);
    EXPECT_EQ(texts[i].flags, 0x100);
  }

  // The lower band lies on the frame: its line is seen beside it.
  setResiduals({-2, 1, 0.5F, -1, 2, -0.5F}, 1);
  draw(binary, residuals);
  EXPECT_EQ(settings.y.maximum, 7);
  ASSERT_THAT(all<LineCall>(graph.overlay()), SizeIs(3));
  EXPECT_EQ(all<LineCall>(graph.overlay())[2].y1, graph.picture().plot.bottom + 1);
  ASSERT_THAT(all<TextCall>(graph.overlay()), SizeIs(2));
  EXPECT_EQ(all<TextCall>(graph.overlay())[1].y, graph.picture().plot.bottom);
}

// Between two scatter plots, of which nothing is left in it, nor anything of it in them.
TEST_F(ScatterPlot, OrderOfEntryHasItsOwnScaleAndNoBands) {
  use(sixCases());
  state.bShowRegressionLine = true;
  draw(negative, dependent);
  EXPECT_EQ(settings.lineStatistics, 8);
  setResiduals({-2, 1, 0.5F, -1, 2, -0.5F}, 0.9F);
  draw(entryOrder, residuals);
  EXPECT_EQ(settings.graphType, GraphType::lineWithSymbols);
  EXPECT_EQ(settings.x.title, "Order of Entry");
  EXPECT_EQ(settings.y.title, "Residuals");
  EXPECT_EQ(settings.x.scaleMode, ScaleMode::automatic);
  EXPECT_EQ(settings.y.scaleMode, ScaleMode::automatic);
  EXPECT_EQ(settings.y.minimum, -2);
  EXPECT_EQ(settings.y.maximum, 2.5F) << "without room for the bands, 2.7";
  EXPECT_EQ(settings.pointSymbol, 13);
  EXPECT_EQ(settings.pointColour, 9);
  EXPECT_THAT(settings.pointLabels, ElementsAre("1", "2", "3", "4", "5", "6"));
  for (std::size_t i = 0; i < 6; ++i)
    EXPECT_EQ(settings.points[i].value, state.Fit.sResid[i + 1]) << "not shifted";
  EXPECT_THAT(graph.overlay(), IsEmpty());
  EXPECT_EQ(settings.lineStatistics, 0);
  EXPECT_THAT(settings.x.labels, IsEmpty());
  EXPECT_THAT(settings.y.labels, IsEmpty());
  draw(binary, dependent);
  EXPECT_THAT(settings.pointLabels, IsEmpty());
}

// R on the 13 cements: cor(), and the lag-one sum of products over the sum of squares, of the
// residuals about zero.
TEST_F(ScatterPlot, CaptionsTellTheNumberOfTheirPair) {
  use(cementModel());
  draw(1, 3);
  EXPECT_EQ(captionText(), "") << "not asked for";
  state.bShowCorrelation = true;
  const std::vector<std::tuple<int, int, std::string>> captions = {
      {1, 3, "Correlation = -0.8241"},    {3, 3, "Correlation = 1.0000"},
      {2, 5, "Correlation = 0.8235"},     {5, 0, "Correlation = 0.9911"},
      {0, 6, "Correlation = 0.1328"},     {5, 6, "Correlation = 0.0000"},
      {1, 6, "Correlation = 0.0000"},     {6, 6, "Autocorrelation = -0.081"},
      {6, 5, "Autocorrelation = -0.089"}, {6, 0, "Autocorrelation = -0.057"},
      {6, 2, "Autocorrelation = -0.008"},
  };
  for (const auto& [x, y, text] : captions) {
    draw(x, y);
    EXPECT_EQ(captionText(), text) << x << ", " << y;
    EXPECT_THAT(test::texts(graph.picture()), testing::Contains(text)) << "there is room for it";
  }
  draw(1, 3);
  const TextCall caption = all<TextCall>(graph.overlay()).at(0);
  const double sample = graph.GSUseView().GSGetRTextWid("Correlation = 0.3333");
  const ViewRect& area = graph.picture().plot;
  EXPECT_NEAR(caption.x, area.left + (area.width - sample) / 2, 1e-9);
  EXPECT_EQ(caption.y, graph.picture().size.height - 10);
  EXPECT_EQ(caption.flags, 0x110);
  EXPECT_EQ(plotCorrelation(state, 6, 2), std::nullopt);

  // Without an intercept the residuals do correlate with the fit, -0.0193; the rule stands.
  use(cementModel(false));
  state.bShowCorrelation = true;
  draw(5, 6);
  EXPECT_EQ(captionText(), "Correlation = 0.0000");
  draw(6, 6);
  EXPECT_EQ(captionText(), "Autocorrelation = -0.196");
}

TEST_F(ScatterPlot, WhatDoesNotVaryHasNoCorrelation) {
  use(sixCases());
  state.bShowCorrelation = true;
  setResiduals({0, 0, 0, 0, 0, 0}, 0);
  for (const auto& [x, text] :
       {std::pair{dependent, "Correlation = NA"}, std::pair{entryOrder, "Autocorrelation = NA"}}) {
    draw(x, residuals);
    EXPECT_EQ(captionText(), text);
  }
}

// The limits are the rules' own: 30 and 31 cases differ, and so on.
TEST_F(ScatterPlot, SymbolsAndLabelsFollowTheNumberOfCases) {
  const std::vector<std::tuple<int, int, int>> rules = {
      {9, 125, 1},   {10, 125, 2},  {19, 125, 2},  {20, 125, 4},  {30, 125, 4},  {31, 100, 4},
      {39, 100, 4},  {40, 100, 5},  {75, 100, 5},  {76, 75, 5},   {79, 75, 5},   {80, 75, 10},
      {150, 75, 10}, {151, 50, 10}, {159, 50, 10}, {160, 50, 20}, {299, 50, 20}, {300, 50, 40}};
  for (const auto& [cases, size, every] : rules) {
    use(noisyModel(cases, 1));
    draw(1, 0);
    EXPECT_EQ(settings.symbolSize, size) << cases;
    draw(3, 0);
    EXPECT_EQ(settings.symbolSize, size) << cases;
    EXPECT_EQ(settings.labelEvery, every) << cases;
    EXPECT_EQ(settings.tickEvery, every) << cases;
  }
}

TEST_F(ScatterPlot, IsToldInWords) {
  use(cementModel());
  state.bShowRegressionLine = true;
  const std::vector<std::tuple<int, int, std::string>> told = {
      {1, 3,
       "Scatter plot of X3 against X1, 13 cases, with the least-squares line. The correlation is "
       "-0.8241: higher X1 goes with lower X3."},
      {5, 6,
       "Scatter plot of 13 residuals against Fitted Y, with a zero line and bands at plus and "
       "minus 3 standard errors (7.338); 0 lie outside the bands. The largest in size is 3.925, "
       "case 6."},
      {6, 6,
       "Line of the residuals of 13 cases in order of entry, between -3.175 (case 8) and 3.925 "
       "(case 6). The sign changes 5 times; the autocorrelation is -0.081."},
      {6, 0,
       "Line of Y of 13 cases in order of entry, between 72.5 (case 8) and 115.9 (case 10). It "
       "crosses its mean 7 times; the autocorrelation is -0.057."}};
  for (const auto& [x, y, text] : told) {
    draw(x, y);
    EXPECT_EQ(content.description, text);
  }
}

// Every pair of axes at every size of window: nothing is cut, covered or lost.
class AllPairs : public test::GraphFixture,
                 public testing::WithParamInterface<std::tuple<bool, float>> {};

TEST_P(AllPairs, AreReadable) {
  const auto [intercept, scale] = GetParam();
  state = noisyModel(60, 3, intercept);
  for (int c = 1; c <= state.iNumCases; ++c) {
    state.sData(c, 1) = static_cast<float>(c % 3 == 0);
    state.sData(c, 4) *= scale;
  }
  state.bShowRegressionLine = true;
  state.bShowCorrelation = true;
  Analyse(state, messages);
  for (Int16 x = 0; x <= 5; ++x)
    for (Int16 y = 0; y <= 5; ++y) {
      state.iPlotXVar[1] = x;
      state.iPlotYVar[1] = y;
      for (const ViewSize size :
           {ViewSize{30, 20}, {240, 150}, {480, 280}, {960, 500}, {1920, 1000}}) {
        SCOPED_TRACE(std::to_string(x) + ", " + std::to_string(y) + " in " +
                     std::to_string(size.width));
        const GraphContent content = scatterPlot(state, 1, size, messages);
        const Picture& picture = content.plot.picture();
        test::expectReadable(picture);
        EXPECT_THAT(all<SymbolPrimitive>(picture), SizeIs(60));
        EXPECT_THAT(writeSvg(picture, "", ""), testing::Not(HasSubstr("nan")));
        if (size.width < 480) continue;
        EXPECT_THAT(test::texts(picture), testing::IsSupersetOf({content.plot.settings.x.title,
                                                                 content.plot.settings.y.title}));
        EXPECT_THAT(test::texts(picture), testing::Contains(HasSubstr("orrelation = ")));
      }
    }
  EXPECT_THAT(messages.boxes(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(InterceptAndScale, AllPairs,
                         testing::Combine(testing::Bool(), testing::Values(1e-9F, 1.0F, 1e9F)));

}  // namespace
}  // namespace tolmer
