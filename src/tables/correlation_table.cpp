#include "tables/correlation_table.h"

#include <cmath>
#include <limits>

#include "engine/number_picture.h"
#include "engine/t_distribution.h"
#include "state/model_variables.h"
#include "tables/rows_below.h"
#include "tables/table_style.h"

namespace tolmer {
namespace {

constexpr const char* picture = "0.0000";

// |t| of r against 0; beyond any limit for a perfect correlation.
float magnitudeOfT(float r, int n) {
  const float unexplained = 1 - r * r;
  if (unexplained <= 0) return std::numeric_limits<float>::infinity();
  if (n == 2) return 0;
  return std::fabs(r / std::sqrt(unexplained / static_cast<float>(n - 2)));
}

// Marks correlations by the values of t that they have to exceed.
class Test {
 public:
  explicit Test(int n) : n_(n), t01_(TInverse(n - 1, 0.005)), t05_(TInverse(n - 1, 0.025)) {}

  CellStyle styleOf(float r) {
    CellStyle style = bodyStyle(Align::centre);
    const double t = magnitudeOfT(r, n_);
    if (t > t01_)
      below01.put(style);
    else if (t > t05_)
      below05.put(style);
    return style;
  }

  Mark below01 = pBelow01;
  Mark below05 = pBelow05;

 private:
  int n_;
  double t01_;
  double t05_;
};

void putNames(Sheet& sheet, const std::vector<std::string>& tNames) {
  put(sheet, 1, 1, "", headingStyle(Align::left));
  int at = 1;
  for (const std::string& tName : tNames) {
    ++at;
    put(sheet, at, 1, tName, headingStyle(Align::left));
    put(sheet, 1, at, shortened(tName), headingStyle(Align::centre));
  }
}

void putLegends(Sheet& sheet, const Test& test) {
  const int cols = sheet.cols();
  const int first = cols > 5 ? 3 : cols > 3 ? 2 : 1;
  const int second = cols > 5 ? 5 : cols > 3 ? 4 : 2;
  putLegend(sheet, first, test.below01, first == 1 ? Align::left : Align::centre);
  putLegend(sheet, second, test.below05);
}

}  // namespace

Correlations correlations(const AnalysisState& state) {
  Correlations numbers;
  for (int i = 1; i <= listedVariables(state); ++i)
    numbers.tNames.push_back(variableName(state, i));
  numbers.sCorr = state.sCorr;
  numbers.iNumCases = state.iNumCases;
  return numbers;
}

Sheet correlationSheet(const Correlations& numbers) {
  const int variables = static_cast<int>(numbers.tNames.size());
  Sheet sheet(variables + 1 + rowsBelow, variables + 1);
  putNames(sheet, numbers.tNames);
  Test test(numbers.iNumCases);
  for (int i = 1; i <= variables; ++i)
    for (int j = 1; j <= variables; ++j) {
      // A variable without spread is one with itself all the same.
      const float r = i == j ? 1 : numbers.sCorr(i, j);
      put(sheet, i + 1, j + 1, formatNumber(r, picture),
          i == j ? faceStyle(Align::centre) : test.styleOf(r));
    }
  styleRowsBelow(sheet);
  putLegends(sheet, test);
  return sheet;
}

frmCorrMatrix::frmCorrMatrix(Desktop& desktop, AnalysisState& state, DisplayHost& host)
    : TableDisplay(desktop, state, host, "frmCorrMatrix", "Correlation Matrix", "spdCorrMatrix") {}

void frmCorrMatrix::lowerRows() { lowerRowsBelow(grid(), 5); }

}  // namespace tolmer
