// A model of one of the course's data sets, as lists write it down.
#pragma once

#include <string>
#include <vector>

#include "base/error.h"
#include "data/working_copy.h"

namespace tolmer {

struct CourseModel {
  std::string dataSet;         // "stakloss" for stakloss.csv
  std::string y;               // dependent variable
  std::vector<std::string> x;  // independent variables; empty for all others
  bool intercept = true;

  friend auto operator<=>(const CourseModel&, const CourseModel&) = default;
};

// From three fields of a list: the data set, the dependent variable, and the independent ones
// divided by commas or "all". The last of them may be "no intercept".
CourseModel courseModel(const std::string& dataSet, const std::string& y, std::string_view x);

// The data set out of that folder (with its separator) with the model chosen. A first column that
// does not hold numbers names the cases.
Result<WorkingCopy> modelledData(const CourseModel& model, const std::string& dataFolder);

}  // namespace tolmer
