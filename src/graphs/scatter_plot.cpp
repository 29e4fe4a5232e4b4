#include "graphs/scatter_plot.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

#include "engine/axis_scale.h"
#include "engine/correlation.h"
#include "engine/number_format.h"
#include "graphs/axis_labels.h"

namespace tolmer {
namespace {

// What a series in order of entry is seen to swing about: the mean of a variable or of the fitted
// values, and zero for the residuals.
double centreOf(const AnalysisState& state, int iYChoice) {
  if (isResiduals(state, iYChoice)) return 0;
  if (!isFitted(state, iYChoice)) return state.dDescStat(1, iYChoice + 1);
  double sum = 0;
  for (int t = 1; t <= state.iNumCases; ++t) sum += state.Fit.sFitted[t];
  return sum / state.iNumCases;
}

// Lag-one autocorrelation about that centre, in order of entry; NaN where no value departs from it.
float plotAutocorrelation(const AnalysisState& state, int iYChoice) {
  const std::vector<float> values = chosenValues(state, iYChoice);
  const double centre = centreOf(state, iYChoice);
  double products = 0;
  double squares = 0;
  double before = 0;
  for (int t = 1; t <= state.iNumCases; ++t) {
    const double deviation = values[t] - centre;
    products += deviation * before;
    squares += deviation * deviation;
    before = deviation;
  }
  if (squares == 0) return std::numeric_limits<float>::quiet_NaN();
  return static_cast<float>(products / squares);
}

std::string cases(const AnalysisState& state) { return spokenCount(state.iNumCases, "case"); }

std::string correlationSentence(const std::string& x, const std::string& y, float r) {
  if (std::isnan(r)) return "There is no correlation, since one of them does not vary.";
  const std::string number = formatNumber(r, "0.0000");
  std::string text = "The correlation is " + number;
  if (x != y && number != "0.0000")
    text += ": higher " + x + " goes with " + (r > 0 ? "higher " : "lower ") + y;
  return text + ".";
}

std::string pairOfVariables(const AnalysisState& state, int iXChoice, int iYChoice) {
  const std::string x = axisTitle(state, iXChoice);
  const std::string y = axisTitle(state, iYChoice);
  const float r = plotCorrelation(state, iXChoice, iYChoice).value();
  return "Scatter plot of " + y + " against " + x + ", " + cases(state) +
         (state.bShowRegressionLine ? ", with the least-squares line. " : ". ") +
         correlationSentence(x, y, r);
}

std::string residualsAgainst(const AnalysisState& state, int iXChoice) {
  const auto first = state.Fit.sResid.begin() + 1;
  const auto last = first + state.iNumCases;
  const float sBand = 3 * state.Fit.sStdErr;
  const auto outside = std::count_if(first, last, [&](float e) { return std::abs(e) > sBand; });
  const auto largest =
      std::max_element(first, last, [](float a, float b) { return std::abs(a) < std::abs(b); });
  return "Scatter plot of " + spokenCount(state.iNumCases, "residual") + " against " +
         axisTitle(state, iXChoice) +
         ", with a zero line and bands at plus and minus 3 standard errors (" +
         spokenNumber(sBand) + "); " + std::to_string(outside) + (outside == 1 ? " lies" : " lie") +
         " outside the bands. The largest in size is " + spokenNumber(*largest) + ", case " +
         std::to_string(largest - first + 1) + ".";
}

int crossings(const AnalysisState& state, const std::vector<float>& values, double centre) {
  int count = 0;
  for (std::size_t t = 2; t <= static_cast<std::size_t>(state.iNumCases); ++t)
    if ((values[t] - centre) * (values[t - 1] - centre) < 0) ++count;
  return count;
}

std::string orderOfEntry(const AnalysisState& state, int iYChoice) {
  const std::vector<float> values = chosenValues(state, iYChoice);
  const auto first = values.begin() + 1;
  const auto [least, largest] = std::minmax_element(first, first + state.iNumCases);
  const auto place = [&](auto value) {
    return spokenNumber(*value) + " (case " + std::to_string(value - first + 1) + ")";
  };
  const bool residuals = isResiduals(state, iYChoice);
  const int count = crossings(state, values, centreOf(state, iYChoice));
  return "Line of " + (residuals ? "the residuals" : axisTitle(state, iYChoice)) + " of " +
         cases(state) + " in order of entry, between " + place(least) + " and " + place(largest) +
         (residuals ? ". The sign changes " : ". It crosses its mean ") +
         spokenCount(count, "time") + "; the autocorrelation is " +
         formatNumber(plotAutocorrelation(state, iYChoice), "0.000") + ".";
}

// Two sentences.
std::string scatterDescription(const AnalysisState& state, int iXChoice, int iYChoice) {
  if (isEntryOrder(state, iXChoice)) return orderOfEntry(state, iYChoice);
  if (isResiduals(state, iYChoice)) return residualsAgainst(state, iXChoice);
  return pairOfVariables(state, iXChoice, iYChoice);
}

// One label and tick mark at every so many cases, which makes 5 to 15 of them for 5 to 639 cases.
int labelDistance(int iNumCases) {
  if (iNumCases > 299) return 40;
  if (iNumCases > 159) return 20;
  if (iNumCases > 79) return 10;
  if (iNumCases > 39) return 5;
  if (iNumCases > 19) return 4;
  return iNumCases > 9 ? 2 : 1;
}

// One drawing of a plot.
class ScatterPlot {
 public:
  ScatterPlot(const AnalysisState& state, int iNumber, ViewSize size, MessagePort& messages)
      : state_(state), messages_(messages), plot_(size, {{200, 150, 100, 100}, true, "+3SE"}) {
    const auto at = static_cast<std::size_t>(iNumber);
    miXChoice = choice(state.iPlotXVar.at(at));
    miYChoice = choice(state.iPlotYVar.at(at));
  }

