#include "graphs/histogram_drawing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "engine/axis_scale.h"
#include "engine/normal_distribution.h"
#include "graphs/axis_labels.h"
#include "platform/graph/palette.h"

namespace tolmer {
namespace {

constexpr int curveMode = 5;
constexpr int curveStyle = 2;

}  // namespace

void beginHistogram(Graph& graph, std::span<const Int16> iClassCount, int iNumClasses) {
  graph.settings.graphType = GraphType::symbols;
  graph.resetData(graphData::all);
  const auto first = iClassCount.begin() + 1;
  const Int16 iLargest = *std::max_element(first, first + iNumClasses);
  setScaledAxis(graph.settings.y, ComputeScale(0, iLargest), 0);
}

void drawHistogramAxes(Graph& graph) {
  const auto sBeyond =
      static_cast<float>(graph.settings.x.minimum - 2.0 * graph.settings.x.maximum);
  graph.setNumPoints(2);
  graph.setPoint(1, sBeyond, 0);
  graph.setPoint(2, sBeyond, 0);
  graph.setDrawMode(Graph::draw);
}

void drawHistogramBars(Graph& graph, PlotBar& objPlotBar, const Matrix<float>& sBars) {
  objPlotBar.setTargetGraph(graph);
  objPlotBar.GapFraction = 0.0001F;
  objPlotBar.MinGap = 2;
  objPlotBar.NumBarsToPlot = static_cast<Int16>(sBars.lastRow());
  objPlotBar.MinX = graph.settings.x.minimum;
  objPlotBar.MaxX = graph.settings.x.maximum;
  objPlotBar.MinY = graph.settings.y.minimum;
  objPlotBar.MaxY = graph.settings.y.maximum;
  objPlotBar.BarColor = palette::brightBlue;
  objPlotBar.PlotBarData(sBars);
}

void leaveRoomForCurve(Graph& graph, const NormalCurve& curve) {
  const float sPeak = NormalDensity(curve.sMean, curve.sStdDev, curve.sMean) * curve.sFrequency;
  const float sExcess = sPeak / graph.settings.y.maximum - 1;
  // Not for a standard error of zero, whose peak is infinite.
  graph.settings.headroom = sExcess > 0 && std::isfinite(sExcess) ? sExcess : 0;
}

void overlayNormalCurve(Graph& graph, const NormalCurve& curve) {
  DrawingView& view = graph.GSUseView();
  const double top = graph.SDKInfo(3);
  const double left = graph.SDKInfo(7);
  const double bottom = graph.SDKInfo(8);
  const double width = graph.SDKInfo(5);
  const double height = graph.SDKInfo(6);
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

}  // namespace tolmer
