#include "tables/anova_table.h"

#include <array>
#include <cmath>
#include <limits>
#include <string>

#include "engine/adjusted_r_squared.h"
#include "engine/number_format.h"
#include "engine/number_picture.h"
#include "state/model_variables.h"
#include "tables/table_style.h"

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

const CellStyle labelCell = bodyStyle(Align::left);
const CellStyle valueCell = bodyStyle(Align::right);

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

void putHeads(Sheet& sheet) {
  for (int column = source; column <= pValue; ++column)
    put(sheet, headRow, column, heads[static_cast<std::size_t>(column - 1)],
        headingStyle(column == source ? Align::left : Align::right));
}

// One row of the variance table, up to its mean square where it has one.
struct Variation {
  const char* label;
  float sSumOfSquares;
  int iDf;
  std::optional<float> sMeanSquare;
};

void putVariation(Sheet& sheet, int row, const Variation& variation, const std::string& picture) {
  put(sheet, row, source, variation.label, labelCell);
  put(sheet, row, sumOfSquares, formatNumber(variation.sSumOfSquares, picture), valueCell);
  put(sheet, row, degrees, formatNumber(variation.iDf, "0"), valueCell);
  if (!variation.sMeanSquare) return;
  const float value = *variation.sMeanSquare;
  put(sheet, row, meanSquare, formatNumber(value, tolmer::picture(value, 4, true)), valueCell);
}

void putVariances(Sheet& sheet, const AnovaNumbers& numbers) {
  const std::string sums = picture(numbers.sSST, 5, true);
  putVariation(sheet, regressionRow,
               {"Regression", numbers.sSSR, numbers.iRegressionDf, numbers.sMSR}, sums);
  putVariation(sheet, errorRow, {"Error", numbers.sSSE, numbers.iErrorDf, numbers.sMSE}, sums);
  putVariation(sheet, totalRow, {"Total", numbers.sSST, numbers.iTotalDf, std::nullopt}, sums);
  put(sheet, regressionRow, fValue, formatNumber(numbers.sF, picture(numbers.sF, 4, false)),
      valueCell);
  put(sheet, regressionRow, pValue, formatNumber(numbers.sFProb, "0.000"), valueCell);
}

void putFigure(Sheet& sheet, int row, int column, const char* label, std::string value) {
  put(sheet, row, column, label, labelCell);
  put(sheet, row, column + 1, std::move(value), valueCell);
}

void putSummary(Sheet& sheet, const AnovaNumbers& numbers) {
  const auto figure = [&](float FitQuality::*value, const char* picture) {
    return numbers.quality ? formatNumber(*numbers.quality.*value, picture) : std::string("NA");
  };
  int row = firstSummaryRow;
  putFigure(sheet, row, source, "R-squared", figure(&FitQuality::sRSquared, "0.0000"));
  putFigure(sheet, row, meanSquare, "Adj R-sqr", figure(&FitQuality::sAdjRSquared, "0.0000"));
  ++row;
  putFigure(sheet, row, source, "R (mult corr)", figure(&FitQuality::sR, "0.0000"));
  putFigure(sheet, row, meanSquare, "Durbin Watson", figure(&FitQuality::sDurbinWatson, "0.00"));
  ++row;
  putFigure(sheet, row, source, "Std Error",
            formatNumber(numbers.sStdErr, picture(numbers.sStdErr, 5, false)));
  putFigure(sheet, row, meanSquare, "Sample size", formatNumber(numbers.iNumCases, "0"));
}

}  // namespace

AnovaNumbers anovaNumbers(const AnalysisState& state) {
  const Fit& fit = state.Fit;
  AnovaNumbers numbers;
  numbers.sSSR = fit.sSSR;
  numbers.sSSE = fit.sSSE;
  numbers.sSST = fit.sSST;
  numbers.iRegressionDf = state.bUseIntercept ? state.iNumTerms - 1 : state.iNumTerms;
  numbers.iErrorDf = state.iNumCases - state.iNumTerms;
  numbers.iTotalDf = numbers.iRegressionDf + numbers.iErrorDf;
  numbers.sMSR = quotient(fit.sSSR, numbers.iRegressionDf);
  numbers.sMSE = quotient(fit.sSSE, numbers.iErrorDf);
  numbers.sF = fit.sF;
  numbers.sFProb = fit.sFProb;
  if (state.bUseIntercept) numbers.quality = fitQuality(state);
  numbers.sStdErr = fit.sStdErr;
  numbers.iNumCases = state.iNumCases;
  return numbers;
}

Sheet anovaSheet(const std::optional<AnovaNumbers>& numbers) {
  Sheet sheet(lastRow, pValue);
  putHeads(sheet);
  styleRow(sheet, separatorRow, faceStyle(Align::left));
  if (!numbers) return sheet;
  putVariances(sheet, *numbers);
  putSummary(sheet, *numbers);
  return sheet;
}

Sheet frmANOVA::content() const {
  return anovaSheet(isAnalysed(state_) ? std::optional(anovaNumbers(state_)) : std::nullopt);
}

frmANOVA::frmANOVA(Desktop& desktop, AnalysisState& state, DisplayHost& host)
    : TableDisplay(desktop, state, host, "frmANOVA", "ANOVA Table", "spdANOVA") {}

void frmANOVA::lowerRows() {
  const float fifth = grid().tallestText(headRow) / 5 / twipsPerPixel;
  grid().setRowHeight(separatorRow, pixels(std::round(fifth)));
}

}  // namespace tolmer