  GraphContent content();

 private:
  struct Range {
    float sLow;
    float sHigh;
  };

  // A list without a selection has the index -1.
  int choice(Int16 iListIndex) const {
    return std::clamp<int>(iListIndex, 0, state_.iNumPredictors + 2);
  }
  // The range of the fitted values.
  void FindYHatMax();
  void DrawScatterPlot();
  void DrawTimePlot();
  // The zero line of residuals and their bands at three standard errors.
  void DrawHorizontalAxis();
  void drawBand(double dStdErrs, const char* tText);
  // Where a residual stands, in view units.
  double viewHeight(double dResidual) const;
  void ShowCorr();
  void ShowAutoCorr();

  PlottedAxis axisOf(int iChoice, bool isOrder) const;
  void beginPlot(GraphType type, int iSymbol);
  void scaleVertically();
  float scaleHorizontally();  // returns the shift
  // Least and largest value of what stands on an axis, by its choice.
  Range rangeOf(int iChoice) const;

  const AnalysisState& state_;
  MessagePort& messages_;
  Plot plot_;
  int miXChoice = 0;  // list indices, see scatter_plot.h
  int miYChoice = 0;
  float msYHatMin = 0;
  float msYHatMax = 0;
  float msYShift = 0;
};

GraphContent ScatterPlot::content() {
  FindYHatMax();
  if (isEntryOrder(state_, miXChoice))
    DrawTimePlot();
  else
    DrawScatterPlot();
  if (isResiduals(state_, miYChoice) && !isEntryOrder(state_, miXChoice)) DrawHorizontalAxis();
  return {std::move(plot_),
          scatterDescription(state_, miXChoice, miYChoice),
          {},
          axisOf(miXChoice, isEntryOrder(state_, miXChoice)),
          axisOf(miYChoice, false)};
}

PlottedAxis ScatterPlot::axisOf(int iChoice, bool isOrder) const {
  if (isOrder) return {};
  PlottedAxis axis{isFitted(state_, iChoice)      ? "fitted " + variableName(state_, 1)
                   : isResiduals(state_, iChoice) ? "residual"
                                                  : variableName(state_, iChoice + 1),
                   chosenValues(state_, iChoice),
                   {}};
  if (iChoice <= state_.iNumPredictors)
    axis.picture = state_.tVarFormat[static_cast<std::size_t>(iChoice) + 1];
  return axis;
}

void ScatterPlot::FindYHatMax() {
  const auto first = state_.Fit.sFitted.begin() + 1;
  const auto [least, largest] = std::minmax_element(first, first + state_.iNumCases);
  msYHatMin = *least;
  msYHatMax = *largest;
}

void ScatterPlot::DrawScatterPlot() {
  beginPlot(GraphType::symbols, openCircle);
  scaleVertically();
  const float sXShift = scaleHorizontally();
  const std::vector<float> sX = chosenValues(state_, miXChoice);
  const std::vector<float> sY = chosenValues(state_, miYChoice);
  for (int i = 1; i <= state_.iNumCases; ++i) {
    plot_.setPoint(i, sX[i] + sXShift, sY[i] + msYShift, i);
  }
  if (state_.bShowRegressionLine && !isResiduals(state_, miYChoice))
    plot_.settings.lineStatistics = leastSquaresLine;
  plot_.setDrawMode(Plot::draw);
  if (state_.bShowCorrelation) ShowCorr();
}

void ScatterPlot::beginPlot(GraphType type, int iSymbol) {
  GraphSettings& settings = plot_.settings;
  settings.graphType = type;
  settings.y.title = axisTitle(state_, miYChoice);
  settings.pointColour = palette::brightBlue;
  settings.pointSymbol = iSymbol;
  settings.symbolSize = symbolSizeFor(state_.iNumCases);
  plot_.setNumPoints(state_.iNumCases);
}

// The bands at three standard errors shall fit.
void ScatterPlot::scaleVertically() {
  Range range = rangeOf(miYChoice);
  if (isResiduals(state_, miYChoice)) {
    range.sLow = std::min(range.sLow, -3 * state_.Fit.sStdErr);
    range.sHigh = std::max(range.sHigh, 3 * state_.Fit.sStdErr);
  }
  const AxisScale scale = ComputeScale(range.sLow, range.sHigh);
  msYShift = axisShift(scale.sAxisMin);
  setScaledAxis(plot_.settings.y, scale, msYShift);
}

float ScatterPlot::scaleHorizontally() {
  Axis& axis = plot_.settings.x;
  axis.title = axisTitle(state_, miXChoice);
  const Range range = rangeOf(miXChoice);
  if (!isFitted(state_, miXChoice) && state_.iVarType[miXChoice + 1] == dummyVariable)
    return setBinaryAxis(axis, range.sLow);
  const AxisScale scale = ComputeScale(range.sLow, range.sHigh);
  const float sShift = axisShift(scale.sAxisMin);
  setScaledAxis(axis, scale, sShift);
  return sShift;
}

ScatterPlot::Range ScatterPlot::rangeOf(int iChoice) const {
  if (isFitted(state_, iChoice)) return {msYHatMin, msYHatMax};
  if (isResiduals(state_, iChoice))
    return {state_.sSortedResid[1], state_.sSortedResid[state_.iNumCases]};
  return {static_cast<float>(state_.dDescStat(3, iChoice + 1)),
          static_cast<float>(state_.dDescStat(4, iChoice + 1))};
}

void ScatterPlot::DrawTimePlot() {
  beginPlot(GraphType::lineWithSymbols, filledCircle);
  GraphSettings& settings = plot_.settings;
  settings.x.title = "Order of Entry";
  settings.labelEvery = labelDistance(state_.iNumCases);
  settings.tickEvery = settings.labelEvery;
  const Range range = rangeOf(miYChoice);
  setAutomaticAxis(settings.y, ComputeScale(range.sLow, range.sHigh));
  const std::vector<float> values = chosenValues(state_, miYChoice);
  for (int i = 1; i <= state_.iNumCases; ++i) {
    plot_.setPointLabel(i, generalText(static_cast<float>(i)));
    plot_.setPoint(i, static_cast<float>(i), values[i], i);
  }
  plot_.setDrawMode(Plot::draw);
  if (state_.bShowCorrelation) ShowAutoCorr();
}

void ScatterPlot::DrawHorizontalAxis() {
  const double left = plot_.SDKInfo(7);
  const double y0 = viewHeight(0);
  DrawingView& view = plot_.GSUseView();
  view.GSLoadRFont(100);
  view.GSLineAbs(left, y0, left + plot_.SDKInfo(5), y0, 1, 2, palette::black);
  drawBand(3, "+3SE");
  drawBand(-3, "-3SE");
}

double ScatterPlot::viewHeight(double dResidual) const {
  const Axis& axis = plot_.settings.y;
  const float sRange = axis.maximum - axis.minimum;
  const double value = dResidual + msYShift;
  return (value - axis.minimum) * plot_.SDKInfo(6) / sRange + plot_.SDKInfo(8);
}

void ScatterPlot::drawBand(double dStdErrs, const char* tText) {
  const double left = plot_.SDKInfo(7);
  const double right = left + plot_.SDKInfo(5);
  const double lowest = plot_.SDKInfo(8) + 1;
  const double highest = plot_.SDKInfo(8) + plot_.SDKInfo(6) - 1;
  const double y = viewHeight(dStdErrs * state_.Fit.sStdErr);
  DrawingView& view = plot_.GSUseView();
  // A band that the scale ends at is seen beside the frame: its words never stand without it.
  const double line = std::clamp(y, lowest, highest);
  if (!(std::abs(y - line) <= 1 + 0.01 * plot_.SDKInfo(6))) return;
  view.GSLineAbs(left, line, right, line, 1, 2, palette::brightRed);
  view.GSRText(right, y, overlayText::plain, tText);
}

void ScatterPlot::ShowCorr() {
  const auto r = plotCorrelation(state_, miXChoice, miYChoice);
  if (!r) {
    messages_.messageBox({{}, "Error in ShowCorr."});
    return;
  }
  drawCaption(plot_, "Correlation = " + formatNumber(*r, "0.0000"), "Correlation = 0.3333");
}

void ScatterPlot::ShowAutoCorr() {
  const float r = plotAutocorrelation(state_, miYChoice);
  drawCaption(plot_, "Autocorrelation = " + formatNumber(r, "0.000"), "Autocorrelation = 0.333");
}

}  // namespace

GraphContent scatterPlot(const AnalysisState& state, int iNumber, ViewSize size,
                         MessagePort& messages) {
  return ScatterPlot(state, iNumber, size, messages).content();
}

std::optional<float> plotCorrelation(const AnalysisState& state, int iXChoice, int iYChoice) {
  const int K = state.iNumPredictors;
  if (iXChoice == iYChoice) return 1.0F;
  if (iXChoice <= K && iYChoice <= K) return state.sCorr(iXChoice + 1, iYChoice + 1);
  if (isEntryOrder(state, iXChoice)) return std::nullopt;
  if (isResiduals(state, iYChoice) && iXChoice >= 1) return 0.0F;
  return Correlation(chosenValues(state, iXChoice), chosenValues(state, iYChoice), state.iNumCases);
}

std::vector<float> chosenValues(const AnalysisState& state, int iChoice) {
  if (isFitted(state, iChoice)) return state.Fit.sFitted;
  if (isResiduals(state, iChoice)) return state.Fit.sResid;
  const Int16 column = state.iModelCol[iChoice + 1];
  std::vector<float> values(static_cast<std::size_t>(state.iNumCases) + 1);
  for (int i = 1; i <= state.iNumCases; ++i) values[i] = state.sData(i, column);
  return values;
}

std::string axisTitle(const AnalysisState& state, int iChoice) {
  if (isFitted(state, iChoice)) return "Fitted " + variableName(state, 1);
  return isResiduals(state, iChoice) ? "Residuals" : variableName(state, iChoice + 1);
}

void chooseStartAxes(AnalysisState& state) {
  const Int16 K = state.iNumPredictors;
  state.iPlotXVar = {0, static_cast<Int16>(K + 1), 0, 1};
  state.iPlotYVar = {0, static_cast<Int16>(K + 2), static_cast<Int16>(K + 1), 0};
  state.iSavedPlotXVar = state.iPlotXVar;
  state.iSavedPlotYVar = state.iPlotYVar;
}

}  // namespace tolmer
