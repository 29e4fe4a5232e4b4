#include "tables/variable_tables.h"

#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "base/portable_math.h"
#include "engine/decimals_choice.h"
#include "engine/distributions.h"
#include "engine/number_format.h"
#include "state/analysis_state.h"

namespace tolmer {
namespace {

enum Column { name = 1, mean, deviation, minimum, maximum, range, type };

constexpr std::array heads = {"Variable", "Mean", "S.D.", "Min", "Max", "Range", "Type"};

double sampleFactor(int n) {
  return n > 1 ? std::sqrt(n / (n - 1.0)) : std::numeric_limits<double>::quiet_NaN();
}

std::string picture(double value) {
  return FindFormatStringValue(static_cast<float>(value), 4, 8, true, true, true, true);
}

const char* typeWord(VarType iType) {
  if (iType == dummyVariable) return "Binary";
  return iType == wholeNumbers ? "Integer" : "Decimal";
}

void putVariable(TableContent& table, int row, const VariableSummary& variable) {
  const auto figure = [&](int col, double value, std::string_view picture) {
    table.figure(row, col, formatNumber(value, picture), Align::centre);
  };
  table.text(row, name, variable.tName, Align::left);
  figure(mean, variable.dMean, picture(variable.dMean));
  figure(deviation, variable.dSampleSD, picture(variable.dPopulationSD));
  figure(minimum, variable.dMin, variable.tFormat);
  figure(maximum, variable.dMax, variable.tFormat);
  table.text(row, range, rangeWord(variable.dMax - variable.dMin), Align::centre);
  table.text(row, type, typeWord(variable.iType), Align::centre);
}

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

std::vector<VariableSummary> variableSummaries(const AnalysisState& state) {
  const auto& stat = state.dDescStat;
  const double factor = sampleFactor(state.iNumCases);
  std::vector<VariableSummary> summaries;
  for (int j = 1; j <= listedVariables(state); ++j) {
    summaries.push_back({variableName(state, j), stat(1, j), stat(2, j), factor * stat(2, j),
                         stat(3, j), stat(4, j), static_cast<VarType>(state.iVarType[j]),
                         state.tVarFormat[j]});
  }
  return summaries;
}

const char* rangeWord(double dRange) {
  const float size = dRange > 0 ? static_cast<float>(portable::log10(dRange)) : 0;
  if (size > 5) return "Huge";
  if (size > 4) return "Large";
  if (size > 1) return "Medium";
  return size > -1 ? "Small" : "Tiny";
}

TableContent descriptionTable(const AnalysisState& state) {
  const auto summaries = variableSummaries(state);
  TableContent table(static_cast<int>(summaries.size()) + 1, type);
  for (int col = name; col <= type; ++col)
    table.heading(1, col, heads[col - 1], col == name ? Align::left : Align::centre);
  int row = 1;
  for (const VariableSummary& variable : summaries) putVariable(table, ++row, variable);
  return table;
}

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
