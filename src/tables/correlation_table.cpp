#include "tables/correlation_table.h"

#include <cmath>
#include <limits>
#include <string>

#include "engine/distributions.h"
#include "engine/number_format.h"

namespace tolmer {
namespace {

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

  CellMark markOf(float r) const {
    const double t = magnitudeOfT(r, n_);
    if (t > t01_) return CellMark::pBelow01;
    return t > t05_ ? CellMark::pBelow05 : CellMark::none;
  }

 private:
  int n_;
  double t01_;
  double t05_;
};

void putNames(TableContent& table, const AnalysisState& state) {
  table.heading(1, 1, "", Align::left);
  for (int i = 1; i < table.cols(); ++i) {
    const std::string& tName = variableName(state, i);
    table.heading(i + 1, 1, tName, Align::left);
    table.shortName(1, i + 1, tName, Align::centre);
  }
}

void putKey(TableContent& table) {
  const int cols = table.cols();
  const int first = cols > 5 ? 3 : cols > 3 ? 2 : 1;
  const int second = cols > 5 ? 5 : cols > 3 ? 4 : 2;
  table.key(first, CellMark::pBelow01, first == 1 ? Align::left : Align::centre);
  table.key(second, CellMark::pBelow05);
}

}  // namespace

TableContent correlationTable(const AnalysisState& state) {
  const int variables = listedVariables(state);
  TableContent table(variables + 1 + TableContent::rowsBelow, variables + 1);
  table.frameShare = 5;
  putNames(table, state);
  const Test test(state.iNumCases);
  const NumberPicture picture("0.0000");
  for (int i = 1; i <= variables; ++i)
    for (int j = 1; j <= variables; ++j) {
      // A variable without spread is one with itself all the same.
      const float r = i == j ? 1 : state.sCorr(i, j);
      table.figure(i + 1, j + 1, formatNumber(r, picture), Align::centre,
                   i == j ? CellMark::itself : test.markOf(r));
    }
  table.frameRowsBelow();
  putKey(table);
  return table;
}

}  // namespace tolmer
