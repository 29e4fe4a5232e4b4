// What is to be known of selected cases and of the fit without them, and what of all cases.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "secondfit/second_fit.h"
#include "state/analysis_state.h"
#include "tables/table_content.h"

namespace tolmer {

struct CaseAccount {
  // Of one case a row for each of its numbers, with its place among all cases in words; of several
  // a row for each of them.
  TableContent values;
  std::vector<std::string> sentences{};  // on the fit without them, at least one
  // A row for each term, then standard error and R-squared, with all cases and without these; of no
  // size after a failed fit.
  TableContent without{};
};

// Cases count from 1, in rising order, at least one. `fit` is that of the state's model, null where
// there is no valid one. Fits again at once.
CaseAccount accountOf(const AnalysisState& state, const ModelData& data, const SecondFit* fit,
                      std::span<const int> cases);

struct AllCases {
  std::string spread;     // whether the residuals spread evenly, one sentence
  std::string leverages;  // the largest of them, two sentences
  std::vector<int>
      farthest{};  // of a leverage above twice the mean, or else the largest one's; rising
};
AllCases onAllCases(const AnalysisState& state, const ModelData& data, const SecondFit* fit);

}  // namespace tolmer
