#include "graphs/residual_plots.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <span>
#include <utility>

#include "engine/axis_scale.h"
#include "engine/correlation.h"
#include "engine/distributions.h"
#include "engine/residual_classes.h"
#include "graphs/axis_labels.h"
#include "graphs/plot_bars.h"

namespace tolmer {
namespace {

// An axis that holds the residuals and the extremes that a normal sample of their number and
// standard error would have.
AxisScale residualAxis(const AnalysisState& state) {
  const double n = state.iNumCases;
  const float s = state.Fit.sStdErr;
  const auto sLow = static_cast<float>(NormalInverse(1 - 0.5 / n) * s);
  const auto sHigh = static_cast<float>(NormalInverse(1 - (n - 0.5) / n) * s);
  const auto last = static_cast<std::size_t>(state.iNumCases);
  return ComputeScale(std::min(state.sSortedResid[1], sLow),
                      std::max(state.sSortedResid[last], sHigh));
}

// The normal curve that the classes should follow, all lengths in the shifted units of the
// horizontal axis.
struct NormalCurve {
  double dLow;        // where the curve begins
  double dHigh;       // and ends, but for one step
  float sMean;        // of the normal distribution
  float sStdDev;      // of the normal distribution
  float sAxisMin;     // where the horizontal axis begins
  float sAxisLength;  // from there to its end
  float sFrequency;   // cases times class width: turns a density into an expected count
};

// Keeps free what the curve needs above the axes, whose top is that of the fullest class: in a
// normal sample the curve is a sixth higher than classes one standard deviation wide.
void leaveRoomForCurve(Plot& plot, const NormalCurve& curve) {
  const float sPeak = NormalDensity(curve.sMean, curve.sStdDev, curve.sMean) * curve.sFrequency;
  const float sExcess = sPeak / plot.settings.y.maximum - 1;
  // Not for a standard error of zero, whose peak is infinite.
  plot.settings.headroom = sExcess > 0 && std::isfinite(sExcess) ? sExcess : 0;
}

// 100 segments over 99ths of the range, so the last one ends a step beyond dHigh.
void OverlayNormalDist(Plot& plot, const NormalCurve& curve) {
  constexpr int curveMode = 5;
  constexpr int curveStyle = 2;
  DrawingView& view = plot.GSUseView();
  const double top = plot.SDKInfo(3);
  const double left = plot.SDKInfo(7);
  const double bottom = plot.SDKInfo(8);
  const double width = plot.SDKInfo(5);
  const double height = plot.SDKInfo(6);
  const auto sStep = static_cast<float>((curve.dHigh - curve.dLow) / 99);
  ViewPoint previous;
  for (int i = 1; i <= 101; ++i) {
    const double x = (i - 1) * double{sStep} + curve.dLow;
    const float sDensity = NormalDensity(curve.sMean, curve.sStdDev, x);
    const ViewPoint point{(x - curve.sAxisMin) / curve.sAxisLength * width + left,
                          double{sDensity} * curve.sFrequency / top * height + bottom};
    if (i > 1)
      view.GSLineAbs(previous.x, previous.y, point.x, point.y, curveMode, curveStyle,
                     palette::brightRed);
    previous = point;
  }
}

// What the two histograms differ in.
struct Classes {
  const char* axisTitle;
  AxisScale axis;
  std::vector<float> sLimits;          // from 0: of each class the lower one, then the last upper
  std::span<const Int16> iClassCount;  // from 1
  int (*classOf)(const AnalysisState&, float);  // of a residual, 0 for one in no class
  NormalCurve curve;
};

// The vertical axis from 0 to the fullest class; the graph draws its frame and axes alone, for two
// points far off its scale.
void drawAxes(Plot& plot, const Classes& classes) {
  GraphSettings& settings = plot.settings;
  const auto first = classes.iClassCount.begin() + 1;
  const auto last = first + static_cast<std::ptrdiff_t>(classes.sLimits.size()) - 1;
  setCountAxis(settings.y, ComputeScale(0, *std::max_element(first, last)));
  setScaledAxis(settings.x, classes.axis, axisShift(classes.axis.sAxisMin));
  settings.x.title = classes.axisTitle;
  settings.y.title = "Frequency";
  leaveRoomForCurve(plot, classes.curve);
  const auto sBeyond = static_cast<float>(settings.x.minimum - 2.0 * settings.x.maximum);
  plot.setNumPoints(2);
  plot.setPoint(1, sBeyond, 0);
  plot.setPoint(2, sBeyond, 0);
  plot.setDrawMode(Plot::draw);
}

// Returns where the classes' bars stand. The row behind the last class closes it.
std::vector<ViewRect> drawBars(Plot& plot, const Classes& classes, MessagePort& messages) {
  const int count = static_cast<int>(classes.sLimits.size()) - 1;
  const float sShift = axisShift(classes.axis.sAxisMin);
  Matrix<float> sBars(count + 1, 2);
  for (int i = 1; i <= count + 1; ++i) {
    sBars(i, 1) = classes.sLimits[i - 1] + sShift;
    sBars(i, 2) = i > count ? Int16{0} : classes.iClassCount[i];
  }
  PlotBar objPlotBar(messages);
  objPlotBar.setTargetGraph(plot);
  objPlotBar.GapFraction = 0.0001F;
  objPlotBar.MinGap = 2;
  objPlotBar.NumBarsToPlot = static_cast<Int16>(sBars.lastRow());
  objPlotBar.MinX = plot.settings.x.minimum;
  objPlotBar.MaxX = plot.settings.x.maximum;
  objPlotBar.MinY = plot.settings.y.minimum;
  objPlotBar.MaxY = plot.settings.y.maximum;
  objPlotBar.BarColor = palette::brightBlue;
  return objPlotBar.PlotBarData(sBars);
}

// The limits in one number picture, by the rule that labels the axis.
std::vector<PlottedBar> barsOf(const AnalysisState& state, const Classes& classes,
                               const std::vector<ViewRect>& places) {
  const std::vector<std::string> limits = scaleTexts(classes.sLimits);
  std::vector<PlottedBar> bars;
  for (std::size_t i = 1; i < limits.size(); ++i) {
    const Int16 iCount = classes.iClassCount[i];
    bars.push_back({limits[i - 1],
                    limits[i],
                    1.0 * iCount,
                    std::to_string(iCount),
                    {},
                    places[i - 1],
                    limits[i - 1] + " to " + limits[i]});
  }
  for (int i = 1; i <= state.iNumCases; ++i)
    if (const int j = classes.classOf(state, state.Fit.sResid[i]); j > 0)
      bars[j - 1].cases.push_back(i);
  return bars;
}

GraphContent DrawHistogram(const AnalysisState& state, Plot plot, const Classes& classes,
                           MessagePort& messages) {
  drawAxes(plot, classes);
  const std::vector<ViewRect> places = drawBars(plot, classes, messages);
  OverlayNormalDist(plot, classes.curve);
  return {std::move(plot), {}, barsOf(state, classes, places)};
}

NormalCurve curveOfResiduals(const AnalysisState& state, const AxisScale& axis) {
  const int iNumClasses = state.iNumResidClasses;
  const float sShift = axisShift(axis.sAxisMin);
  const float s = state.Fit.sStdErr;
  const double z = NormalInverse(0.1 / state.iNumCases);
  const float sSpan = state.sResidClassLimit[iNumClasses + 1] - state.sResidClassLimit[1];
  return {.dLow = -z * s + sShift,
          .dHigh = z * s + sShift,
          .sMean = sShift,
          .sStdDev = s,
          .sAxisMin = sShift + axis.sAxisMin,
          .sAxisLength = static_cast<float>(axis.iSteps) * axis.sStep,
          .sFrequency = sSpan / static_cast<float>(iNumClasses) * state.iNumCases};
}

// Classes from -4 to 4 standard errors; the outer two also hold what lies beyond.
constexpr int standardClasses = 8;
constexpr float standardMin = -4;

NormalCurve standardCurve(const AnalysisState& state) {
  const float sShift = axisShift(standardMin);
  return {.dLow = sShift - 3,
          .dHigh = sShift + 3,
          .sMean = sShift,
          .sStdDev = 1,
          .sAxisMin = sShift + standardMin,
          .sAxisLength = standardClasses,
          .sFrequency = 1.0F * state.iNumCases};
}

std::string spokenHistogram(const AnalysisState& state) {
  const auto& limits = state.sResidClassLimit;
  const auto& counts = state.iResidClassCount;
  const auto last = static_cast<std::size_t>(state.iNumResidClasses);
  const auto fullest =
      static_cast<std::size_t>(std::max_element(&counts[1], &counts[1] + last) - &counts[0]);
  return "Histogram of " + spokenCount(state.iNumCases, "residual") + " in " +
         std::to_string(last) + " classes from " + spokenNumber(limits[1]) + " to " +
         spokenNumber(limits[last + 1]) + ", with the normal curve for standard error " +
         spokenNumber(state.Fit.sStdErr) + ". The fullest class, " + spokenNumber(limits[fullest]) +
         " to " + spokenNumber(limits[fullest + 1]) + ", holds " +
         spokenCount(counts[fullest], "case") + ".";
}

std::string spokenStandardHistogram(const AnalysisState& state) {
  const auto& counts = state.iStdResidClassCount;
  const int iWithinTwo = counts[3] + counts[4] + counts[5] + counts[6];
  return "Histogram of " + spokenCount(state.iNumCases, "standardized residual") +
         " in eight classes one standard error wide, with the standard normal curve. " +
         std::to_string(iWithinTwo) + " of them lie within 2 standard errors of zero, " +
         std::to_string(state.iStdResidOutside) + " beyond 3.";
}

// (1..iNumCases) normal quantiles of (i - 1/2) / n, in units of the residuals.
std::vector<float> expectedResiduals(const AnalysisState& state) {
  std::vector<float> sExpected(static_cast<std::size_t>(state.iNumCases) + 1);
  for (int i = 1; i <= state.iNumCases; ++i)
    sExpected[i] =
        static_cast<float>(state.Fit.sStdErr * NormalInverse(1 - (i - 0.5) / state.iNumCases));
  return sExpected;
}

// (1..iNumCases) the case of each residual in rising order; zeros where a residual is not a number,
// which has no place in any order.
std::vector<int> sortedCases(const AnalysisState& state) {
  const auto& sResid = state.Fit.sResid;
  std::vector<int> cases(static_cast<std::size_t>(state.iNumCases) + 1);
  if (std::any_of(sResid.begin(), sResid.end(), [](float r) { return std::isnan(r); }))
    return cases;
  std::iota(cases.begin(), cases.end(), 0);
  std::stable_sort(cases.begin() + 1, cases.end(),
                   [&sResid](int a, int b) { return sResid[a] < sResid[b]; });
  return cases;
}

// One scale for both axes, so that equal values meet on the diagonal.
void DrawScatter(Plot& plot, const AnalysisState& state, const std::vector<float>& sExpected) {
  const AxisScale scale = residualAxis(state);
  const float sShift = axisShift(scale.sAxisMin);
  for (Axis* axis : {&plot.settings.x, &plot.settings.y}) setScaledAxis(*axis, scale, sShift);
  plot.settings.x.title = "Observed";
  plot.settings.y.title = "Expected";
  plot.settings.pointSymbol = openCircle;
  plot.settings.pointColour = palette::brightBlue;
  plot.setNumPoints(state.iNumCases);
  const std::vector<int> cases = sortedCases(state);
  for (int i = 1; i <= state.iNumCases; ++i) {
    plot.setPoint(i, state.sSortedResid[i] + sShift, sExpected[i] + sShift, cases[i]);
  }
  plot.setDrawMode(Plot::draw);
}

void OverlayDiagonal(Plot& plot) {
  const double left = plot.SDKInfo(7);
  const double bottom = plot.SDKInfo(8);
  plot.GSUseView().GSLineAbs(left, bottom, left + plot.SDKInfo(5), bottom + plot.SDKInfo(6), 1, 0,
                             palette::brightRed);
}

std::string spokenNormality(const AnalysisState& state, const std::vector<float>& sExpected) {
  const auto& sObserved = state.sSortedResid;
  std::size_t farthest = 1;
  const auto distance = [&](std::size_t i) { return std::abs(sObserved[i] - sExpected[i]); };
  const auto last = static_cast<std::size_t>(state.iNumCases);
  for (std::size_t i = 2; i <= last; ++i)
    if (distance(i) > distance(farthest)) farthest = i;
  return "Normality plot of " + spokenCount(state.iNumCases, "residual") + ", observed from " +
         spokenNumber(sObserved[1]) + " to " + spokenNumber(sObserved[last]) +
         " against the values expected of a normal sample; correlation of the points " +
         spokenNumber(Correlation(sObserved, sExpected, state.iNumCases)) +
         ". The point farthest from the diagonal is residual " + std::to_string(farthest) +
         " in rising order: observed " + spokenNumber(sObserved[farthest]) + ", expected " +
         spokenNumber(sExpected[farthest]) + ".";
}

}  // namespace

GraphContent residualHistogram(const AnalysisState& state, ViewSize size, MessagePort& messages) {
  const AxisScale axis = residualAxis(state);
  const auto first = state.sResidClassLimit.begin() + 1;
  GraphContent content = DrawHistogram(state, Plot(size),
                                       {"Residual",
                                        axis,
                                        {first, first + state.iNumResidClasses + 1},
                                        state.iResidClassCount,
                                        residClassOf,
                                        curveOfResiduals(state, axis)},
                                       messages);
  content.description = spokenHistogram(state);
  return content;
}

GraphContent standardizedHistogram(const AnalysisState& state, ViewSize size,
                                   MessagePort& messages) {
  std::vector<float> sLimits;
  for (int i = 0; i <= standardClasses; ++i) sLimits.push_back(static_cast<float>(i) + standardMin);
  GraphContent content = DrawHistogram(state, Plot(size, {{200, 100, 100, 100}, false, {}}),
                                       {"Standardized Residual",
                                        {standardMin, 1, standardClasses},
                                        std::move(sLimits),
                                        state.iStdResidClassCount,
                                        stdResidClassOf,
                                        standardCurve(state)},
                                       messages);
  content.description = spokenStandardHistogram(state);
  // The outer classes hold what lies beyond them, too.
  content.bars.front().range = "below " + content.bars.front().upperLimit;
  content.bars.back().range = content.bars.back().label + " and above";
  return content;
}

GraphContent normalityPlot(const AnalysisState& state, ViewSize size, MessagePort&) {
  const std::vector<float> sExpected = expectedResiduals(state);
  Plot plot(size);
  DrawScatter(plot, state, sExpected);
  OverlayDiagonal(plot);
  PlottedAxis expected{"expected", std::vector<float>(sExpected.size()), {}};
  for (int point = 1; point <= plot.numPoints(); ++point)
    expected.values[plot.settings.points[point - 1].iCase] = sExpected[point];
  return {std::move(plot),
          spokenNormality(state, sExpected),
          {},
          {"observed", state.Fit.sResid},
          std::move(expected)};
}

}  // namespace tolmer
