#include "engine/durbin_watson.h"

namespace tolmer {

void DurbinWatson(AnalysisState& state) {
  double sum = 0;
  for (int i = 2; i <= state.iNumCases; ++i) {
    const double step = double{state.Fit.sResid[i]} - state.Fit.sResid[i - 1];
    sum += step * step;
  }
  state.Fit.sDurbinWatson = static_cast<float>(sum) / state.Fit.sSSE;
}

}  // namespace tolmer
