// The variables of the model by their places in iModelCol: 1 the dependent one, then the
// predictors.
#pragma once

#include <string>

#include "state/analysis_state.h"

namespace tolmer {

// Whether the arrays of the analysis have the bounds of the present data and model: not before the
// first analysis, nor while another model waits for its own or is being analysed. A display has
// nothing to show then.
bool isAnalysed(const AnalysisState& state);

// How many variables there are to list: K + 1, or 0 unless isAnalysed.
int listedVariables(const AnalysisState& state);

// The short name of the variable; 1 <= variable <= K + 1.
const std::string& variableName(const AnalysisState& state, int variable);

}  // namespace tolmer
