#include "graphs/plot_correlation.h"

#include <cstddef>
#include <limits>
#include <vector>

#include "engine/correlation.h"
#include "graphs/axis_choice.h"

namespace tolmer {

std::optional<float> plotCorrelation(const AnalysisState& state, int iXChoice, int iYChoice) {
  const int K = state.iNumPredictors;
  if (iXChoice == iYChoice) return 1.0F;
  if (iXChoice <= K && iYChoice <= K) return state.sCorr(iXChoice + 1, iYChoice + 1);
  if (isEntryOrder(state, iXChoice)) return std::nullopt;
  if (isResiduals(state, iYChoice) && iXChoice >= 1) return 0.0F;
  return Correlation(chosenValues(state, iXChoice), chosenValues(state, iYChoice), state.iNumCases);
}

double centreOf(const AnalysisState& state, int iYChoice) {
  if (isResiduals(state, iYChoice)) return 0;
  if (!isFitted(state, iYChoice)) return state.dDescStat(1, iYChoice + 1);
  double sum = 0;
  for (int t = 1; t <= state.iNumCases; ++t) sum += state.Fit.sFitted[static_cast<std::size_t>(t)];
  return sum / state.iNumCases;
}

float plotAutocorrelation(const AnalysisState& state, int iYChoice) {
  const std::vector<float> values = chosenValues(state, iYChoice);
  const double centre = centreOf(state, iYChoice);
  double products = 0;
  double squares = 0;
  double before = 0;
  for (int t = 1; t <= state.iNumCases; ++t) {
    const double deviation = values[static_cast<std::size_t>(t)] - centre;
    products += deviation * before;
    squares += deviation * deviation;
    before = deviation;
  }
  if (squares == 0) return std::numeric_limits<float>::quiet_NaN();
  return static_cast<float>(products / squares);
}

}  // namespace tolmer
