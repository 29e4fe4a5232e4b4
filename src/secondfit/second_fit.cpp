#include "secondfit/second_fit.h"

#include <algorithm>
#include <cmath>
#include <numbers>

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
      figure(-n / 2 * (std::log(2 * std::numbers::pi * result.sse.value / n) + 1),
             n / 2 * relativeError(result.sse));
  const double parameters = data.terms + 1.0;
  const double twice = -2 * result.logLikelihood.value;
  result.aic = figure(twice + 2 * parameters, 2 * result.logLikelihood.error);
  result.bic = figure(twice + std::log(n) * parameters, 2 * result.logLikelihood.error);
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
  if (fit.leverage.empty()) return result;
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

}  // namespace

ModelData heldData(const AnalysisState& state) {
  ModelData data;
  if (!hasModel(state)) return data;
  data.cases = state.iNumCases;
  data.intercept = state.bUseIntercept;
  std::vector<int> columns;
  if (data.intercept) columns.push_back(0);
  for (int j = 2; j <= state.iNumPredictors + 1; ++j) columns.push_back(state.iModelCol[j]);
  data.terms = static_cast<int>(columns.size());
  columns.push_back(state.iModelCol[1]);
  data.x.reserve(columns.size() * static_cast<std::size_t>(data.cases));
  for (const int column : columns) {
    data.names.push_back(state.tVarName[column]);
    for (int i = 1; i <= data.cases; ++i) data.x.push_back(state.sData(i, column));
  }
  const auto dependent = data.x.end() - data.cases;
  data.y.assign(dependent, data.x.end());
  data.x.erase(dependent, data.x.end());
  return data;
}

SecondFit fitSecond(const ModelData& data, Extent extent) {
  SecondFit second;
  second.cases = data.cases;
  second.terms = data.terms;
  second.intercept = data.intercept;
  second.byTerm.resize(static_cast<std::size_t>(data.terms));
  second.byCase.resize(static_cast<std::size_t>(data.cases));
  if (!usable(data)) return second;
  const OrthogonalFit fit = fitOrthogonally(data, extent == Extent::all);
  if (fit.fitted.empty()) return second;
  second.rank = fit.rank;
  second.condition = fit.condition;
  second.extended = fit.extended;
  if (!second.determined()) {
    addProjection(second, fit);
    return second;
  }
  second.tQuantile = studentQuantile(data.cases - data.terms, 0.05);
  second.inverseFactor = fit.inverseFactor;
  second.model = modelFigures(data, fit);
  for (std::size_t term = 0; term < second.byTerm.size(); ++term)
    second.byTerm[term] = termFigures(second, fit, term);
  for (std::size_t i = 0; i < second.byCase.size(); ++i)
    second.byCase[i] = caseFigures(second, fit, i);
  return second;
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
