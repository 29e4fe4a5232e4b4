// A fit in plain English, by fixed rules.
#pragma once

#include <string>
#include <vector>

#include "state/analysis_state.h"

namespace tolmer {

struct Section {
  std::string heading;  // in capitals
  std::string text;     // one paragraph
};

// Three sections. After a failed fit they speak of data and VIFs alone; none before the first fit.
std::vector<Section> interpretation(const AnalysisState& state);

// Headings and paragraphs on lines of their own, with an empty line between the sections; line ends
// are "\r\n".
std::string wholeText(const std::vector<Section>& sections);

// The texts of the sections.
// The equation, the number of cases for each predictor, the explained variation, outliers.
std::string fittedModelText(const AnalysisState& state);
// Variables whose largest magnitude lies above 10,000 or below 0.1, and how to rescale them.
// Dummies and a variable that is zero throughout are left alone.
std::string dataConditioningText(const AnalysisState& state);
// The largest variance inflation factor and the sum of all.
std::string varianceInflationText(const AnalysisState& state);

}  // namespace tolmer
