// The descriptive statistics of the model's variables.
#pragma once

#include <string>
#include <vector>

#include "state/analysis_state.h"
#include "tables/table_content.h"

namespace tolmer {

// In units of the variable.
struct VariableSummary {
  std::string tName;
  double dMean = 0;
  double dPopulationSD = 0;  // divisor n
  double dSampleSD = 0;      // divisor n - 1; not a number for a single case
  double dMin = 0;
  double dMax = 0;
  VarType iType = hasFractions;
  std::string tFormat;  // the picture that shows the variable's data
};

// The dependent variable first.
std::vector<VariableSummary> variableSummaries(const AnalysisState& state);

// A word for the size of a range: "Huge" above 100,000, "Large" above 10,000, "Medium" above 10,
// "Small" above 0.1, else "Tiny". The logarithm that decides is a single, so that a range of 0.1,
// which no binary number is, is "Tiny". A range of 0 counts as 1.
const char* rangeWord(double dRange);

// Heads and one row a variable.
TableContent descriptionTable(const AnalysisState& state);

}  // namespace tolmer
