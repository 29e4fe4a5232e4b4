// Numbers that the course's texts quote and no display shows: influence, predictions, groups of
// predictors, variables computed by formulas of the data editor.
#pragma once

#include <optional>
#include <string>

#include "figures/course_model.h"

namespace tolmer {

// The number of a claim of kind "fit", by the second fit. Variables of the model may be formulas as
// in the data editor ("=LN(Ozone)"), and the last independent ones "without NAME", for a case left
// out, or "first N", for the only cases taken. `row` and `column` are told at the head of
// course/claims.txt. Nothing where there is no such row or column.
std::optional<double> fittedNumber(const CourseModel& model, const std::string& row,
                                   const std::string& column, const std::string& dataFolder);

// The value of a formula without cells.
std::optional<double> computedNumber(const std::string& formula);

}  // namespace tolmer
