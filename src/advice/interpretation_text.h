// A fit in plain English, by fixed rules.
#pragma once

#include <string>

#include "state/analysis_state.h"

namespace tolmer {

// Three sections, each a heading in capitals on a line of its own and one paragraph, with an empty
// line between them; line ends are "\r\n". After a failed fit it speaks of the numbers that the
// record holds; empty before the first fit.
std::string interpretation(const AnalysisState& state);

// The sections without their headings.
// The equation, the number of cases for each predictor, the explained variation, outliers.
std::string fittedModelText(const AnalysisState& state);
// Variables whose largest magnitude lies above 10,000 or below 0.1, and how to rescale them.
// Dummies and a variable that is zero throughout are left alone.
std::string dataConditioningText(const AnalysisState& state);
// The largest variance inflation factor and the sum of all.
std::string varianceInflationText(const AnalysisState& state);

}  // namespace tolmer
