#include "engine/least_squares.h"

#include <cmath>
#include <limits>

#include "engine/distributions.h"
#include "engine/product_sums.h"
#include "engine/triangular_factor.h"
#include "engine/triangular_inverse.h"

namespace tolmer {
namespace {

constexpr float noTestF = 999.999F;  // an F that stands where there is nothing to test

struct SquareSums {
  double SSR = 0;
  double SSE = 0;
  double SST = 0;
};

// Stores fitted values and residuals; the sum of the observed values comes back, SSE is added to.
double storeFittedValues(const Matrix<float>& sX, std::span<const Int16> iCols, int n, int k,
                         tolmer::Fit& Fit, double& SSE) {
  double sumY = 0;
  for (int i = 1; i <= n; ++i) {
    double fitted = 0;
    for (int j = 1; j <= k; ++j) fitted += double{Fit.sCoef[j]} * sX(i, iCols[j]);
    Fit.sFitted[i] = static_cast<float>(fitted);
    const float observed = sX(i, iCols[k + 1]);
    sumY += observed;
    Fit.sResid[i] = observed - Fit.sFitted[i];
    SSE += double{Fit.sResid[i]} * Fit.sResid[i];
  }
  return sumY;
}

SquareSums squareSums(const Matrix<float>& sX, std::span<const Int16> iCols, int n, int k,
                      tolmer::Fit& Fit) {
  SquareSums sums;
  const double meanY = storeFittedValues(sX, iCols, n, k, Fit, sums.SSE) / n;
  for (int i = 1; i <= n; ++i) {
    const double explained = Fit.sFitted[i] - meanY;
    const double total = sX(i, iCols[k + 1]) - meanY;
    sums.SSR += explained * explained;
    sums.SST += total * total;
  }
  return sums;
}

// In place and row by row, since the rest of the upper triangle is still the inverse factor.
void diagonalVariances(Matrix<float>& sVarCov, int k) {
  for (int i = 1; i <= k; ++i) {
    double sum = 0;
    for (int m = i; m <= k; ++m) {
      sum += double{sVarCov(i, m)} * sVarCov(i, m);
      sVarCov(i, m) = 0;
    }
    sVarCov(i, i) = static_cast<float>(sum);
  }
}

}  // namespace

Matrix<double> CrossProducts(const Matrix<float>& sX, std::span<const Int16> iCols, int n, int k) {
  return productSums(chosenColumns(sX, iCols, n, k + 1));
}

void CholeskyFactor(Matrix<double>& dCross, int k, bool& bSingular, MessagePort& messages) {
  Matrix<double> dSums(k + 1, k + 1);
  if (factorRows(dCross, dSums, 1, k + 1)) return;
  messages.messageBox({"",
                       "Singular variance-covariance matrix. Check X matrix for duplicate "
                       "variables.",
                       MessageIcon::critical});
  bSingular = true;
}

void InvertTriangular(const Matrix<double>& dCross, int k, Matrix<float>& sVarCov) {
  Matrix<double> dInverse = roomForInverse(k);
  invertColumns(dCross, 1, k, dInverse);
  for (int i = 1; i <= k; ++i)
    for (int j = i; j <= k; ++j) sVarCov(i, j) = static_cast<float>(dInverse(i, j));
}

void Coefficients(const Matrix<double>& dCross, int k, std::vector<float>& sCoef,
                  const Matrix<float>& sVarCov) {
  sumCoefficients(dCross, k, sVarCov, sCoef);
}

void FitStatistics(const Matrix<float>& sX, std::span<const Int16> iCols, int n, int k,
                   tolmer::Fit& Fit, bool bIntercept, MessagePort& messages) {
  const SquareSums sums = squareSums(sX, iCols, n, k, Fit);
  Fit.sStdErr = static_cast<float>(std::sqrt(sums.SSE / (n - k)));
  Fit.sSSE = static_cast<float>(sums.SSE);
  Fit.sSSR = static_cast<float>(sums.SSR);
  Fit.sSST = static_cast<float>(sums.SST);
  Fit.sRSquared = static_cast<float>(sums.SSR / sums.SST);
  Fit.sR = std::sqrt(Fit.sRSquared);
  const int tested = k - (bIntercept ? 1 : 0);
  if (tested < 1) {
    Fit.sF = noTestF;
    Fit.sFProb = std::numeric_limits<float>::quiet_NaN();
    return;
  }
  Fit.sF = static_cast<float>((sums.SSR / tested) / (sums.SSE / (n - k)));
  Fit.sFProb = static_cast<float>(FDist(tested, n - k, Fit.sF, messages));
}

void VarCovStats(tolmer::Fit& Fit, int n, int k, MessagePort& messages) {
  diagonalVariances(Fit.sVarCov, k);
  const float errorVariance = Fit.sStdErr * Fit.sStdErr;
  for (int i = 1; i <= k; ++i) {
    Fit.sVarCov(i, i) *= errorVariance;
    Fit.sCoefSE[i] = std::sqrt(Fit.sVarCov(i, i));
    if (Fit.sCoefSE[i] == 0) {
      messages.messageBox({"", "Zero standard error in VarCovStats.", MessageIcon::critical});
      continue;
    }
    Fit.sCoefT[i] = Fit.sCoef[i] / Fit.sCoefSE[i];
    double p = TDist(n - k, Fit.sCoefT[i], messages);
    if (p > 0.5) p = 1 - p;
    Fit.sCoefP[i] = static_cast<float>(2 * p);
  }
}

void MultipleRegression(const Matrix<float>& sX, std::span<const Int16> iCols, int k, int n,
                        tolmer::Fit& Fit, bool bIntercept, MessagePort& messages) {
  Fit.bSingular = n <= k;
  if (Fit.bSingular) {
    messages.messageBox({"", "Too few cases for this model.", MessageIcon::exclamation});
    return;
  }
  Matrix<double> dCross = CrossProducts(sX, iCols, n, k);
  CholeskyFactor(dCross, k, Fit.bSingular, messages);
  if (Fit.bSingular) return;
  InvertTriangular(dCross, k, Fit.sVarCov);
  Coefficients(dCross, k, Fit.sCoef, Fit.sVarCov);
  FitStatistics(sX, iCols, n, k, Fit, bIntercept, messages);
  VarCovStats(Fit, n, k, messages);
}

void DurbinWatson(AnalysisState& state) {
  double sum = 0;
  for (int i = 2; i <= state.iNumCases; ++i) {
    const double step = double{state.Fit.sResid[i]} - state.Fit.sResid[i - 1];
    sum += step * step;
  }
  state.Fit.sDurbinWatson = static_cast<float>(sum) / state.Fit.sSSE;
}

float adjustedRSquared(const AnalysisState& state) {
  const int degrees = state.iNumCases - state.iNumTerms;
  if (degrees == 0) return std::numeric_limits<float>::quiet_NaN();
  const float unexplained = 1.0F - state.Fit.sRSquared;
  const float scaled = unexplained * static_cast<float>(state.iNumCases - 1);
  return 1.0F - scaled / static_cast<float>(degrees);
}

}  // namespace tolmer
