#include "engine/variance_inflation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "engine/least_squares.h"
#include "engine/number_format.h"
#include "engine/product_sums.h"
#include "engine/triangular_factor.h"
#include "engine/triangular_inverse.h"

namespace tolmer {
namespace {

// The regressions of each predictor on all the others, made together.
//
// Fitted one by one they would repeat nearly all of their arithmetic: the sums of products are the
// same, and so are the rows of the Cholesky factor and the columns of its inverse before the
// predictor that is left out. Only work is shared: each sum adds the same terms in the same order
// as a fit by itself, so the bits are the same.

// K is the number of predictors, which is also that of terms in each fit. Arrays run from 1.
struct AuxiliaryFits {
  std::vector<float> sRSquared;  // (0..K) of each predictor on the others
  // Of the last fit, as they stand when its fitted values are due:
  std::vector<float> sCoef;  // (0..K) coefficients
  Matrix<float> sInverse;    // (0..K+1)^2 inverse of the factor, upper triangle
};

constexpr float noFiniteVIF = 999.999F;

// Terms 1..K: the column of ones, then every predictor whose column is not the i-th variable's.
void chooseAuxiliaryTerms(AnalysisState& state, int i) {
  const int K = state.iNumPredictors;
  const Int16 dependent = state.iModelCol[i];
  state.iTermCol[K + 1] = dependent;
  int term = 1;
  for (int j = 2; j <= K + 1; ++j)
    if (state.iModelCol[j] != dependent) state.iTermCol[++term] = state.iModelCol[j];
}

float inflation(float sRSquared) { return sRSquared < 1 ? 1 / (1 - sRSquared) : noFiniteVIF; }

void fitOneByOne(AnalysisState& state, MessagePort& messages) {
  const int K = state.iNumPredictors;
  for (int i = 2; i <= K + 1; ++i) {
    chooseAuxiliaryTerms(state, i);
    MultipleRegression(state.sData, state.iTermCol, K, state.iNumCases, state.Fit, true, messages);
    state.sVIF[i - 1] = state.Fit.bSingular ? noFiniteVIF : inflation(state.Fit.sRSquared);
  }
}

// The record is left as the last of the fits leaves it.
void takeOver(AnalysisState& state, AuxiliaryFits fits, MessagePort& messages) {
  const int K = state.iNumPredictors;
  for (int i = 1; i <= K; ++i) state.sVIF[i] = inflation(fits.sRSquared[i]);
  chooseAuxiliaryTerms(state, K + 1);
  tolmer::Fit& Fit = state.Fit;
  Fit.bSingular = false;
  Fit.sCoef = std::move(fits.sCoef);
  Fit.sVarCov = std::move(fits.sInverse);
  FitStatistics(state.sData, state.iTermCol, state.iNumCases, K, Fit, true, messages);
  VarCovStats(Fit, state.iNumCases, K, messages);
}

// The column of ones, then the predictors, from element 1.
std::vector<Int16> auxiliaryVariables(const AnalysisState& state) {
  const auto predictors = state.iModelCol.begin() + 2;
  std::vector<Int16> variables = {0, state.iTermCol[1]};
  variables.insert(variables.end(), predictors, predictors + state.iNumPredictors);
  return variables;
}

// Variables 1..V are the column of ones and the K = V - 1 predictors. Fit w leaves variable w out
// of the terms and has it as dependent variable; w runs from 2 to V.

constexpr int lanes = tileSize;  // fits whose sums of squares go side by side

// What all coefficients need before the fitted values of any are due.
struct CoefficientTable {
  CoefficientTable(int variables)
      : dCoef(variables, variables + lanes), leastFactor(static_cast<std::size_t>(variables) + 1) {}

