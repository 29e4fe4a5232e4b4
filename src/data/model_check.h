// Is the model in the designer another one than that in force, and can it be fitted?
#pragma once

#include "data/working_copy.h"
#include "state/analysis_state.h"

namespace tolmer {

// Sets mbModelHasChanged where the working copy differs from the shared state in intercept, sizes,
// files, flags, label heading, model, labels or any value. Names and definitions of variables do
// not count. Values are compared because data of the editor all carry the same file name.
void CheckForChanges(WorkingCopy& copy, const AnalysisState& state);

// Sets mbModelOK, and mtErrorMessage to one sentence with a blank behind it for each thing that is
// missing. Degrees of freedom are counted as with an intercept, whether there is one or not.
void CheckModelSpec(WorkingCopy& copy);

}  // namespace tolmer
