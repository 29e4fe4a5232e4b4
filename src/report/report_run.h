// One analysis by the program's own state and pipeline.
#pragma once

#include <vector>

#include "base/message_box.h"
#include "data/working_copy.h"
#include "report/model_by_name.h"
#include "state/analysis_state.h"

namespace tolmer {

// The analysis of a data set with its model. Options of the scatter plots are those that the
// program starts with, and so are the axes of the plots that `axes` does not name.
AnalysisState analysisOf(WorkingCopy copy, MessagePort& messages,
                         const std::vector<ChosenAxes>& axes = {});

}  // namespace tolmer
