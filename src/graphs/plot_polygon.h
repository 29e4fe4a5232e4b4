// Draws a frequency polygon: lines that join the middles of classes.
#pragma once

#include <span>

#include "state/analysis_state.h"

namespace tolmer {

class Graph;

class PlotPolygon {
 public:
  Int16 iMode = 4;  // attributes of the lines, see DrawingView
  Int16 iStyle = 2;
  Int16 iLineColor = 9;

  // DataToPlot from element 1 on. The vertical scale must begin at zero.
  void PlotPolyData(Graph& gphTarget, std::span<const Int16> DataToPlot,
                    Int16 NumClassesToPlot) const;
};

}  // namespace tolmer
