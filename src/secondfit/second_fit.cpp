#include "secondfit/second_fit.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/portable_math.h"
#include "secondfit/long_sums.h"
#include "secondfit/orthogonal_fit.h"
#include "secondfit/tail_areas.h"

namespace tolmer {
namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();

// The bound with what the last roundings of the value itself add.
Figure figure(double value, double error) {
  if (!std::isfinite(value)) return std::isnan(value) ? Figure{} : Figure{value, 0};
  return {value, std::isnan(error) ? infinite : error + 1e-15 * std::abs(value)};
}

double relativeError(const Figure& figure) { return figure.error / std::abs(figure.value); }

Figure quotient(const Figure& a, const Figure& b) {
  const double relative = relativeError(b);
  if (!(relative < 0.5)) return figure(a.value / b.value, infinite);
  const double value = a.value / b.value;
  return figure(value, (a.error / std::abs(b.value) + std::abs(value) * relative) / (1 - relative));
}

Figure times(const Figure& a, double factor) {
  return figure(a.value * factor, a.error * std::abs(factor));
}

Figure root(const Figure& a) {
  const double value = std::sqrt(a.value);
  return figure(value, std::min(std::sqrt(a.error), value > 0 ? a.error / value : infinite));
}

// A sum of squares of a vector that is known up to a length.
Figure squares(double value, double length) {
  return figure(value, 2 * std::sqrt(value) * length + length * length);
}

// Both tails of t. The density falls with |t|, so that its value at the near end of the interval
// bounds the change.
Figure twoTails(int df, const Figure& t) {
  const double nearest = std::max(0.0, std::abs(t.value) - t.error);
  const double value = studentTwoTails(df, t.value);
  return figure(value, std::min(1.0, 2 * studentDensity(df, nearest) * t.error) + 1e-13 * value);
}

// The tail of F with one degree of freedom above rises without limit towards 0, hence the ends.
Figure tailOfF(int df1, int df2, const Figure& f) {
  const double value = fTail(df1, df2, f.value);
  const double least = fTail(df1, df2, f.value + f.error);
  const double most = fTail(df1, df2, std::max(0.0, f.value - f.error));
  return figure(value, std::max(most - value, value - least) + 1e-13 * value);
}

bool usable(const ModelData& data) { return data.terms > 0 && data.cases > data.terms; }

// What the sums of squares tell, in the order in which the displays show it.
ModelFigures modelFigures(const ModelData& data, const OrthogonalFit& fit) {
  const int df = data.cases - data.terms;
  const int regressionDf = data.terms - (data.intercept ? 1 : 0);
  const double meanError = fit.rounding * fit.lengthY;
  ModelFigures result;
  result.sse = squares(fit.sumResidual, fit.residualError);
  result.ssr = squares(fit.sumFitted, fit.residualError + meanError);
  result.sst = squares(fit.sumTotal, meanError);
  if (regressionDf > 0) {
    result.f = times(quotient(result.ssr, result.sse), static_cast<double>(df) / regressionDf);
    result.fProbability = tailOfF(regressionDf, df, result.f);
  }
  result.rSquared = quotient(result.ssr, result.sst);
  const double factor = (data.cases - 1.0) / df;
  result.adjusted =
      figure(1 - (1 - result.rSquared.value) * factor, result.rSquared.error * factor);
  result.multipleR = root(result.rSquared);
  result.standardError = times(root(result.sse), 1 / std::sqrt(df));
  result.durbinWatson = quotient(squares(fit.sumSteps, 2 * fit.residualError), result.sse);
  const double n = data.cases;
  result.logLikelihood =
      figure(-n / 2 * (portable::log(2 * std::numbers::pi * result.sse.value / n) + 1),
             n / 2 * relativeError(result.sse));
  const double parameters = data.terms + 1.0;
  const double twice = -2 * result.logLikelihood.value;
  result.aic = figure(twice + 2 * parameters, 2 * result.logLikelihood.error);
  result.bic = figure(twice + portable::log(n) * parameters, 2 * result.logLikelihood.error);
  return result;
}

TermFigures termFigures(const SecondFit& second, const OrthogonalFit& fit, std::size_t term) {
  const Figure& s = second.model.standardError;
  const double width = fit.rootDiagonal[term];
  const int df = second.cases - second.terms;
  TermFigures result;
  result.coefficient = figure(fit.coefficient[term], fit.amplification[term] * fit.residualError);
  result.standardError =
      figure(s.value * width, width * s.error + s.value * fit.amplification[term] * fit.spread);
  result.t = quotient(result.coefficient, result.standardError);
  result.p = twoTails(df, result.t);
  const Figure reach = times(result.standardError, second.tQuantile);
  const double error = result.coefficient.error + reach.error;
  result.lower = figure(result.coefficient.value - reach.value, error);
  result.upper = figure(result.coefficient.value + reach.value, error);
  const bool hasInflation = second.intercept ? term > 0 : second.terms > 1;
  if (hasInflation)
    result.inflation = figure(fit.inflation[term], 4 * fit.spread * fit.inflation[term]);
  return result;
}

// Residuals by their own standard errors, and what leaving the case out would change.
void addInfluence(const SecondFit& second, CaseFigures& result) {
  const double h = result.leverage.value;
  const double df = second.cases - second.terms;
  const Figure left = figure(1 - h, result.leverage.error);
  if (!(left.value > 2 * left.error)) return;
  result.internal = quotient(result.standardized, root(left));
  const Figure odds = quotient(result.leverage, left);
  const double square = result.internal.value * result.internal.value;
  const Figure squared =
      figure(square, 2 * std::abs(result.internal.value) * result.internal.error);
  result.cooks = figure(square * odds.value / second.terms,
                        (squared.error * odds.value + square * odds.error) / second.terms);
  const Figure others = figure((df - square) / (df - 1), squared.error / (df - 1));
  if (!(df > 1 && others.value > 2 * others.error)) return;
  result.studentized = quotient(result.internal, root(others));
  const Figure lever = root(odds);
  result.dffits = figure(
      result.studentized.value * lever.value,
      result.studentized.error * lever.value + std::abs(result.studentized.value) * lever.error);
}

CaseFigures caseFigures(const SecondFit& second, const OrthogonalFit& fit, std::size_t index) {
  CaseFigures result;
  result.fitted = figure(fit.fitted[index], fit.residualError);
  result.residual = figure(fit.residual[index], fit.residualError);
  result.standardized = quotient(result.residual, second.model.standardError);
  if (fit.leverage.empty() || std::isnan(fit.leverage[index])) return result;
  const double h = fit.leverage[index];
  result.leverage =
      figure(h, 2 * fit.spread * std::sqrt(std::max(0.0, h * (1 - h))) + fit.spread * fit.spread);
  addInfluence(second, result);
  return result;
}

// What remains where the terms are not all determined.
void addProjection(SecondFit& second, const OrthogonalFit& fit) {
  second.model.sse.value = fit.sumResidual;
  second.model.ssr.value = fit.sumFitted;
  second.model.sst.value = fit.sumTotal;
  for (std::size_t i = 0; i < second.byCase.size(); ++i) {
    second.byCase[i].fitted.value = fit.fitted[i];
    second.byCase[i].residual.value = fit.residual[i];
    if (!fit.leverage.empty()) second.byCase[i].leverage.value = fit.leverage[i];
  }
}

SecondFit emptyFit(const ModelData& data) {
  SecondFit second;
  second.cases = data.cases;
  second.terms = data.terms;
  second.intercept = data.intercept;
  second.byTerm.resize(static_cast<std::size_t>(data.terms));
  second.byCase.resize(static_cast<std::size_t>(data.cases));
  return second;
}

// The figures of a determined fit.
SecondFit figuresOf(const ModelData& data, const OrthogonalFit& fit) {
  SecondFit second = emptyFit(data);
  second.rank = fit.rank;
  second.condition = fit.condition;
  second.extended = fit.extended;
  if (!second.determined()) return second;
  second.tQuantile = studentQuantile(data.cases - data.terms, 0.05);
  second.inverseFactor = fit.inverseFactor;
  second.model = modelFigures(data, fit);
  for (std::size_t term = 0; term < second.byTerm.size(); ++term)
    second.byTerm[term] = termFigures(second, fit, term);
  for (std::size_t i = 0; i < second.byCase.size(); ++i)
    second.byCase[i] = caseFigures(second, fit, i);
  return second;
}

// The columns of the model out of a matrix of the state, (0..iNumCases, 0..iNumCols).
template <class Value>
ModelData dataOf(const AnalysisState& state, const Matrix<Value>& values) {
  ModelData data;
  data.cases = state.iNumCases;
  data.intercept = state.bUseIntercept;
  data.terms = state.iNumPredictors + (data.intercept ? 1 : 0);
  const auto n = static_cast<std::size_t>(data.cases);
  data.x.resize(static_cast<std::size_t>(data.terms) * n);
  data.y.resize(n);
  const auto take = [&](int column, double* to) {
    const Value* from = &values(1, column);
    for (const double* end = to + n; to < end; from += values.lastColumn() + 1) *to++ = *from;
  };
  double* to = data.x.data();
  if (data.intercept) {
    data.names.push_back(state.tVarName[0]);
    to = std::fill_n(to, n, 1.0);
  }
  for (int j = 2; j <= state.iNumPredictors + 1; ++j, to += n) {
    data.names.push_back(state.tVarName[state.iModelCol[j]]);
    take(state.iModelCol[j], to);
  }
  data.names.push_back(state.tVarName[state.iModelCol[1]]);
  take(state.iModelCol[1], data.y.data());
  return data;
}

// Half a unit of the last place of a double.
constexpr double unit = 0x1p-53;

// Of a column by reflections, see orthogonal_fit.cpp.
double rounding(const ModelData& data) {
  return unit * 2 * (2 * data.terms + std::sqrt(data.cases));
}

void subtract(std::vector<double>& from, double weight, std::span<const double> column) {
  for (std::size_t i = 0; i < from.size(); ++i) from[i] -= weight * column[i];
}

// The lengths that bound what a step of refinement leaves, per term.
struct Nearness {
  std::vector<double> root;  // of the diagonal of the inverse of X'X: the length of W's row
  double moved = 0;          // bounds the length of the change of X times W, with W's own rounding
  double amplified = 0;      // the sum of roots times lengths of the columns
  double explained = 0;      // the sum of sizes of coefficients times lengths of the columns
};

Nearness nearness(const SecondFit& fit, const ModelData& held, const ModelData& other) {
  Nearness result;
  const auto k = static_cast<std::size_t>(fit.terms);
  std::vector<double> change(held.y.size());
  for (std::size_t j = 0; j < k; ++j) {
    double square = 0;
    for (std::size_t i = 0; i < k; ++i)
      square += fit.inverseFactor[i * k + j] * fit.inverseFactor[i * k + j];
    result.root.push_back(std::sqrt(square));
    const auto now = other.column(static_cast<int>(j));
    std::ranges::copy(now, change.begin());
    subtract(change, 1, held.column(static_cast<int>(j)));
    const double length = lengthOf(now);
    result.moved += result.root[j] * (lengthOf(change) + 2 * rounding(other) * length);
    result.amplified += result.root[j] * length;
    result.explained += std::abs(fit.byTerm[j].coefficient.value) * length;
  }
  return result;
}

// What a fit leaves of `y`, and the sums that the displays show.
void addSums(OrthogonalFit& result, std::span<const double> y) {
  const double mean = meanOf(y);
  double before = result.residual.front();
  for (std::size_t i = 0; i < y.size(); ++i) {
    const double residual = result.residual[i];
    const double fitted = y[i] - residual;
    result.fitted.push_back(fitted);
    result.sumFitted += (fitted - mean) * (fitted - mean);
    result.sumTotal += (y[i] - mean) * (y[i] - mean);
    result.sumResidual += residual * residual;
    result.sumSteps += (residual - before) * (residual - before);
    before = residual;
  }
  result.lengthY = lengthOf(y);
}

// One step from the coefficients of the fit, W W' X' (what they leave), and its bounds: W W'
// differs from the inverse of the other X'X by the factor 1 -+ spread.
OrthogonalFit refined(const SecondFit& fit, const ModelData& other, const Nearness& near) {
  OrthogonalFit result;
  const auto k = static_cast<std::size_t>(fit.terms);
  result.rounding = rounding(other);
  result.spread = 2 * near.moved + near.moved * near.moved;
  result.residual = other.y;
  for (std::size_t j = 0; j < k; ++j)
    subtract(result.residual, fit.byTerm[j].coefficient.value, other.column(static_cast<int>(j)));
  const double left = lengthOf(result.residual);
  std::vector<double> products, step(k);
  for (std::size_t j = 0; j < k; ++j)
    products.push_back(dot(other.column(static_cast<int>(j)), result.residual));
  double stepLength = 0;
  for (std::size_t i = 0; i < k; ++i) {
    const auto column = std::span(fit.inverseFactor).subspan(i * k, k);
    const double along = dot(column, products);
    stepLength += along * along;
    for (std::size_t j = 0; j < k; ++j) step[j] += along * column[j];
  }
  for (std::size_t j = 0; j < k; ++j) {
    subtract(result.residual, step[j], other.column(static_cast<int>(j)));
    result.coefficient.push_back(fit.byTerm[j].coefficient.value + step[j]);
    result.inflation.push_back(fit.byTerm[j].inflation.value);
  }
  result.rootDiagonal = result.amplification = near.root;
  addSums(result, other.y);
  const double subtraction = unit * (other.terms + 2) * (result.lengthY + near.explained);
  result.residualError = 1.1 * (result.spread * std::sqrt(stepLength) + 4 * subtraction +
                                unit * (other.cases + other.terms) * left * near.amplified);
  return result;
}

}  // namespace

