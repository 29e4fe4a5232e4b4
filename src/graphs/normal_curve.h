// The normal curve over a residual histogram.
#pragma once

#include "platform/graph/graph.h"

namespace tolmer {

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
// normal sample the curve is a sixth higher than classes one standard deviation wide. To be called
// between the scaling of the vertical axis and the drawing of the axes.
void leaveRoomForCurve(Graph& graph, const NormalCurve& curve);

// 100 segments over 99ths of the range, so the last one ends a step beyond dHigh.
void overlayNormalCurve(Graph& graph, const NormalCurve& curve);

}  // namespace tolmer
