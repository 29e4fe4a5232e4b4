#include "tables/anova_table.h"

#include <array>
#include <cmath>
#include <limits>
#include <string>

#include "engine/decimals_choice.h"
#include "engine/least_squares.h"
#include "engine/number_format.h"
#include "state/analysis_state.h"

namespace tolmer {
namespace {

enum Row {
  headRow = 1,
  regressionRow,
  errorRow,
  totalRow,
  separatorRow,
  firstSummaryRow,
  lastRow = 8
};
enum Column { source = 1, sumOfSquares, degrees, meanSquare, fValue, pValue };

constexpr std::array heads = {"Source", "Sum of Squares", "D.F.", "Mean Square", "F", "P"};

// In single precision.
float quotient(float numerator, int denominator) {
  if (denominator == 0) return std::numeric_limits<float>::quiet_NaN();
  return numerator / static_cast<float>(denominator);
}

FitQuality fitQuality(const AnalysisState& state) {
  const Fit& fit = state.Fit;
  return {fit.sRSquared, fit.sR, adjustedRSquared(state), fit.sDurbinWatson};
}

std::string picture(float value, int digits, bool exponent) {
  return FindFormatStringValue(value, digits, 8, true, false, true, exponent);
}

void putHeads(TableContent& table) {
  for (int column = source; column <= pValue; ++column)
    table.heading(headRow, column, heads[column - 1],
                  column == source ? Align::left : Align::right);
}

// One row of the variance table, up to its mean square where it has one.
struct Variation {
  const char* label;
  float sSumOfSquares;
  int iDf;
  std::optional<float> sMeanSquare;
};

void putVariation(TableContent& table, int row, const Variation& variation,
                  const std::string& picture) {
  table.text(row, source, variation.label, Align::left);
  table.figure(row, sumOfSquares, formatNumber(variation.sSumOfSquares, picture), Align::right);
  table.figure(row, degrees, formatNumber(variation.iDf, "0"), Align::right);
  if (!variation.sMeanSquare) return;
  const float value = *variation.sMeanSquare;
  table.figure(row, meanSquare, formatNumber(value, tolmer::picture(value, 4, true)), Align::right);
}

void putVariances(TableContent& table, const AnovaNumbers& numbers) {
  const std::string sums = picture(numbers.sSST, 5, true);
  putVariation(table, regressionRow,
               {"Regression", numbers.sSSR, numbers.iRegressionDf, numbers.sMSR}, sums);
  putVariation(table, errorRow, {"Error", numbers.sSSE, numbers.iErrorDf, numbers.sMSE}, sums);
  putVariation(table, totalRow, {"Total", numbers.sSST, numbers.iTotalDf, std::nullopt}, sums);
  table.figure(regressionRow, fValue, formatNumber(numbers.sF, picture(numbers.sF, 4, false)),
               Align::right);
  table.probability(regressionRow, pValue, formatNumber(numbers.sFProb, "0.000"));
}

void putFigure(TableContent& table, int row, int column, const char* label, std::string value) {
  table.text(row, column, label, Align::left);
  table.figure(row, column + 1, std::move(value), Align::right);
}

void putSummary(TableContent& table, const AnovaNumbers& numbers) {
  const auto figure = [&](float FitQuality::*value, const char* picture) {
    return numbers.quality ? formatNumber(*numbers.quality.*value, picture) : std::string("NA");
  };
  int row = firstSummaryRow;
  putFigure(table, row, source, "R-squared", figure(&FitQuality::sRSquared, "0.0000"));
  putFigure(table, row, meanSquare, "Adj R-sqr", figure(&FitQuality::sAdjRSquared, "0.0000"));
  ++row;
  putFigure(table, row, source, "R (mult corr)", figure(&FitQuality::sR, "0.0000"));
  putFigure(table, row, meanSquare, "Durbin Watson", figure(&FitQuality::sDurbinWatson, "0.00"));
  ++row;
  putFigure(table, row, source, "Std Error",
            formatNumber(numbers.sStdErr, picture(numbers.sStdErr, 5, false)));
  putFigure(table, row, meanSquare, "Sample size", formatNumber(numbers.iNumCases, "0"));
}

}  // namespace

AnovaNumbers anovaNumbers(const AnalysisState& state) {
  const Fit& fit = state.Fit;
  AnovaNumbers numbers;
  numbers.iRegressionDf = state.bUseIntercept ? state.iNumTerms - 1 : state.iNumTerms;
  numbers.iErrorDf = state.iNumCases - state.iNumTerms;
  numbers.iTotalDf = numbers.iRegressionDf + numbers.iErrorDf;
  numbers.iNumCases = state.iNumCases;
  if (fit.bSingular) return numbers;
  numbers.sSSR = fit.sSSR;
  numbers.sSSE = fit.sSSE;
  numbers.sSST = fit.sSST;
  numbers.sMSR = quotient(fit.sSSR, numbers.iRegressionDf);
  numbers.sMSE = quotient(fit.sSSE, numbers.iErrorDf);
  numbers.sF = fit.sF;
  numbers.sFProb = fit.sFProb;
  if (state.bUseIntercept) numbers.quality = fitQuality(state);
  numbers.sStdErr = fit.sStdErr;
  return numbers;
}

TableContent anovaTable(const AnalysisState& state) {
  TableContent table(lastRow, pValue);
  table.frameShare = 5;
  table.partingRow = separatorRow;
  putHeads(table);
  table.frame(separatorRow);
  if (!isAnalysed(state)) return table;
  const AnovaNumbers numbers = anovaNumbers(state);
  putVariances(table, numbers);
  putSummary(table, numbers);
  return table;
}

}  // namespace tolmer
