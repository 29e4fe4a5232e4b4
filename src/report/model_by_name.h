// The model of a command line, told by the names of variables.
#pragma once

#include <optional>

#include "base/error.h"
#include "data/working_copy.h"
#include "report/options.h"

namespace tolmer {

// Takes the options' variables as the model of the data set, predictors ascending, and its
// intercept. Without --y the dependent variable stays what it is, without --x all other variables
// are predictors. The error is one of the command line.
std::optional<Error> chooseModelByName(WorkingCopy& copy, const ReportOptions& options);

}  // namespace tolmer
