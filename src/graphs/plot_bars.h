// The classes of the drawing library that draw bars and frequency polygons on a plot. PlotHistogram
// and PlotPolygon, for classes of equal width, are not used by a display yet.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "base/message_box.h"
#include "platform/graph/plot.h"
#include "state/analysis_state.h"
#include "state/matrix.h"

namespace tolmer {

// Draws bars of unequal position on a plot with numeric axes.
class PlotBar {
 public:
  explicit PlotBar(MessagePort& messages) : messages_(messages) {}

  float GapFraction = 0.01F;  // half gap between bars, as a fraction of the plot width
  Int16 MinGap = 2;           // smallest gap between two bars, in pixels
  Int16 Pattern = 128;
  Int16 NumBarsToPlot = 1;  // rows of the data to draw
  float MinX = 0;           // data ranges that the plot area shows
  float MaxX = 10;
  float MinY = 0;
  float MaxY = 10;
  bool UseSameColor = true;  // else the third column holds each bar's colour
  Int16 BarColor = 1;
  void setTargetGraph(Plot& plot) { plot_ = &plot; }

  // Rows from 1: column 1 the left limit of a bar, in ascending order, column 2 its height, column
  // 3 its colour. A bar reaches to the limit of the next row, the last one to the edge of the plot
  // area. Bars not above MinY or not more than one view unit high are left out.
  //
  // A message box, and no more bars, for too few columns, no graph, or limits out of order.
  // Returns where each row's bar stands, of no size where there is none.
  std::vector<ViewRect> PlotBarData(const Matrix<float>& Data);

 private:
  // In view units.
  struct Place {
    double left, bottom, width, height, halfGap;
  };
  Place findPlace(const DrawingView& view) const;
  bool isUsable(const Matrix<float>& Data) const;
  double horizontal(float x, const Place& place) const;
  void report(const std::string& text) const;
  void reportUnsorted(const Matrix<float>& Data, int bar) const;
  Int16 colourOf(const Matrix<float>& Data, int bar) const;

  MessagePort& messages_;
  Plot* plot_ = nullptr;
};

// Draws bars of equal width side by side. Either bar by bar: the properties, DefineDataWindowY
// where wanted, InitBarPlot, then PlotBar for each; or at once by PlotHistData.
class PlotHistogram {
 public:
  void setBarColor(Int16 iBarColor) { iBarColor_ = iBarColor; }
  // Gap on each side of a bar, as a fraction of a class width.
  void setGapFraction(float sGapFraction) { sGapFraction_ = sGapFraction; }
  void setPattern(Int16 iPattern) { iPattern_ = iPattern; }
  // Class positions across the plot.
  void setMaxClasses(Int16 iMax) { iMaxClasses_ = iMax; }
  void setTargetGraph(Plot& plot) { plot_ = &plot; }

  // Values from sMinWithinWindow to sMaxWithinWindow shall stand between the heights sWindowLower
  // and sWindowUpper of the vertical scale.
  void DefineDataWindowY(double sWindowLower, double sWindowUpper, double sMinWithinWindow,
                         double sMaxWithinWindow);
  // Reads where the plot area lies; after each drawing of the graph. Needs a target graph.
  void InitBarPlot();
  // Positions count from 0. A bar of at most one view unit is left out.
  void PlotBar(Int16 iClassToPlot, float sClassValue);

  // DataToPlot from element 1 on. The vertical scale must begin at zero; a data window is ignored.
  void PlotHistData(Plot& gphGraphToPlot, std::span<const float> DataToPlot,
                    Int16 NumClassesToPlot);

 private:
  struct DataWindow {
    double sWindowLower, sWindowUpper, sMinWithinWindow, sMaxWithinWindow;
  };
  struct PlotPlace {
    double left = 0, bottom = 0, width = 0, height = 0;  // view units
    double scaleBottom = 0, scaleTop = 0;                // vertical scale
  };
  static PlotPlace readPlace(const Plot& plot);
  double valueAboveBase(float sClassValue) const;
  double viewHeight(double value) const;

  Int16 iBarColor_ = 9;
  float sGapFraction_ = 0.05F;
  Int16 iPattern_ = 128;
  Int16 iMaxClasses_ = 0;
  Plot* plot_ = nullptr;
  std::optional<DataWindow> window_;
  PlotPlace place_;
  double classWidth_ = 0;
  double gapWidth_ = 0;
  double barWidth_ = 0;
};

// Draws a frequency polygon: lines that join the middles of classes.
class PlotPolygon {
 public:
  Int16 iMode = 4;  // attributes of the lines, see DrawingView
  Int16 iStyle = 2;
  Int16 iLineColor = 9;

  // DataToPlot from element 1 on. The vertical scale must begin at zero.
  void PlotPolyData(Plot& gphTarget, std::span<const Int16> DataToPlot,
                    Int16 NumClassesToPlot) const;
};

}  // namespace tolmer
