#include "tables/coefficient_table.h"

#include <algorithm>
#include <array>
#include <utility>

#include "engine/number_format.h"
#include "engine/number_picture.h"
#include "engine/t_distribution.h"
#include "tables/rows_below.h"
#include "tables/table_style.h"

namespace tolmer {
namespace {

enum Column { name = 1, estimate, stdError, tValue, pValue, vif, lower, upper };

constexpr std::array heads = {"Variable", "Est Coeff", "Std Error", "t",
                              "P",        "VIF",       "95% Lower", "95% Upper"};

// p is a single, and so are the levels it is held against: a p that is the single nearest to a
// level does not reach it.
constexpr float strictLevel = 0.01F;
constexpr float usualLevel = 0.05F;
constexpr float highVIF = 10;

const CellStyle plain = bodyStyle(Align::right);

struct Marks {
  Mark below01 = pBelow01;
  Mark below05 = pBelow05;
  Mark vif{"VIF > 10", colours::red};
};

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

void putP(Sheet& sheet, int row, float sP, Marks& marks) {
  CellStyle style = plain;
  if (sP < strictLevel)
    marks.below01.put(style);
  else if (sP < usualLevel)
    marks.below05.put(style);
  put(sheet, row, pValue, formatNumber(sP, "0.000"), style);
}

void putVIF(Sheet& sheet, int row, const std::optional<float>& sVIF, Marks& marks) {
  if (!sVIF) return put(sheet, row, vif, "---", plain);
  CellStyle style = plain;
  if (*sVIF > highVIF) marks.vif.put(style);
  put(sheet, row, vif, formatNumber(*sVIF, *sVIF > 999.99 ? "0" : "0.0"), style);
}

void putTerm(Sheet& sheet, int row, const TermEstimate& term, Marks& marks) {
  const std::string picture = estimatePicture(term.sCoef);
  put(sheet, row, name, shortened(term.tName), headingStyle(Align::left));
  put(sheet, row, estimate, formatNumber(term.sCoef, picture), plain);
  put(sheet, row, stdError, formatNumber(term.sCoefSE, estimatePicture(term.sCoefSE)), plain);
  put(sheet, row, tValue, formatNumber(term.sCoefT, "0.00"), plain);
  putP(sheet, row, term.sCoefP, marks);
  putVIF(sheet, row, term.sVIF, marks);
  put(sheet, row, lower, formatNumber(term.sLower, picture), plain);
  put(sheet, row, upper, formatNumber(term.sUpper, picture), plain);
}

void putLegends(Sheet& sheet, const Marks& marks) {
  putLegend(sheet, marks.below05.occurs ? stdError : pValue, marks.below01);
  putLegend(sheet, pValue, marks.below05);
  putLegend(sheet, lower, marks.vif);
}

}  // namespace

std::vector<TermEstimate> termEstimates(const AnalysisState& state) {
  const auto t = static_cast<float>(TInverse(state.iNumCases - state.iNumTerms, 0.025));
  const Fit& fit = state.Fit;
  std::vector<TermEstimate> terms;
  for (int i = 1; i <= storedTerms(state); ++i) {
    const auto at = static_cast<std::size_t>(i);
    const float reach = fit.sCoefSE[at] * t;
    terms.push_back({termName(state, at), fit.sCoef[at], fit.sCoefSE[at], fit.sCoefT[at],
                     fit.sCoefP[at], inflation(state, i), fit.sCoef[at] - reach,
                     fit.sCoef[at] + reach});
  }
  return terms;
}

Sheet coefficientSheet(const std::vector<TermEstimate>& terms) {
  const int lastTermRow = static_cast<int>(terms.size()) + 1;
  Sheet sheet(lastTermRow + rowsBelow, upper);
  for (int column = name; column <= upper; ++column)
    put(sheet, 1, column, heads[static_cast<std::size_t>(column - 1)],
        headingStyle(column == name ? Align::left : Align::right));
  Marks marks;
  for (int row = 2; row <= lastTermRow; ++row)
    putTerm(sheet, row, terms[static_cast<std::size_t>(row - 2)], marks);
  styleRowsBelow(sheet);
  putLegends(sheet, marks);
  return sheet;
}

frmEstCoef::frmEstCoef(Desktop& desktop, AnalysisState& state, DisplayHost& host)
    : TableDisplay(desktop, state, host, "frmEstCoef", "Estimated Coefficients", "spdEstCoef") {}

}  // namespace tolmer
