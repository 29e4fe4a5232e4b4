// Draws bars of unequal position on a graph with numeric axes.
#pragma once

#include "base/message_box.h"
#include "state/analysis_state.h"
#include "state/matrix.h"

namespace tolmer {

class DrawingView;
class Graph;

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
  void setTargetGraph(Graph& graph) { graph_ = &graph; }

  // Rows from 1: column 1 the left limit of a bar, in ascending order, column 2 its height, column
  // 3 its colour. A bar reaches to the limit of the next row, the last one to the edge of the plot
  // area. Bars not above MinY or not more than one view unit high are left out.
  //
  // A message box, and no more bars, for too few columns, no graph, or limits out of order.
  void PlotBarData(const Matrix<float>& Data);

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
  Graph* graph_ = nullptr;
};

}  // namespace tolmer
