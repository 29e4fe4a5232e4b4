#include "tables/description_table.h"

#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "base/portable_math.h"
#include "engine/decimals_choice.h"
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

}  // namespace tolmer
