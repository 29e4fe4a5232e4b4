// "Histogram of Residuals": the residuals in classes, under the normal curve they should follow.
#pragma once

#include "displays/graph_display.h"
#include "graphs/histogram_bars.h"
#include "graphs/normal_curve.h"
#include "graphs/plot_bar.h"
#include "platform/graph/graph.h"

namespace tolmer {

class frmResidHist : public GraphDisplay {
 public:
  frmResidHist(Desktop& desktop, AnalysisState& state, DisplayHost& host);

  Graph gphResidHist{this, "gphResidHist"};

 protected:
  void drawDisplay() override;

 private:
  // An axis that holds the residuals and the extremes of a normal sample of that size.
  void ScaleResids();
  void DrawHistogram();
  void OverlayNormalDist();
  NormalCurve normalCurve() const;
  std::string description() const;

  PlotBar mobjPlotBar;
  Int16 miXTicks = 0;  // steps of the horizontal axis
  float msXMin = 0;    // its least value, without the shift
  float msXStep = 1;
};

}  // namespace tolmer
