// Where the plot area of a graph lies, how large its texts are and which labels there is room for:
// pure functions of settings and size. The figures were found by drawing at 480 x 280 to
// 1920 x 1000 and looking.
#pragma once

#include <array>
#include <string>

#include "platform/graph/axis_ticks.h"
#include "platform/graph/graph_settings.h"
#include "platform/graph/picture.h"

namespace tolmer {

struct GraphLayout {
  ViewSize view;
  ViewRect plot;                        // whole units
  double headroom = 0;                  // above the plot area, open to lines drawn on top
  bool hasText = false;                 // False where the plot would be too small to read anyway
  double textPixels = 0;                // text at 100 percent
  std::array<double, 4> classPixels{};  // sizes of the text classes
  double leftLabelPixels = 0;           // names of bars shrink to fit, other labels do not
  double tickLength = 0;                // tick marks point outward
  double gap = 0;                       // between tick mark, label and title
  double pad = 0;                       // between the titles and the edge of the view
  PlotAxes axes;                        // with the labels that fit, the others blank

  double axisTitlePixels() const { return classPixels[1]; }
  double tickLabelPixels() const { return classPixels[2]; }
};

GraphLayout layOut(const GraphSettings& settings, const GraphDesign& design, ViewSize view);

// Base line of a tick label that is centred on a height.
double centredBaseline(double y, double pixels);

// In view units, in the font of graphs.
double labelWidth(const std::string& label, double pixels);

// The text cut to that width, in whole characters with an ellipsis at the end; unchanged if it
// fits.
std::string fitText(const std::string& text, double pixels, double width);

}  // namespace tolmer