  Matrix<double> dCoef;            // (j, w) coefficient of variable j in fit w, 0 for w itself
  std::vector<float> leastFactor;  // by w: square of the least diagonal element of the inverse
};

// The sums of squares of the fits first .. first + lanes - 1.
struct SquareSums {
  int first = 0;
  std::array<double, lanes> mean{};  // of the dependent variable
  std::array<double, lanes> SSR{};
  std::array<double, lanes> SSE{};
  std::array<double, lanes> SST{};
};

bool allDifferent(std::span<const Int16> columns) {
  std::vector<Int16> sorted(columns.begin() + 1, columns.end());
  std::sort(sorted.begin(), sorted.end());
  return std::adjacent_find(sorted.begin(), sorted.end()) == sorted.end();
}

bool allFinite(const Matrix<double>& dCross) {
  for (int i = 1; i <= dCross.lastRow(); ++i)
    if (!std::isfinite(dCross(i, i))) return false;
  return true;
}

// Row i of the upper triangle of source with variable w moved behind the last one, which makes it
// the dependent variable of the others.
void moveLast(const Matrix<double>& source, int w, int i, Matrix<double>& target) {
  const int last = source.lastRow();
  if (i == last) {
    target(last, last) = source(w, w);
  } else if (i < w) {
    const double* from = source.row(i);
    double* to = target.row(i);
    std::copy(from + i, from + w, to + i);
    std::copy(from + w + 1, from + last + 1, to + w);
    to[last] = from[w];
  } else {
    const double* from = source.row(i + 1);
    std::copy(from + i + 1, from + last + 1, target.row(i) + i);
    target(i, last) = source(w, i + 1);
  }
}

float leastDiagonalSquare(const Matrix<double>& dInverse, int k) {
  float least = std::numeric_limits<float>::infinity();
  for (int i = 1; i <= k; ++i)
    least = std::min(least, static_cast<float>(dInverse(i, i) * dInverse(i, i)));
  return least;
}

void keepCoefficients(std::span<const float> sCoef, int w, CoefficientTable& table) {
  for (int i = 1; i < static_cast<int>(sCoef.size()); ++i)
    table.dCoef(i < w ? i : i + 1, w) = sCoef[i];
}

// The coefficients of all fits; false where one of them meets a pivot that is not positive.
bool fitCoefficients(const Matrix<double>& dCross, CoefficientTable& table, AuxiliaryFits& fits) {
  const int V = dCross.lastRow();
  Matrix<double> dShared = dCross;
  Matrix<double> dSums(V, V);
  if (!factorRows(dShared, dSums, 1, V)) return false;
  Matrix<double> dSharedInverse = roomForInverse(V - 1);
  invertColumns(dShared, 1, V - 1, dSharedInverse);

  Matrix<double> dFactor(V, V);
  Matrix<double> dSharedSums(V, V);  // of the shared rows before w
  addRowProducts(dShared, 1, V, dSharedSums);
  Matrix<double> dInverse = dSharedInverse;
  for (int w = 2; w <= V; ++w) {
    // Rows before w are factored already; the others start from the cross products and from what
    // the rows before w have added to their sums.
    for (int i = 1; i < w; ++i) moveLast(dShared, w, i, dFactor);
    for (int i = w; i <= V; ++i) moveLast(dCross, w, i, dFactor);
    for (int i = w; i <= V; ++i) moveLast(dSharedSums, w, i, dSums);
    if (!factorRows(dFactor, dSums, w, V)) return false;
    // The fit before overwrote the shared column before w.
    for (int i = 1; i < w; ++i) dInverse(i, w - 1) = dSharedInverse(i, w - 1);
    invertColumns(dFactor, w, V - 1, dInverse);
    sumCoefficients(dFactor, V - 1, dInverse, fits.sCoef);
    keepCoefficients(fits.sCoef, w, table);
    table.leastFactor[w] = leastDiagonalSquare(dInverse, V - 1);
    addRowProducts(dShared, w, V, dSharedSums);
  }
  // The last fit omits the last variable: its inverse is the shared one.
  for (int i = 1; i < V; ++i)
    for (int j = i; j < V; ++j) fits.sInverse(i, j) = static_cast<float>(dInverse(i, j));
  return true;
}

std::vector<SquareSums> emptySums(const Matrix<double>& dCross, int n) {
  std::vector<SquareSums> all;
  for (int first = 2; first <= dCross.lastRow(); first += lanes) {
    SquareSums& sums = all.emplace_back();
    sums.first = first;
    for (int l = 0; l < lanes && first + l <= dCross.lastRow(); ++l)
      sums.mean[l] = dCross(1, first + l) / n;
  }
  return all;
}

void addCase(const double* observed, const std::array<double, lanes>& fitted, SquareSums& sums) {
  for (int l = 0; l < lanes; ++l) {
    const double stored = static_cast<float>(fitted[l]);
    const double residual = static_cast<float>(observed[l] - stored);
    const double explained = stored - sums.mean[l];
    const double total = observed[l] - sums.mean[l];
    sums.SSE[l] += residual * residual;
    sums.SSR[l] += explained * explained;
    sums.SST[l] += total * total;
  }
}

// The fitted values of all fits are one matrix product, taken a tile of cases and fits at a time.
std::vector<SquareSums> squareSums(const Matrix<double>& columns, const Matrix<double>& dCross,
                                   const CoefficientTable& table) {
  const int n = columns.lastRow();
  const int V = dCross.lastRow();
  std::vector<SquareSums> all = emptySums(dCross, n);
  Matrix<double> cases(V, tileSize - 1);  // a tile's cases in columns 0.., variables in rows
  for (int c = 1; c <= n; c += tileSize) {
    const int count = std::min(tileSize, n - c + 1);
    for (int a = 0; a < count; ++a)
      for (int j = 1; j <= V; ++j) cases(j, a) = columns(c + a, j);
    for (SquareSums& sums : all) {
      const ProductTile fitted = tileOfProducts(cases, 0, table.dCoef, sums.first);
      for (int a = 0; a < count; ++a) addCase(columns.row(c + a) + sums.first, fitted[a], sums);
    }
  }
  return all;
}

// A variance is at least the square of its diagonal element of the inverse times that of the
// standard error, both rounded to single.
bool errorsCannotVanish(float leastFactor, double SSE, int degrees) {
  const auto standardError = static_cast<float>(std::sqrt(SSE / degrees));
  return leastFactor * (standardError * standardError) > 0;
}

bool fitSquares(const Matrix<double>& columns, const Matrix<double>& dCross,
                const CoefficientTable& table, AuxiliaryFits& fits) {
  const int V = dCross.lastRow();
  const int degrees = columns.lastRow() - (V - 1);
  for (const SquareSums& sums : squareSums(columns, dCross, table))
    for (int l = 0; l < lanes && sums.first + l <= V; ++l) {
      const int w = sums.first + l;
      if (!errorsCannotVanish(table.leastFactor[w], sums.SSE[l], degrees)) return false;
      fits.sRSquared[w - 1] = static_cast<float>(sums.SSR[l] / sums.SST[l]);
    }
  return true;
}

// The K auxiliary regressions on n cases of sX; iVariables(1) is the column of ones and
// iVariables(2..K+1) are the predictors, K at least 2.
//
// Nothing comes back where a fit by itself would not go straight through (a column chosen twice,
// too few cases, a pivot that is not positive, a standard error that may be 0, data that are not
// finite): such fits report, and leave behind more than their R-squared.
std::optional<AuxiliaryFits> fitAuxiliaries(const Matrix<float>& sX,
                                            std::span<const Int16> iVariables, int n) {
  const int V = static_cast<int>(iVariables.size()) - 1;
  if (n < V || !allDifferent(iVariables)) return std::nullopt;
  const Matrix<double> columns = chosenColumns(sX, iVariables, n, V);
  const Matrix<double> dCross = productSums(columns);
  if (!allFinite(dCross)) return std::nullopt;
  CoefficientTable table(V);
  AuxiliaryFits fits;
  fits.sRSquared.resize(static_cast<std::size_t>(V));
  fits.sInverse.resize(V, V);
  fits.sCoef.resize(static_cast<std::size_t>(V));
  if (!fitCoefficients(dCross, table, fits)) return std::nullopt;
  if (!fitSquares(columns, dCross, table, fits)) return std::nullopt;
  return fits;
}

}  // namespace

void ComputeVIFs(AnalysisState& state, MessagePort& messages) {
  const int K = state.iNumPredictors;
  if (K < 2) return;
  RedimFitArrays(state, K);
  state.iTermCol[1] = state.iModelCol[K + 2];
  if (auto fits = fitAuxiliaries(state.sData, auxiliaryVariables(state), state.iNumCases))
    takeOver(state, *std::move(fits), messages);
  else
    fitOneByOne(state, messages);
}

std::string inflationText(float sVIF) { return formatNumber(sVIF, sVIF > 999.99 ? "0" : "0.0"); }

}  // namespace tolmer
