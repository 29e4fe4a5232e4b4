// Made-up data sets for whole analyses.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

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

// Columns as in the rows, the last one the dependent variable.
inline AnalysisState modelOf(const std::vector<std::vector<float>>& rows, bool intercept = true) {
  AnalysisState state =
      emptyModel(static_cast<int>(rows.size()), static_cast<int>(rows[0].size()) - 1, intercept);
  for (int c = 1; c <= state.iNumCases; ++c)
    for (int j = 1; j <= state.iNumCols; ++j)
      state.sData(c, j) = rows[static_cast<std::size_t>(c) - 1][static_cast<std::size_t>(j) - 1];
  return state;
}

// Heat of hardening of 13 cements from the shares of four compounds: H. Woods, H. H. Steinour and
// H. R. Starke, Industrial and Engineering Chemistry 24, 1932, 1207-1214.
inline AnalysisState cementModel(bool intercept = true) {
  return modelOf({{7, 26, 6, 60, 78.5F},
                  {1, 29, 15, 52, 74.3F},
                  {11, 56, 8, 20, 104.3F},
                  {11, 31, 8, 47, 87.6F},
                  {7, 52, 6, 33, 95.9F},
                  {11, 55, 9, 22, 109.2F},
                  {3, 71, 17, 6, 102.7F},
                  {1, 31, 22, 44, 72.5F},
                  {2, 54, 18, 22, 93.1F},
                  {21, 47, 4, 26, 115.9F},
                  {1, 40, 23, 34, 83.8F},
                  {11, 66, 9, 12, 113.3F},
                  {10, 68, 8, 12, 109.4F}},
                 intercept);
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
