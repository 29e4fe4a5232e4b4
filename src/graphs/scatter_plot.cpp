#include "graphs/scatter_plot.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "engine/number_picture.h"
#include "graphs/axis_choice.h"
#include "graphs/axis_labels.h"
#include "graphs/overlay_text.h"
#include "graphs/plot_correlation.h"
#include "graphs/scatter_description.h"
#include "platform/desktop.h"
#include "platform/graph/palette.h"

namespace tolmer {
namespace {

// One label and tick mark at every so many cases, which makes 5 to 15 of them for 5 to 639 cases.
int labelDistance(int iNumCases) {
  if (iNumCases > 299) return 40;
  if (iNumCases > 159) return 20;
  if (iNumCases > 79) return 10;
  if (iNumCases > 39) return 5;
  if (iNumCases > 19) return 4;
  return iNumCases > 9 ? 2 : 1;
}

}  // namespace

frmScatterPlot::frmScatterPlot(Desktop& desktop, AnalysisState& state, DisplayHost& host,
                               int iNumber)
    : GraphDisplay(desktop, state, host, "frmScatterPlot" + std::to_string(iNumber),
                   "Scatter Plot " + std::to_string(iNumber)),
      miNumber(static_cast<Int16>(iNumber)) {
  Form_Load(gphScatter);
  Activate = [this] { UpdateControls(); };
  UpdateControls();
}

void frmScatterPlot::UpdateControls() {
  state_.iCurrentPlot = miNumber;
  host_.controlsEnabled();
}

void frmScatterPlot::drawDisplay() {
  if (!hasFit()) return;
  takeChoices();
  FindYHatMax();
  if (isEntryOrder(state_, miXChoice))
    DrawTimePlot();
  else
    DrawScatterPlot();
  if (isResiduals(state_, miYChoice) && !isEntryOrder(state_, miXChoice)) DrawHorizontalAxis();
  describe(scatterDescription(state_, miXChoice, miYChoice));
}

// A list without a selection has the index -1.
void frmScatterPlot::takeChoices() {
  const auto plot = static_cast<std::size_t>(state_.iCurrentPlot);
  const auto last = static_cast<Int16>(state_.iNumPredictors + 2);
  miXChoice = std::clamp(state_.iPlotXVar.at(plot), Int16{0}, last);
  miYChoice = std::clamp(state_.iPlotYVar.at(plot), Int16{0}, last);
  miXCol = static_cast<Int16>(miXChoice + 1);
  miYCol = static_cast<Int16>(miYChoice + 1);
}

void frmScatterPlot::FindYHatMax() {
  const auto first = state_.Fit.sFitted.begin() + 1;
  const auto [least, largest] = std::minmax_element(first, first + state_.iNumCases);
  msYHatMin = *least;
  msYHatMax = *largest;
}

void frmScatterPlot::DrawScatterPlot() {
  beginPlot(GraphType::symbols, openCircle);
  scaleVertically();
  const float sXShift = scaleHorizontally();
  const std::vector<float> sX = chosenValues(state_, miXChoice);
  const std::vector<float> sY = chosenValues(state_, miYChoice);
  for (int i = 1; i <= state_.iNumCases; ++i) {
    const auto c = static_cast<std::size_t>(i);
    gphScatter.setPoint(i, sX[c] + sXShift, sY[c] + msYShift);
  }
  if (state_.bShowRegressionLine && !isResiduals(state_, miYChoice))
    gphScatter.settings.lineStatistics = leastSquaresLine;
  gphScatter.setDrawMode(Graph::draw);
  if (state_.bShowCorrelation) ShowCorr();
}

void frmScatterPlot::beginPlot(GraphType type, int iSymbol) {
  GraphSettings& settings = gphScatter.settings;
  settings = {};
  settings.graphType = type;
  settings.y.title = axisTitle(state_, miYChoice);
  settings.pointColour = palette::brightBlue;
  settings.pointSymbol = iSymbol;
  settings.symbolSize = symbolSizeFor(state_.iNumCases);
  gphScatter.setNumPoints(state_.iNumCases);
}

// The bands at three standard errors shall fit.
void frmScatterPlot::scaleVertically() {
  Range range = rangeOf(miYChoice);
  if (isResiduals(state_, miYChoice)) {
    range.sLow = std::min(range.sLow, -3 * state_.Fit.sStdErr);
    range.sHigh = std::max(range.sHigh, 3 * state_.Fit.sStdErr);
  }
  const AxisScale scale = ComputeScale(range.sLow, range.sHigh);
  msYShift = axisShift(scale.sAxisMin);
  setScaledAxis(gphScatter.settings.y, scale, msYShift);
}

float frmScatterPlot::scaleHorizontally() {
  Axis& axis = gphScatter.settings.x;
  axis.title = axisTitle(state_, miXChoice);
  const Range range = rangeOf(miXChoice);
  if (!isFitted(state_, miXChoice) &&
      state_.iVarType[static_cast<std::size_t>(miXCol)] == dummyVariable)
    return setBinaryAxis(axis, range.sLow);
  const AxisScale scale = ComputeScale(range.sLow, range.sHigh);
  const float sShift = axisShift(scale.sAxisMin);
  setScaledAxis(axis, scale, sShift);
  return sShift;
}

frmScatterPlot::Range frmScatterPlot::rangeOf(int iChoice) const {
  if (isFitted(state_, iChoice)) return {msYHatMin, msYHatMax};
  if (isResiduals(state_, iChoice))
    return {state_.sSortedResid[1],
            state_.sSortedResid[static_cast<std::size_t>(state_.iNumCases)]};
  return {static_cast<float>(state_.dDescStat(3, iChoice + 1)),
          static_cast<float>(state_.dDescStat(4, iChoice + 1))};
}

void frmScatterPlot::DrawTimePlot() {
  beginPlot(GraphType::lineWithSymbols, filledCircle);
  GraphSettings& settings = gphScatter.settings;
  settings.x.title = "Order of Entry";
  settings.labelEvery = labelDistance(state_.iNumCases);
  settings.tickEvery = settings.labelEvery;
  const Range range = rangeOf(miYChoice);
  setAutomaticAxis(settings.y, ComputeScale(range.sLow, range.sHigh));
  const std::vector<float> values = chosenValues(state_, miYChoice);
  for (int i = 1; i <= state_.iNumCases; ++i) {
    gphScatter.setPointLabel(i, generalText(static_cast<float>(i)));
    gphScatter.setPoint(i, static_cast<float>(i), values[static_cast<std::size_t>(i)]);
  }
  gphScatter.setDrawMode(Graph::draw);
  if (state_.bShowCorrelation) ShowAutoCorr();
}

void frmScatterPlot::DrawHorizontalAxis() {
  const double left = gphScatter.SDKInfo(7);
  const double y0 = viewHeight(0);
  DrawingView& view = gphScatter.GSUseView();
  view.GSLoadRFont(100);
  view.GSLineAbs(left, y0, left + gphScatter.SDKInfo(5), y0, 1, 2, palette::black);
  drawBand(3, "+3SE");
  drawBand(-3, "-3SE");
}

double frmScatterPlot::viewHeight(double dResidual) const {
  const Axis& axis = gphScatter.settings.y;
  const float sRange = axis.maximum - axis.minimum;
  const double value = dResidual + msYShift;
  return (value - axis.minimum) * gphScatter.SDKInfo(6) / sRange + gphScatter.SDKInfo(8);
}

void frmScatterPlot::drawBand(double dStdErrs, const char* tText) {
  const double left = gphScatter.SDKInfo(7);
  const double right = left + gphScatter.SDKInfo(5);
  const double bottom = gphScatter.SDKInfo(8);
  const double y = viewHeight(dStdErrs * state_.Fit.sStdErr);
  DrawingView& view = gphScatter.GSUseView();
  if (y > bottom && y < bottom + gphScatter.SDKInfo(6))
    view.GSLineAbs(left, y, right, y, 1, 2, palette::brightRed);
  view.GSRText(right, y, overlayText::plain, tText);
}

void frmScatterPlot::ShowCorr() {
  const auto r = plotCorrelation(state_, miXChoice, miYChoice);
  if (!r) {
    desktop().messageBox({.title = {}, .text = "Error in ShowCorr."});
    return;
  }
  drawCaption(gphScatter, "Correlation = " + formatNumber(*r, "0.0000"), "Correlation = 0.3333");
}

void frmScatterPlot::ShowAutoCorr() {
  const float r = plotAutocorrelation(state_, miYChoice);
  drawCaption(gphScatter, "Autocorrelation = " + formatNumber(r, "0.000"),
              "Autocorrelation = 0.333");
}

}  // namespace tolmer
