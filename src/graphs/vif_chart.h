// "Variance Inflation Factors": a bar for each predictor, on a logarithmic scale.
#pragma once

#include <string>

#include "displays/graph_display.h"
#include "platform/graph/graph.h"

namespace tolmer {

class frmVIFPlot final : public GraphDisplay {
 public:
  frmVIFPlot(Desktop& desktop, AnalysisState& state, DisplayHost& host);

  Graph gphVIF{this, "gphVIF", GraphDesign{{200, 100, 100, 100}, false, {}, true}};

 protected:
  void drawDisplay() override;

 private:
  void DrawVIFBarChart();
  void OverlayReferenceLines();
  // Length of a predictor's bar on the scale of logarithms to base 10.
  double barLength(int iPredictor) const;
  const std::string& predictorName(int iPredictor) const;
  std::string description() const;
};

}  // namespace tolmer
