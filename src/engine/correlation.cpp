#include "engine/correlation.h"

#include <cmath>
#include <limits>

#include "engine/product_sums.h"

namespace tolmer {
namespace {

double quotient(double sum, double divisor) {
  return divisor == 0 ? std::numeric_limits<double>::quiet_NaN() : sum / divisor;
}

Matrix<double> deviations(const AnalysisState& state, int variables) {
  Matrix<double> values = chosenColumns(state.sData, state.iModelCol, state.iNumCases, variables);
  for (int c = 1; c <= state.iNumCases; ++c)
    for (int i = 1; i <= variables; ++i) values(c, i) -= state.dDescStat(1, i);
  return values;
}

double mean(std::span<const float> values, int n) {
  double sum = 0;
  for (int c = 1; c <= n; ++c) sum += values[c];
  return sum / n;
}

}  // namespace

void CorrelationMatrix(AnalysisState& state) {
  const int variables = state.iNumPredictors + 1;
  const Matrix<double> sums = productSums(deviations(state, variables));
  for (int i = 1; i <= variables; ++i)
    for (int j = 1; j <= i; ++j) {
      const double spread = state.dDescStat(2, i) * state.dDescStat(2, j);
      const auto r = static_cast<float>(quotient(sums(j, i) / state.iNumCases, spread));
      state.sCorr(i, j) = r;
      state.sCorr(j, i) = r;
    }
}

float Correlation(std::span<const float> sX, std::span<const float> sY, int n) {
  const double meanX = mean(sX, n);
  const double meanY = mean(sY, n);
  double Sxx = 0;
  double Syy = 0;
  double Sxy = 0;
  for (int c = 1; c <= n; ++c) {
    const double x = sX[c] - meanX;
    const double y = sY[c] - meanY;
    Sxx += x * x;
    Syy += y * y;
    Sxy += x * y;
  }
  return static_cast<float>(quotient(Sxy, std::sqrt(Sxx) * std::sqrt(Syy)));
}

}  // namespace tolmer
