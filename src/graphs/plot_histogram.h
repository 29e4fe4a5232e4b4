// Draws bars of equal width side by side on a graph.
#pragma once

#include <optional>
#include <span>

#include "state/analysis_state.h"

namespace tolmer {

class Graph;

// Either bar by bar: the properties, DefineDataWindowY where wanted, InitBarPlot, then PlotBar for
// each; or at once by PlotHistData.
class PlotHistogram {
 public:
  void setBarColor(Int16 iBarColor) { iBarColor_ = iBarColor; }
  // Gap on each side of a bar, as a fraction of a class width.
  void setGapFraction(float sGapFraction) { sGapFraction_ = sGapFraction; }
  void setPattern(Int16 iPattern) { iPattern_ = iPattern; }
  // Class positions across the plot.
  void setMaxClasses(Int16 iMax) { iMaxClasses_ = iMax; }
  void setTargetGraph(Graph& graph) { graph_ = &graph; }

  // Values from sMinWithinWindow to sMaxWithinWindow shall stand between the heights sWindowLower
  // and sWindowUpper of the vertical scale.
  void DefineDataWindowY(double sWindowLower, double sWindowUpper, double sMinWithinWindow,
                         double sMaxWithinWindow);
  // Reads where the plot area lies; after each drawing of the graph. Needs a target graph.
  void InitBarPlot();
  // Positions count from 0. A bar of at most one view unit is left out.
  void PlotBar(Int16 iClassToPlot, float sClassValue);

  // DataToPlot from element 1 on. The vertical scale must begin at zero; a data window is ignored.
  void PlotHistData(Graph& gphGraphToPlot, std::span<const float> DataToPlot,
                    Int16 NumClassesToPlot);

 private:
  struct DataWindow {
    double sWindowLower, sWindowUpper, sMinWithinWindow, sMaxWithinWindow;
  };
  struct PlotPlace {
    double left = 0, bottom = 0, width = 0, height = 0;  // view units
    double scaleBottom = 0, scaleTop = 0;                // vertical scale
  };
  static PlotPlace readPlace(const Graph& graph);
  double valueAboveBase(float sClassValue) const;
  double viewHeight(double value) const;

  Int16 iBarColor_ = 9;
  float sGapFraction_ = 0.05F;
  Int16 iPattern_ = 128;
  Int16 iMaxClasses_ = 0;
  Graph* graph_ = nullptr;
  std::optional<DataWindow> window_;
  PlotPlace place_;
  double classWidth_ = 0;
  double gapWidth_ = 0;
  double barWidth_ = 0;
};

}  // namespace tolmer
