// "Normality Plot for Residuals": each residual against what it should be in a normal sample.
#pragma once

#include <vector>

#include "displays/graph_display.h"
#include "platform/graph/graph.h"

namespace tolmer {

class frmProbPlot final : public GraphDisplay {
 public:
  frmProbPlot(Desktop& desktop, AnalysisState& state, DisplayHost& host);

  Graph gphProbPlot{this, "gphProbPlot"};

 protected:
  void drawDisplay() override;

 private:
  // One scale for both axes, so that equal values meet on the diagonal.
  void ScaleAxis();
  void DrawScatter();
  void OverlayDiagonal();
  // (1..iNumCases) normal quantiles of (i - 1/2) / n, in units of the residuals.
  std::vector<float> expectedResiduals() const;
  std::string description() const;

  // Of both axes: the least value, without the shift, and the steps from there.
  float msXMin = 0;
  float msXStep = 1;
  Int16 miXTicks = 0;
};

}  // namespace tolmer
