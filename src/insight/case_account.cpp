#include "insight/case_account.h"

#include <algorithm>
#include <numeric>

#include "base/sentence_parts.h"
#include "engine/decimals_choice.h"
#include "engine/number_format.h"
#include "insight/change_words.h"
#include "insight/influence.h"
#include "insight/insight_tables.h"
#include "insight/unequal_spread.h"
#include "insight/without_cases.h"
#include "tables/case_lists.h"

namespace tolmer {
namespace {

constexpr const char* noValidFit = "There is no valid fit.";

const CaseFigures& figuresOf(const SecondFit& fit, int iCase) {
  return fit.byCase[static_cast<std::size_t>(iCase) - 1];
}

// The pictures of the table of influence, where a number is in it.
std::string measureText(const CaseMeasure& one) {
  const std::string_view name = one.name;
  if (name == "Residual") return figureText(one.figure.value);
  return formatNumber(one.figure.value,
                      name == "Leverage" || name == "Cook's distance" ? "0.0000" : "0.000");
}

TableContent valuesOfOne(const AnalysisState& state, const SecondFit* fit, int iCase) {
  const int variables = listedVariables(state);
  const auto measures = fit ? measuresOf(*fit, iCase) : std::vector<CaseMeasure>();
  TableContent table(1 + variables + (fit ? 1 + static_cast<int>(measures.size()) : 0), 3);
  table.heading(1, 1, "", Align::left);
  table.heading(1, 2, "Value", Align::right);
  table.heading(1, 3, "By size, among all cases", Align::left);
  int row = 1;
  const auto add = [&](const std::string& name, std::string value, const std::string& words) {
    table.text(++row, 1, name, Align::left);
    table.figure(row, 2, std::move(value), Align::right);
    table.text(row, 3, words, Align::left);
  };
  for (int j = 1; j <= variables; ++j)
    add(variableName(state, j),
        formatNumber(state.sData(iCase, state.iModelCol[j]), state.tVarFormat[j]), "");
  if (!fit) return table;
  add("Fitted value", figureText(figuresOf(*fit, iCase).fitted.value), "");
  for (const CaseMeasure& one : measures) add(one.name, measureText(one), one.words);
  return table;
}

// The figures of the first, and the columns of the second that the first lacks.
TableContent beside(const TableContent& one, const TableContent& other) {
  constexpr int figures = 4;  // of the list of residuals, before its comments
  const int common = other.fixedColumns;
  const int first = common + figures;
  TableContent table(one.rows(), first + other.cols() - common);
  table.fixedColumns = common;
  for (int row = 1; row <= one.rows(); ++row) {
    table.setCase(row, one.caseOf(row));
    for (int col = 1; col <= first; ++col) table.at(row, col) = one.at(row, col);
    for (int col = common + 1; col <= other.cols(); ++col)
      table.at(row, first + col - common) = other.at(row, col);
  }
  return table;
}

TableContent valuesOfSeveral(const AnalysisState& state, const SecondFit* fit,
                             std::span<const int> cases) {
  const auto only = [&cases](TableContent table) {
    table.keepRows(
        [&](int row) { return row == 1 || std::ranges::binary_search(cases, table.caseOf(row)); });
    return table;
  };
  const TableContent residuals = only(residualList(state));
  return fit ? beside(residuals, only(influenceTable(state, *fit))) : residuals;
}

// With as many digits as the table of the analysis of variance shows.
std::string errorText(double value) {
  const auto single = static_cast<float>(value);
  return formatNumber(value, FindFormatStringValue(single, 5, 8, true, false, true, false));
}

TableContent comparedFits(const SecondFit& before, const WithoutCases& after, bool isOne) {
  TableContent table(static_cast<int>(after.terms.size()) + (before.intercept ? 3 : 2), 5);
  table.heading(1, 1, "", Align::left);
  const char* without = isOne ? "Without it" : "Without them";
  int col = 1;
  for (const char* head : {"Coefficient", without, "Std Error", without})
    table.heading(1, ++col, head, Align::right);
  int row = 1;
  const auto add = [&](const std::string& name, std::initializer_list<const Figure*> figures) {
    table.text(++row, 1, name, Align::left);
    int at = 1;
    for (const Figure* figure : figures)
      table.figure(row, ++at, figureText(figure->value), Align::right);
  };
  for (const TermChange& term : after.terms)
    add(term.name,
        {&term.coefficientBefore, &term.coefficientAfter, &term.errorBefore, &term.errorAfter});
  const auto addModel = [&](const char* name, Figure ModelFigures::*figure, const auto& textOf) {
    add(name, {});
    table.figure(row, 2, textOf((before.model.*figure).value), Align::right);
    table.figure(row, 3, textOf((after.fit.model.*figure).value), Align::right);
  };
  addModel("Standard error", &ModelFigures::standardError, errorText);
  if (before.intercept)
    addModel("R-squared", &ModelFigures::rSquared,
             [](double value) { return formatNumber(value, "0.0000"); });
  return table;
}

std::vector<int> byLeverage(const SecondFit& fit) {
  std::vector<int> order(static_cast<std::size_t>(fit.cases));
  std::iota(order.begin(), order.end(), 1);
  std::stable_sort(order.begin(), order.end(), [&fit](int one, int other) {
    return figuresOf(fit, one).leverage.value > figuresOf(fit, other).leverage.value;
  });
  return order;
}

std::string onLargest(const AnalysisState& state, const SecondFit& fit,
                      const std::vector<int>& order) {
  constexpr std::size_t named = 3;
  std::vector<std::string> words;
  for (std::size_t i = 0; i < std::min(named, order.size()); ++i)
    words.push_back(formatNumber(figuresOf(fit, order[i]).leverage.value, "0.000") + " (" +
                    casesInWords(std::span(order).subspan(i, 1), caseLabels(state)) + ")");
  return "The largest leverages are " + listed(words) + "; the mean of all is " +
         formatNumber(1.0 * fit.terms / fit.cases, "0.000") + ".";
}

}  // namespace

CaseAccount accountOf(const AnalysisState& state, const ModelData& data, const SecondFit* fit,
                      std::span<const int> cases) {
  const bool isOne = cases.size() == 1;
  CaseAccount account{isOne ? valuesOfOne(state, fit, cases.front())
                            : valuesOfSeveral(state, fit, cases)};
  if (!fit) {
    account.sentences = {noValidFit};
    return account;
  }
  WithoutCases without = refitWithout(data, *fit, cases, caseLabels(state));
  account.without = comparedFits(*fit, without, isOne);
  account.sentences = std::move(without.sentences);
  return account;
}

// Source of the limit: Belsley, Kuh and Welsch, Regression Diagnostics, 1980, section 2.1.
AllCases onAllCases(const AnalysisState& state, const ModelData& data, const SecondFit* fit) {
  if (!fit) return {noValidFit, ""};
  AllCases about{spreadWords(breuschPagan(data, *fit)), ""};
  const std::vector<int> order = byLeverage(*fit);
  const double limit = 2.0 * fit->terms / fit->cases;
  for (const int one : order)
    if (figuresOf(*fit, one).leverage.value > limit) about.farthest.push_back(one);
  const auto count = static_cast<int>(about.farthest.size());
  const std::string above = "above twice the mean, " + formatNumber(limit, "0.000") +
                            ", from where on a case lies far from the others in its predictors.";
  about.leverages =
      onLargest(state, *fit, order) + " " +
      (count == 0 ? "None lies " + above
                  : counted(count, "case") + (count == 1 ? " lies " : " lie ") + above);
  if (count == 0) about.farthest = {order.front()};
  std::ranges::sort(about.farthest);
  return about;
}

}  // namespace tolmer
