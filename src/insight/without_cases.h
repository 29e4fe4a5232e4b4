// The same model without some of the cases.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "insight/model_comparison.h"
#include "secondfit/second_fit.h"

namespace tolmer {

// Cases count from 1, in any order; one that is named twice is left out once.
ModelData dataWithout(const ModelData& data, std::span<const int> cases);

struct WithoutCases {
  SecondFit fit;  // to the other cases, Extent::shownNumbers; not determined where they are too few
                  // or no longer tell the terms apart
  std::vector<TermChange> terms;
  std::vector<std::string> sentences;  // one where there is no fit, else two
};

// Fits again at once; `fit` is that of all the data. `labels` are those of all cases, empty where
// the data have none.
WithoutCases refitWithout(const ModelData& data, const SecondFit& fit, std::span<const int> cases,
                          std::span<const std::string> labels = {});

}  // namespace tolmer
