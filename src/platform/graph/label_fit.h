// Labels that keep clear of one another and of the edges.
#pragma once

#include <string>

#include "platform/graph/plot_axes.h"

namespace tolmer {

// In view units, in the font of graphs.
double labelWidth(const std::string& label, double pixels);
double widestLabel(const AxisMarks& marks, double pixels);

// The text cut to that width, in whole characters with an ellipsis at the end; unchanged if it
// fits.
std::string fitText(const std::string& text, double pixels, double width);

// Blanks as many labels as it takes: those stay whose number is a multiple of the least possible
// count. Labels lie beside one another along a side of that length, or one below the other.
void thinLabelsBeside(AxisMarks& marks, double pixels, double length);
void thinLabelsBelow(AxisMarks& marks, double pixels, double length);

// Labels one below the other need this distance of their middles, in parts of the font size.
inline constexpr double leastLinePitch = 1.1;

}  // namespace tolmer
