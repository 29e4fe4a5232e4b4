// What the model says of cases that are not among the data.
#pragma once

#include <string>
#include <vector>

#include "base/error.h"
#include "secondfit/second_fit.h"

namespace tolmer {

// Values of predictors by name, in any order; other columns are not looked at.
struct NewCases {
  std::vector<std::string> names;         // (m)
  std::vector<std::vector<double>> rows;  // of (m) values, in the units of the data; not a number
                                          // where a value is missing
};

struct PredictedCase {
  Prediction prediction;             // not numbers where a value is missing
  std::vector<std::string> outside;  // predictors outside their range in the data
  bool extrapolates = false;         // the leverage exceeds the largest of the data
  std::string words;                 // on both, "" where the case lies within the data
};

// Needs a fit with Extent::all. Values are taken as they are given: round them to singles, as data
// are held, where they are to be compared with data. The error names the predictors that are
// missing.
Result<std::vector<PredictedCase>> predictCases(const ModelData& data, const SecondFit& fit,
                                                const NewCases& cases);

// All predictors of the model with one case: their means.
NewCases casesAtMeans(const ModelData& data);

}  // namespace tolmer
