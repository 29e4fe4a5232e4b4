// The numbers in the captions of scatter and order plots. Choices are those of axis_choice.h.
#pragma once

#include <optional>

#include "state/analysis_state.h"

namespace tolmer {

// Of what stands on the two axes; NaN where one of them has no spread. The residuals are
// uncorrelated with the predictors and the fit, so that is not computed but 0, whatever rounding
// left. Nothing for the order of entry.
std::optional<float> plotCorrelation(const AnalysisState& state, int iXChoice, int iYChoice);

// What a series in order of entry is seen to swing about: the mean of a variable or of the fitted
// values, and zero for the residuals.
double centreOf(const AnalysisState& state, int iYChoice);

// Lag-one autocorrelation about that centre, in order of entry; NaN where no value departs from it.
float plotAutocorrelation(const AnalysisState& state, int iYChoice);

}  // namespace tolmer