void ModelData::leaveOut(int term) {
  const auto first = x.begin() + term * cases;
  x.erase(first, first + cases);
  names.erase(names.begin() + term);
  --terms;
}

ModelData heldData(const AnalysisState& state) {
  return hasModel(state) ? dataOf(state, state.sData) : ModelData();
}

std::optional<ModelData> writtenData(const AnalysisState& state) {
  const Matrix<double>& written = state.uOrigin.written;
  if (!hasModel(state) || written.lastRow() < state.iNumCases) return {};
  for (int j = 1; j <= state.iNumPredictors + 1; ++j)
    for (int i = 1; i <= state.iNumCases; ++i)
      if (written(i, state.iModelCol[j]) != state.sData(i, state.iModelCol[j]))
        return dataOf(state, written);
  return {};
}

SecondFit fitSecond(const ModelData& data, Extent extent) {
  if (!usable(data)) return emptyFit(data);
  const OrthogonalFit fit = fitOrthogonally(data, extent);
  if (fit.fitted.empty()) return emptyFit(data);
  SecondFit second = figuresOf(data, fit);
  if (!second.determined()) addProjection(second, fit);
  return second;
}

std::optional<SecondFit> fitNearby(const SecondFit& fit, const ModelData& held,
                                   const ModelData& other) {
  if (!fit.determined() || !fit.intercept) return {};
  const Nearness near = nearness(fit, held, other);
  if (!(near.moved < 0.01)) return {};
  OrthogonalFit step = refined(fit, other, near);
  step.rank = fit.rank;
  step.condition = fit.condition;
  return figuresOf(other, step);
}

Prediction predictSecond(const SecondFit& fit, std::span<const double> terms) {
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  const auto k = static_cast<std::size_t>(fit.terms);
  if (!fit.determined() || terms.size() != k) return {none, none, none, none, none, none};
  double mean = 0;
  double leverage = 0;
  for (std::size_t j = 0; j < k; ++j) {
    mean += fit.byTerm[j].coefficient.value * terms[j];
    double part = 0;
    for (std::size_t i = 0; i < k; ++i) part += fit.inverseFactor[j * k + i] * terms[i];
    leverage += part * part;
  }
  const double reach = fit.tQuantile * fit.model.standardError.value;
  const double ofMean = reach * std::sqrt(leverage);
  const double ofNew = reach * std::sqrt(1 + leverage);
  return {mean, mean - ofMean, mean + ofMean, mean - ofNew, mean + ofNew, leverage};
}

std::vector<Combination> combinations(const ModelData& data, const SecondFit& fit) {
  const bool suspicious = fit.condition > 1e5 || fit.rank < fit.terms ||
                          fit.model.sse.value <= 1e-10 * fit.model.sst.value;
  if (!usable(data) || std::isnan(fit.model.sse.value) || !suspicious) return {};
  return findCombinations(data);
}

}  // namespace tolmer
