// Between the designer's working copy and the shared analysis state.
#pragma once

#include "data/working_copy.h"
#include "state/analysis_state.h"

namespace tolmer {

// Accepts the model: data and model go into the shared state, whose data arrays are dimensioned
// anew, and bModelHasChanged is set.
void CopyModuleVarsToGlobal(const WorkingCopy& copy, AnalysisState& state);

// Takes the data and the model in force, for a change of the model alone. Where none is in force
// the copy is empty, as for no data.
void CopyGlobalVarsToModule(WorkingCopy& copy, const AnalysisState& state);

}  // namespace tolmer
