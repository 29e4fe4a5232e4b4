#include "graphs/standardized_histogram.h"

#include <cstddef>

#include "graphs/axis_labels.h"
#include "graphs/histogram_bars.h"
#include "graphs/normal_curve.h"
#include "graphs/spoken_text.h"
#include "platform/desktop.h"

namespace tolmer {
namespace {

// Classes from -4 to 4 standard errors; the outer two also hold what lies beyond.
constexpr int classes = 8;
constexpr float axisMin = -4;

}  // namespace

frmStdResidHist::frmStdResidHist(Desktop& desktop, AnalysisState& state, DisplayHost& host)
    : GraphDisplay(desktop, state, host, "frmStdResidHist", "Histogram of Standardized Residuals"),
      mobjPlotBar(desktop) {
  gphStdResidHist.settings.y.title = "Frequency";
  Form_Load(gphStdResidHist);
}

void frmStdResidHist::drawDisplay() {
  if (!hasFit()) return;
  DrawHistogram();
  OverlayNormalDist();
  describe(description());
}

void frmStdResidHist::DrawHistogram() {
  const float sShift = axisShift(axisMin);
  beginHistogram(gphStdResidHist, state_.iStdResidClassCount, classes);
  setScaledAxis(gphStdResidHist.settings.x, {axisMin, 1, classes}, sShift);
  gphStdResidHist.settings.x.title = "Standardized Residual";
  leaveRoomForCurve(gphStdResidHist, normalCurve());
  drawHistogramAxes(gphStdResidHist);

  Matrix<float> sBars(classes + 1, 2);
  for (int i = 1; i <= classes + 1; ++i) {
    sBars(i, 1) = static_cast<float>(i - 1) + axisMin + sShift;
    sBars(i, 2) = i > classes ? Int16{0} : state_.iStdResidClassCount[static_cast<std::size_t>(i)];
  }
  drawHistogramBars(gphStdResidHist, mobjPlotBar, sBars);
}

void frmStdResidHist::OverlayNormalDist() { overlayNormalCurve(gphStdResidHist, normalCurve()); }

NormalCurve frmStdResidHist::normalCurve() const {
  const float sShift = axisShift(axisMin);
  NormalCurve curve{};
  curve.dLow = sShift - 3;
  curve.dHigh = sShift + 3;
  curve.sMean = sShift;
  curve.sStdDev = 1;
  curve.sAxisMin = sShift + axisMin;
  curve.sAxisLength = classes;
  curve.sFrequency = state_.iNumCases;
  return curve;
}

std::string frmStdResidHist::description() const {
  const auto& counts = state_.iStdResidClassCount;
  const int iWithinTwo = counts[3] + counts[4] + counts[5] + counts[6];
  return "Histogram of " + spokenCount(state_.iNumCases, "standardized residual") +
         " in eight classes one standard error wide, with the standard normal curve. " +
         std::to_string(iWithinTwo) + " of them lie within 2 standard errors of zero, " +
         std::to_string(state_.iStdResidOutside) + " beyond 3.";
}

}  // namespace tolmer
