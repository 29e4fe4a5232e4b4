// "Scatter Plot 1" to "Scatter Plot 3": the pair of axes that the control panel has chosen, as a
// scatter plot or, over the order of entry, as a line through all cases.
#pragma once

#include <string>

#include "displays/graph_display.h"
#include "engine/axis_scale.h"
#include "platform/graph/graph.h"

namespace tolmer {

class frmScatterPlot final : public GraphDisplay {
 public:
  // iNumber is 1 to 3. The new plot is the one that the control panel edits.
  frmScatterPlot(Desktop& desktop, AnalysisState& state, DisplayHost& host, int iNumber);

  void UpdateControls() override;

  Graph gphScatter{this, "gphScatter", GraphDesign{{200, 150, 100, 100}, true, "+3SE"}};

 protected:
  // Draws the axes of the plot that the control panel edits, iCurrentPlot, which was activated
  // last; that may be another plot than this one.
  void drawDisplay() override;

 private:
  struct Range {
    float sLow;
    float sHigh;
  };

  void takeChoices();
  // The range of the fitted values.
  void FindYHatMax();
  void DrawScatterPlot();
  void DrawTimePlot();
  // The zero line of residuals and their bands at three standard errors.
  void DrawHorizontalAxis();
  void drawBand(double dStdErrs, const char* tText);
  // Where a residual stands, in view units.
  double viewHeight(double dResidual) const;
  void ShowCorr();
  void ShowAutoCorr();

  // A plot begins without anything of the former one.
  void beginPlot(GraphType type, int iSymbol);
  void scaleVertically();
  float scaleHorizontally();  // returns the shift
  // Least and largest value of what stands on an axis, by its choice.
  Range rangeOf(int iChoice) const;

  const Int16 miNumber;
  Int16 miXChoice = 0;  // list indices, see axis_choice.h
  Int16 miYChoice = 0;
  Int16 miXCol = 1;  // places in iModelCol and in the tables in its order
  Int16 miYCol = 1;
  float msYHatMin = 0;
  float msYHatMax = 0;
  float msYShift = 0;
};

}  // namespace tolmer
