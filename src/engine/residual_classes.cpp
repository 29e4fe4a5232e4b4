#include "engine/residual_classes.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "base/portable_math.h"

namespace tolmer {

void SortResiduals(AnalysisState& state) {
  std::vector<float>& resid = state.sSortedResid;
  resid = state.Fit.sResid;
  const int n = state.iNumCases;
  // What lies below is in order already, so the first pair that needs no exchange ends the pass;
  // a NaN is in no order, and then every pair is compared.
  const bool ordered = std::none_of(resid.begin(), resid.end(), [](float r) { return r != r; });
  for (int gap = n / 2; gap > 0; gap /= 2)
    for (int i = 1; i <= n - gap; ++i)
      for (int j = i; j >= 1; j -= gap) {
        if (resid[j] > resid[j + gap]) {
          std::swap(resid[j], resid[j + gap]);
          state.tSortedResidLabel[j].swap(state.tSortedResidLabel[j + gap]);
        } else if (ordered) {
          break;
        }
      }
}

void SetResidClasses(AnalysisState& state) {
  const int n = state.iNumCases;
  const int classes =
      std::max(4, static_cast<int>(portable::log(std::max(n, 1)) / portable::log(2) + 1.5));
  state.iNumResidClasses = static_cast<Int16>(classes);
  const float lowest = state.sSortedResid[1];
  const float width = (state.sSortedResid[n] - lowest) / static_cast<float>(classes);
  for (int j = 1; j <= classes; ++j)
    state.sResidClassLimit[j] = lowest + static_cast<float>(j - 1) * width;
  const double range = double{width} * classes;
  state.sResidClassLimit[classes + 1] = static_cast<float>(lowest + range * 1.0001);
}

int residClassOf(const AnalysisState& state, float sResid) {
  const auto& limit = state.sResidClassLimit;
  if (!(limit[1] <= sResid && sResid < limit[state.iNumResidClasses + 1])) return 0;
  int j = 1;
  while (sResid >= limit[j + 1]) ++j;
  return j;
}

int stdResidClassOf(const AnalysisState& state, float sResid) {
  if (state.Fit.sStdErr == 0) return 0;
  const float z = sResid / state.Fit.sStdErr;
  if (z != z) return 0;
  return static_cast<int>(std::clamp(std::floor(z) + 5, 1.0F, 8.0F));
}

void FreqTallyDec(AnalysisState& state, MessagePort& messages) {
  state.iResidClassCount.fill(0);
  state.iResidOutside = 0;
  for (int i = 1; i <= state.iNumCases; ++i) {
    const int j = residClassOf(state, state.sSortedResid[i]);
    ++(j == 0 ? state.iResidOutside : state.iResidClassCount[j]);
  }
  if (state.iResidOutside == 0) return;
  const std::string lie = state.iResidOutside == 1
                              ? " One residual lies "
                              : " " + std::to_string(state.iResidOutside) + " residuals lie ";
  messages.messageBox({"", "Warning:" + lie + "outside the histogram classes in FreqTallyDec.",
                       MessageIcon::exclamation});
}

void TallyStdResids(AnalysisState& state) {
  state.iStdResidClassCount.fill(0);
  state.iStdResidOutside = 0;
  for (int i = 1; i <= state.iNumCases; ++i)
    if (const int j = stdResidClassOf(state, state.sSortedResid[i]); j > 0)
      ++state.iStdResidClassCount[j];
  state.iStdResidOutside =
      static_cast<Int16>(state.iStdResidClassCount[1] + state.iStdResidClassCount[8]);
}

}  // namespace tolmer
