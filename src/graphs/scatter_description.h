#pragma once

#include <string>

#include "state/analysis_state.h"

namespace tolmer {

// What a scatter or order plot shows, in two sentences. Choices are those of axis_choice.h.
std::string scatterDescription(const AnalysisState& state, int iXChoice, int iYChoice);

}  // namespace tolmer
