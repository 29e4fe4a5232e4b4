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
// count. Labels lie beside one another along a side of that length, or one below the other, where
// their middles need that distance.
void thinLabelsBeside(AxisMarks& marks, double pixels, double length);
void thinLabelsBelow(AxisMarks& marks, double distance, double length);

// Distances of labels one below the other, in parts of the font size; names of bars may move closer
// where room is short. Letters cover 0.92 of it.
inline constexpr double leastLinePitch = 1.1;
inline constexpr double leastPitchOfNames = 0.95;

}  // namespace tolmer
