// Models and axes of a command line, told by the names of variables.
#pragma once

#include <optional>
#include <vector>

#include "base/error.h"
#include "data/working_copy.h"
#include "report/options.h"

namespace tolmer {

// Takes the options' variables as the model of the data set, predictors ascending, and its
// intercept. Without --y the dependent variable stays what it is, without --x all other variables
// are predictors. The error is one of the command line.
std::optional<Error> chooseModelByName(WorkingCopy& copy, const ReportOptions& options);

// The choices of one scatter plot as the control panel's lists count them: 0 the dependent
// variable, 1 to K the predictors, K + 1 the fitted values, K + 2 on X the order of entry and on Y
// the residuals.
struct ChosenAxes {
  int plot = 0;
  Int16 x = 0;
  Int16 y = 0;
};

// For a data set with its model. A variable of the model goes before the word "Fitted", "Residuals"
// or "Entry" of the same letters. The error is one of the command line and lists what there is.
Result<std::vector<ChosenAxes>> chooseAxesByName(const WorkingCopy& copy,
                                                 const std::vector<PlotRequest>& requests);

}  // namespace tolmer
