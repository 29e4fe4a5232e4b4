#include "graphs/normality_plot.h"

#include <cmath>
#include <cstddef>

#include "engine/correlation.h"
#include "engine/normal_distribution.h"
#include "graphs/axis_labels.h"
#include "graphs/residual_axis.h"
#include "graphs/spoken_text.h"
#include "platform/graph/palette.h"

namespace tolmer {

frmProbPlot::frmProbPlot(Desktop& desktop, AnalysisState& state, DisplayHost& host)
    : GraphDisplay(desktop, state, host, "frmProbPlot", "Normality Plot for Residuals") {
  gphProbPlot.settings.graphType = GraphType::symbols;
  gphProbPlot.settings.x.title = "Observed";
  gphProbPlot.settings.y.title = "Expected";
  Form_Load(gphProbPlot);
}

void frmProbPlot::drawDisplay() {
  if (!hasFit()) return;
  ScaleAxis();
  DrawScatter();
  OverlayDiagonal();
  describe(description());
}

void frmProbPlot::ScaleAxis() {
  const AxisScale scale = residualAxis(state_);
  msXMin = scale.sAxisMin;
  msXStep = scale.sStep;
  miXTicks = scale.iSteps;
}

void frmProbPlot::DrawScatter() {
  gphProbPlot.resetData(graphData::all);
  const float sShift = axisShift(msXMin);
  const AxisScale scale{msXMin, msXStep, miXTicks};
  setScaledAxis(gphProbPlot.settings.x, scale, sShift);
  setScaledAxis(gphProbPlot.settings.y, scale, sShift);

  gphProbPlot.settings.pointSymbol = openCircle;
  gphProbPlot.settings.pointColour = palette::brightBlue;
  gphProbPlot.setNumPoints(state_.iNumCases);
  const std::vector<float> sExpected = expectedResiduals();
  for (int i = 1; i <= state_.iNumCases; ++i) {
    const auto c = static_cast<std::size_t>(i);
    gphProbPlot.setPoint(i, state_.sSortedResid[c] + sShift, sExpected[c] + sShift);
  }
  gphProbPlot.setDrawMode(Graph::draw);
}

std::vector<float> frmProbPlot::expectedResiduals() const {
  std::vector<float> sExpected(static_cast<std::size_t>(state_.iNumCases) + 1);
  for (int i = 1; i <= state_.iNumCases; ++i)
    sExpected[static_cast<std::size_t>(i)] =
        static_cast<float>(state_.Fit.sStdErr * NormalInverse(1 - (i - 0.5) / state_.iNumCases));
  return sExpected;
}

void frmProbPlot::OverlayDiagonal() {
  const double left = gphProbPlot.SDKInfo(7);
  const double bottom = gphProbPlot.SDKInfo(8);
  gphProbPlot.GSUseView().GSLineAbs(left, bottom, left + gphProbPlot.SDKInfo(5),
                                    bottom + gphProbPlot.SDKInfo(6), 1, 0, palette::brightRed);
}

std::string frmProbPlot::description() const {
  const auto& sObserved = state_.sSortedResid;
  const std::vector<float> sExpected = expectedResiduals();
  std::size_t farthest = 1;
  const auto distance = [&](std::size_t i) { return std::abs(sObserved[i] - sExpected[i]); };
  const auto last = static_cast<std::size_t>(state_.iNumCases);
  for (std::size_t i = 2; i <= last; ++i)
    if (distance(i) > distance(farthest)) farthest = i;
  return "Normality plot of " + spokenCount(state_.iNumCases, "residual") + ", observed from " +
         spokenNumber(sObserved[1]) + " to " + spokenNumber(sObserved[last]) +
         " against the values expected of a normal sample; correlation of the points " +
         spokenNumber(Correlation(sObserved, sExpected, state_.iNumCases)) +
         ". The point farthest from the diagonal is residual " + std::to_string(farthest) +
         " in rising order: observed " + spokenNumber(sObserved[farthest]) + ", expected " +
         spokenNumber(sExpected[farthest]) + ".";
}

}  // namespace tolmer
