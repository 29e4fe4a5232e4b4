// Axes and bars, as both residual histograms draw them.
#pragma once

#include <span>

#include "graphs/plot_bar.h"
#include "platform/graph/graph.h"

namespace tolmer {

// Clears the graph and scales its vertical axis from 0 to the largest of the classes' counts
// (classes from 1).
void beginHistogram(Graph& graph, std::span<const Int16> iClassCount, int iNumClasses);

// The graph draws its frame and axes alone, for two points far off its scale.
void drawHistogramAxes(Graph& graph);

// Rows from 1: lower limit of a class, shifted as the axis is, and count; the last row closes the
// last class and has the count 0.
void drawHistogramBars(Graph& graph, PlotBar& objPlotBar, const Matrix<float>& sBars);

}  // namespace tolmer
