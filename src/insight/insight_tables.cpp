#include "insight/insight_tables.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "base/sentence_parts.h"
#include "engine/decimals_choice.h"
#include "engine/number_format.h"
#include "insight/change_words.h"
#include "insight/influence.h"
#include "insight/without_cases.h"

namespace tolmer {
namespace {

struct InfluenceColumn {
  const char* head;
  Figure CaseFigures::*figure;
  const char* picture;
};

constexpr std::array influenceColumns = {
    InfluenceColumn{"Leverage", &CaseFigures::leverage, "0.0000"},
    InfluenceColumn{"Int Stud Resid", &CaseFigures::internal, "0.000"},
    InfluenceColumn{"Studentized", &CaseFigures::studentized, "0.000"},
    InfluenceColumn{"Cook's D", &CaseFigures::cooks, "0.0000"},
    InfluenceColumn{"DFFITS", &CaseFigures::dffits, "0.000"},
};

// "The largest Cook's distance is 0.6920, that of case 21."
std::string largest(const AnalysisState& state, const SecondFit& fit, const char* name,
                    Figure CaseFigures::*figure) {
  const auto sizeOf = [figure](const CaseFigures& one) {
    const double value = (one.*figure).value;
    return std::isnan(value) ? -1 : value;
  };
  const auto most = std::ranges::max_element(fit.byCase, {}, sizeOf);
  if (most == fit.byCase.end() || sizeOf(*most) < 0) return {};
  const std::array cases = {static_cast<int>(most - fit.byCase.begin()) + 1};
  return std::string("The largest ") + name + " is " + formatNumber(sizeOf(*most), "0.0000") +
         ", that of " + casesInWords(cases, caseLabels(state)) + ".";
}

using PredictionColumn = double Prediction::*;
constexpr std::array predictionColumns = {&Prediction::fit, &Prediction::meanLower,
                                          &Prediction::meanUpper, &Prediction::newLower,
                                          &Prediction::newUpper};
constexpr std::array predictionHeads = {"Case",      "Fitted",    "Mean Lower", "Mean Upper",
                                        "New Lower", "New Upper", "Leverage",   "Outside"};

// One picture for all that is in units of Y.
std::string pictureOf(std::span<const PredictedCase> predictions) {
  std::vector<float> values(1);
  for (const PredictedCase& one : predictions)
    for (const PredictionColumn column : predictionColumns)
      if (const double value = one.prediction.*column; std::isfinite(value))
        values.push_back(static_cast<float>(value));
  return FindFormatString(values, static_cast<int>(values.size()) - 1, 5, 10, true, false, true,
                          true);
}

}  // namespace

TableContent influenceTable(const AnalysisState& state, const SecondFit& fit) {
  const int lead = state.bLabeledData ? 2 : 1;
  TableContent table(fit.cases + 1, lead + static_cast<int>(influenceColumns.size()));
  table.fixedColumns = lead;
  table.heading(1, 1, "Case", Align::centre);
  if (state.bLabeledData) table.heading(1, 2, state.tLabelColName, Align::left);
  for (int i = 1; i <= fit.cases; ++i) {
    const auto at = static_cast<std::size_t>(i);
    table.setCase(i + 1, i);
    table.figure(i + 1, 1, std::to_string(i), Align::centre);
    if (state.bLabeledData) table.text(i + 1, 2, state.tCaseLabel[at] + " ", Align::left);
    int col = lead;
    for (const InfluenceColumn& column : influenceColumns) {
      table.heading(1, ++col, column.head, Align::right);
      table.figure(i + 1, col,
                   formatNumber((fit.byCase[at - 1].*column.figure).value, column.picture),
                   Align::right);
    }
  }
  for (std::string note : {largest(state, fit, "leverage", &CaseFigures::leverage),
                           largest(state, fit, "Cook's distance", &CaseFigures::cooks)})
    if (!note.empty()) table.notes.push_back(std::move(note));
  if (const double left = leavingOneOut(heldData(state), fit); !std::isnan(left))
    table.notes.push_back(
        "The leaving-one-out error, the root mean square of e / (1 - leverage), is " +
        figureText(left) + ".");
  return table;
}

TableContent predictionTable(std::span<const PredictedCase> predictions) {
  TableContent table(static_cast<int>(predictions.size()) + 1,
                     static_cast<int>(predictionHeads.size()));
  for (std::size_t i = 0; i < predictionHeads.size(); ++i)
    table.heading(1, static_cast<int>(i) + 1, predictionHeads[i],
                  i + 1 == predictionHeads.size() ? Align::left : Align::right);
  const std::string picture = pictureOf(predictions);
  int row = 1;
  for (const PredictedCase& one : predictions) {
    const std::string number = std::to_string(row++);
    table.figure(row, 1, number, Align::right);
    int col = 1;
    for (const PredictionColumn column : predictionColumns)
      table.figure(row, ++col, formatNumber(one.prediction.*column, picture), Align::right);
    table.figure(row, ++col, formatNumber(one.prediction.leverage, "#,##0.0000"), Align::right);
    table.text(row, ++col, one.words.empty() ? "" : "yes", Align::left);
    if (!one.words.empty()) table.notes.push_back("Case " + number + ": " + one.words);
  }
  table.notes.push_back(
      "Lower and upper limits are of 95 per cent: Mean for the mean of all such "
      "cases, New for a single one.");
  return table;
}

TableContent modelsTable(const ModelHistory& models, int present) {
  constexpr std::array heads = {"No.",       "Data",     "Model",       "n",
                                "R-squared", "Adjusted", "Std Error",   "Leaving One Out",
                                "AIC",       "BIC",      "Largest VIF", "Present"};
  TableContent table(static_cast<int>(models.records().size()) + 1, static_cast<int>(heads.size()));
  const auto isText = [](int col) { return col == 2 || col == 3 || col == 12; };
  for (int col = 1; col <= table.cols(); ++col)
    table.heading(1, col, heads[static_cast<std::size_t>(col) - 1],
                  isText(col) ? Align::left : Align::right);
  // Without an intercept the figure means nothing, as the table of the fit says.
  const auto share = [](const ModelRecord& one, const Figure& figure) {
    return one.intercept ? formatNumber(figure.value, "0.0000") : std::string("NA");
  };
  int row = 1;
  for (const ModelRecord& one : models.records()) {
    const int number = models.firstNumber() + row++ - 1;
    const auto vif = largestInflation(one);
    const std::array texts = {
        std::to_string(number),
        one.dataName,
        titleOf(one),
        std::to_string(one.cases),
        share(one, one.model.rSquared),
        share(one, one.model.adjusted),
        figureText(one.model.standardError.value),
        std::isnan(one.leavingOneOut) ? std::string("---") : figureText(one.leavingOneOut),
        figureText(one.model.aic.value, 1),
        figureText(one.model.bic.value, 1),
        vif ? figureText(*vif, 1) : std::string("---"),
        std::string(number == present ? "yes" : "")};
    for (int col = 1; col <= table.cols(); ++col) {
      const std::string& text = texts[static_cast<std::size_t>(col) - 1];
      isText(col) ? table.text(row, col, text, Align::left)
                  : table.figure(row, col, text, Align::right);
    }
  }
  return table;
}

TableContent comparisonTable(const ModelComparison& comparison) {
  constexpr std::array heads = {"Term", "First Coeff", "First Std Error", "Second Coeff",
                                "Second Std Error"};
  TableContent table(static_cast<int>(comparison.terms.size()) + 1, static_cast<int>(heads.size()));
  for (int col = 1; col <= table.cols(); ++col)
    table.heading(1, col, heads[static_cast<std::size_t>(col) - 1],
                  col == 1 ? Align::left : Align::right);
  int row = 1;
  for (const TermChange& term : comparison.terms) {
    table.heading(++row, 1, term.name, Align::left);
    int col = 1;
    for (const Figure& figure :
         {term.coefficientBefore, term.errorBefore, term.coefficientAfter, term.errorAfter})
      table.figure(row, ++col, std::isnan(figure.value) ? "---" : figureText(figure.value),
                   Align::right);
  }
  table.notes = comparison.sentences;
  return table;
}

}  // namespace tolmer
