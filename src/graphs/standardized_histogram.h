// "Histogram of Standardized Residuals": eight classes, each one standard error wide, under the
// standard normal curve.
#pragma once

#include "displays/graph_display.h"
#include "graphs/histogram_bars.h"
#include "graphs/normal_curve.h"
#include "graphs/plot_bar.h"
#include "platform/graph/graph.h"

namespace tolmer {

class frmStdResidHist : public GraphDisplay {
 public:
  frmStdResidHist(Desktop& desktop, AnalysisState& state, DisplayHost& host);

  Graph gphStdResidHist{this, "gphStdResidHist", GraphDesign{{200, 100, 100, 100}, false, {}}};

 protected:
  void drawDisplay() override;

 private:
  void DrawHistogram();
  void OverlayNormalDist();
  NormalCurve normalCurve() const;
  std::string description() const;

  PlotBar mobjPlotBar;
};

}  // namespace tolmer
