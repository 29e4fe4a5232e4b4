// The fitted model in words.
#pragma once

#include <string>

#include "state/analysis_state.h"

namespace tolmer {

// "Name = b0 + b1 Name - b2 Name. " from the terms and coefficients of the last fit: the dependent
// variable's short name, each coefficient in a picture of its own. A coefficient of exactly zero
// carries a minus sign, but not in first place. After a failed fit it says that there is none.
std::string fittedEquation(const AnalysisState& state);

}  // namespace tolmer
