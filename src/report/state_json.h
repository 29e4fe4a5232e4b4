// The numbers of an analysis as JSON.
#pragma once

#include "report/json_writer.h"
#include "state/analysis_state.h"

namespace tolmer {

// One object with the state's own names. Arrays begin at the state's element 1, except tVarName,
// which begins at "Intercept".
void writeState(JsonWriter& json, const AnalysisState& state);

}  // namespace tolmer
