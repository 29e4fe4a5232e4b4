#include "graphs/histogram_bars.h"

#include <algorithm>

#include "engine/axis_scale.h"
#include "graphs/axis_labels.h"
#include "platform/graph/palette.h"

namespace tolmer {

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

}  // namespace tolmer
