// The axes of the scatter plots, told by the names of variables.
#pragma once

#include <vector>

#include "base/error.h"
#include "data/working_copy.h"
#include "report/options.h"

namespace tolmer {

// The choices of one scatter plot as the control panel's lists count them: 0 the dependent
// variable, 1 to K the predictors, K + 1 the fitted values, K + 2 on X the order of entry and on Y
// the residuals.
struct PlotAxes {
  int plot = 0;
  Int16 x = 0;
  Int16 y = 0;
};

// For a data set with its model. A variable of the model goes before the word "Fitted", "Residuals"
// or "Entry" of the same letters. The error is one of the command line and lists what there is.
Result<std::vector<PlotAxes>> plotAxesByName(const WorkingCopy& copy,
                                             const std::vector<PlotRequest>& requests);

}  // namespace tolmer
