// Made-up data sets for whole analyses.
#pragma once

#include <cstdint>
#include <string>

#include "state/analysis_state.h"

namespace tolmer {

// Numbers from -0.5 to 0.5 that are the same on every machine.
class SteadyNoise {
 public:
  explicit SteadyNoise(std::uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15U + 1) {}
  double operator()() {
    state_ = state_ * 6364136223846793005U + 1442695040888963407U;
    return static_cast<double>(state_ >> 11U) / 9007199254740992.0 - 0.5;
  }

 private:
  std::uint64_t state_;
};

// A state ready for ComputeStatistics: the columns 1..predictors, in order, explain the last one.
// sData still holds zeros but for the column of ones.
inline AnalysisState emptyModel(int cases, int predictors, bool intercept = true) {
  AnalysisState state;
  state.iNumCases = static_cast<Int16>(cases);
  state.iNumPredictors = static_cast<Int16>(predictors);
  state.iNumCols = static_cast<Int16>(predictors + 1);
  state.bUseIntercept = intercept;
  RedimDataArrays(state);
  state.iModelCol[1] = static_cast<Int16>(predictors + 1);
  for (int j = 1; j <= predictors; ++j) state.iModelCol[j + 1] = static_cast<Int16>(j);
  state.tVarName[0] = "Intercept";
  for (int j = 1; j <= predictors; ++j) state.tVarName[j] = "X" + std::to_string(j);
  state.tVarName[predictors + 1] = "Y";
  for (int c = 1; c <= cases; ++c) state.sData(c, 0) = 1;
  RedimAnalysisArrays(state);
  return state;
}

// Noisy predictors of different sizes that overlap a little, and a dependent variable with noise.
inline AnalysisState noisyModel(int cases, int predictors, bool intercept = true,
                                std::uint64_t seed = 1) {
  AnalysisState state = emptyModel(cases, predictors, intercept);
  SteadyNoise noise(seed);
  for (int c = 1; c <= cases; ++c) {
    const double common = noise();
    double y = 3 + 4 * noise();
    for (int j = 1; j <= predictors; ++j) {
      const double x = 10 * j + (common + noise()) * (1 + j % 7);
      state.sData(c, j) = static_cast<float>(x);
      y += x * (j % 3 - 1) / 4;
    }
    state.sData(c, predictors + 1) = static_cast<float>(y);
  }
  return state;
}

}  // namespace tolmer
