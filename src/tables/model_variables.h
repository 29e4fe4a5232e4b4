// The variables of the model as the tables list them: the dependent one first, counted from 1.
#pragma once

#include <string>

#include "state/analysis_state.h"

namespace tolmer {

// How many there are. 0 before the first analysis, and while the record has room for another model
// only.
int listedVariables(const AnalysisState& state);

// The short name of the variable; 1 <= variable <= listedVariables.
const std::string& variableName(const AnalysisState& state, int variable);

}  // namespace tolmer
