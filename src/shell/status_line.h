// What the main window says of the analysis in the line below the quadrants.
#pragma once

#include <string>

#include "state/analysis_state.h"

namespace tolmer {

// "stakloss · 21 of 21 cases · StackLoss on AirFlow and WaterTemp"; empty before the first fit.
std::string statusLine(const AnalysisState& state);

// So long the line says what has just happened instead: milliseconds.
inline constexpr int wordsStay = 8000;

}  // namespace tolmer
