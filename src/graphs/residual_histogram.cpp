#include "graphs/residual_histogram.h"

#include <algorithm>
#include <cstddef>

#include "engine/normal_distribution.h"
#include "graphs/axis_labels.h"
#include "graphs/histogram_bars.h"
#include "graphs/normal_curve.h"
#include "graphs/residual_axis.h"
#include "graphs/spoken_text.h"
#include "platform/desktop.h"

namespace tolmer {

frmResidHist::frmResidHist(Desktop& desktop, AnalysisState& state, DisplayHost& host)
    : GraphDisplay(desktop, state, host, "frmResidHist", "Histogram of Residuals"),
      mobjPlotBar(desktop) {
  gphResidHist.settings.x.title = "X Value";
  gphResidHist.settings.y.title = "Frequency";
  Form_Load(gphResidHist);
}

void frmResidHist::drawDisplay() {
  if (!hasFit()) return;
  ScaleResids();
  DrawHistogram();
  OverlayNormalDist();
  describe(description());
}

void frmResidHist::ScaleResids() {
  const AxisScale scale = residualAxis(state_);
  msXMin = scale.sAxisMin;
  msXStep = scale.sStep;
  miXTicks = scale.iSteps;
}

void frmResidHist::DrawHistogram() {
  const int iNumClasses = state_.iNumResidClasses;
  const float sShift = axisShift(msXMin);
  beginHistogram(gphResidHist, state_.iResidClassCount, iNumClasses);
  setScaledAxis(gphResidHist.settings.x, {msXMin, msXStep, miXTicks}, sShift);
  gphResidHist.settings.x.title = "Residual";
  leaveRoomForCurve(gphResidHist, normalCurve());
  drawHistogramAxes(gphResidHist);

  Matrix<float> sBars(iNumClasses + 1, 2);
  for (int i = 1; i <= iNumClasses + 1; ++i) {
    const auto c = static_cast<std::size_t>(i);
    sBars(i, 1) = state_.sResidClassLimit[c] + sShift;
    sBars(i, 2) = state_.iResidClassCount[c];
  }
  drawHistogramBars(gphResidHist, mobjPlotBar, sBars);
}

void frmResidHist::OverlayNormalDist() { overlayNormalCurve(gphResidHist, normalCurve()); }

NormalCurve frmResidHist::normalCurve() const {
  const int iNumClasses = state_.iNumResidClasses;
  const float sShift = axisShift(msXMin);
  const float s = state_.Fit.sStdErr;
  const double z = NormalInverse(0.1 / state_.iNumCases);
  const float sSpan = state_.sResidClassLimit[static_cast<std::size_t>(iNumClasses) + 1] -
                      state_.sResidClassLimit[1];
  NormalCurve curve{};
  curve.dLow = -z * s + sShift;
  curve.dHigh = z * s + sShift;
  curve.sMean = sShift;
  curve.sStdDev = s;
  curve.sAxisMin = sShift + msXMin;
  curve.sAxisLength = miXTicks * msXStep;
  curve.sFrequency = sSpan / static_cast<float>(iNumClasses) * state_.iNumCases;
  return curve;
}

std::string frmResidHist::description() const {
  const auto& limits = state_.sResidClassLimit;
  const auto& counts = state_.iResidClassCount;
  const auto last = static_cast<std::size_t>(state_.iNumResidClasses);
  const auto fullest =
      static_cast<std::size_t>(std::max_element(&counts[1], &counts[1] + last) - &counts[0]);
  return "Histogram of " + spokenCount(state_.iNumCases, "residual") + " in " +
         std::to_string(last) + " classes from " + spokenNumber(limits[1]) + " to " +
         spokenNumber(limits[last + 1]) + ", with the normal curve for standard error " +
         spokenNumber(state_.Fit.sStdErr) + ". The fullest class, " +
         spokenNumber(limits[fullest]) + " to " + spokenNumber(limits[fullest + 1]) + ", holds " +
         spokenCount(counts[fullest], "case") + ".";
}

}  // namespace tolmer
