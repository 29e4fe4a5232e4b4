// The steps that both residual histograms share.
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

// The normal curve that the classes should follow, all lengths in the shifted units of the
// horizontal axis.
struct NormalCurve {
  double dLow;        // where the curve begins
  double dHigh;       // and ends, but for one step
  float sMean;        // of the normal distribution
  float sStdDev;      //
  float sAxisMin;     // the horizontal axis
  float sAxisLength;  //
  float sFrequency;   // cases times class width: turns a density into an expected count
};

// Keeps free what the curve needs above the axes, whose top is that of the fullest class: in a
// normal sample the curve is a sixth higher than classes one standard deviation wide. To be called
// between the scaling of the vertical axis and the drawing of the axes.
void leaveRoomForCurve(Graph& graph, const NormalCurve& curve);

// 100 segments over 99ths of the range, so the last one ends a step beyond dHigh.
void overlayNormalCurve(Graph& graph, const NormalCurve& curve);

}  // namespace tolmer
