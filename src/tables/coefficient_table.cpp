#include "tables/coefficient_table.h"

#include <algorithm>
#include <array>
#include <utility>

#include "engine/decimals_choice.h"
#include "engine/distributions.h"
#include "engine/number_format.h"
#include "engine/statistical_limits.h"
#include "engine/variance_inflation.h"
#include "state/analysis_state.h"

namespace tolmer {
namespace {

enum Column { name = 1, estimate, stdError, tValue, pValue, vif, lower, upper };

constexpr std::array heads = {"Variable", "Est Coeff", "Std Error", "t",
                              "P",        "VIF",       "95% Lower", "95% Upper"};

int storedTerms(const AnalysisState& state) {
  const auto last = [](const auto& values) { return static_cast<int>(values.size()) - 1; };
  const Fit& fit = state.Fit;
  return std::min({static_cast<int>(state.iNumTerms), last(fit.sCoef), last(fit.sCoefSE),
                   last(fit.sCoefT), last(fit.sCoefP), last(state.iTermCol)});
}

std::optional<float> inflation(const AnalysisState& state, int term) {
  if (state.bUseIntercept && (term == 1 || state.iNumPredictors < 2)) return std::nullopt;
  const auto predictor = static_cast<std::size_t>(state.bUseIntercept ? term - 1 : term);
  return predictor < state.sVIF.size() ? std::optional(state.sVIF[predictor]) : std::nullopt;
}

std::string termName(const AnalysisState& state, std::size_t term) {
  const auto column = static_cast<std::size_t>(state.iTermCol[term]);
  return column < state.tVarName.size() ? state.tVarName[column] : std::string();
}

std::string estimatePicture(float value) {
  return FindFormatStringValue(value, 4, 8, true, false, true, true);
}

CellMark markOfP(float sP) {
  if (sP < strictLevel) return CellMark::pBelow01;
  return sP < usualLevel ? CellMark::pBelow05 : CellMark::none;
}

void putVIF(TableContent& table, int row, const std::optional<float>& sVIF) {
  if (!sVIF) return table.figure(row, vif, "---", Align::right);
  table.figure(row, vif, inflationText(*sVIF), Align::right,
               *sVIF > highVIF ? CellMark::highVIF : CellMark::none);
}

void putTerm(TableContent& table, int row, const TermEstimate& term) {
  const auto figure = [&](int col, float value, const std::string& picture) {
    table.figure(row, col, formatNumber(value, picture), Align::right);
  };
  const std::string picture = estimatePicture(term.sCoef);
  table.shortName(row, name, term.tName, Align::left);
  figure(estimate, term.sCoef, picture);
  figure(stdError, term.sCoefSE, estimatePicture(term.sCoefSE));
  figure(tValue, term.sCoefT, "0.00");
  table.probability(row, pValue, formatNumber(term.sCoefP, "0.000"), markOfP(term.sCoefP));
  putVIF(table, row, term.sVIF);
  figure(lower, term.sLower, picture);
  figure(upper, term.sUpper, picture);
}

void putKey(TableContent& table) {
  table.key(table.has(CellMark::pBelow05) ? stdError : pValue, CellMark::pBelow01);
  table.key(pValue, CellMark::pBelow05);
  table.key(lower, CellMark::highVIF);
}

}  // namespace

std::vector<TermEstimate> termEstimates(const AnalysisState& state) {
  const auto t = static_cast<float>(TInverse(state.iNumCases - state.iNumTerms, 0.025));
  const Fit& fit = state.Fit;
  std::vector<TermEstimate> terms;
  for (int i = 1; i <= storedTerms(state); ++i) {
    const auto at = static_cast<std::size_t>(i);
    if (fit.bSingular) {
      terms.push_back({.tName = termName(state, at), .sVIF = inflation(state, i)});
      continue;
    }
    const float reach = fit.sCoefSE[at] * t;
    terms.push_back({termName(state, at), fit.sCoef[at], fit.sCoefSE[at], fit.sCoefT[at],
                     fit.sCoefP[at], inflation(state, i), fit.sCoef[at] - reach,
                     fit.sCoef[at] + reach});
  }
  return terms;
}

TableContent coefficientTable(const std::vector<TermEstimate>& terms) {
  TableContent table(static_cast<int>(terms.size()) + 1 + TableContent::rowsBelow, upper);
  for (int column = name; column <= upper; ++column)
    table.heading(1, column, heads[column - 1], column == name ? Align::left : Align::right);
  int row = 1;
  for (const TermEstimate& term : terms) putTerm(table, ++row, term);
  table.frameRowsBelow();
  putKey(table);
  return table;
}

TableContent coefficientTable(const AnalysisState& state) {
  return coefficientTable(isAnalysed(state) ? termEstimates(state) : std::vector<TermEstimate>());
}

}  // namespace tolmer
