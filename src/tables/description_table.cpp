#include "tables/description_table.h"

#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "engine/number_format.h"
#include "engine/number_picture.h"
#include "state/model_variables.h"
#include "tables/table_style.h"

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

void putVariable(Sheet& sheet, int row, const VariableSummary& variable) {
  const auto set = [&](int col, std::string text) {
    put(sheet, row, col, std::move(text), bodyStyle(col == name ? Align::left : Align::centre));
  };
  set(name, variable.tName);
  set(mean, formatNumber(variable.dMean, picture(variable.dMean)));
  set(deviation, formatNumber(variable.dSampleSD, picture(variable.dPopulationSD)));
  set(minimum, formatNumber(variable.dMin, variable.tFormat));
  set(maximum, formatNumber(variable.dMax, variable.tFormat));
  set(range, rangeWord(variable.dMax - variable.dMin));
  set(type, typeWord(variable.iType));
}

}  // namespace

std::vector<VariableSummary> variableSummaries(const AnalysisState& state) {
  const auto& stat = state.dDescStat;
  const double factor = sampleFactor(state.iNumCases);
  std::vector<VariableSummary> summaries;
  for (int j = 1; j <= listedVariables(state); ++j) {
    const auto at = static_cast<std::size_t>(j);
    summaries.push_back({variableName(state, j), stat(1, j), stat(2, j), factor * stat(2, j),
                         stat(3, j), stat(4, j), static_cast<VarType>(state.iVarType[at]),
                         state.tVarFormat[at]});
  }
  return summaries;
}

const char* rangeWord(double dRange) {
  const float size = dRange > 0 ? static_cast<float>(std::log10(dRange)) : 0;
  if (size > 5) return "Huge";
  if (size > 4) return "Large";
  if (size > 1) return "Medium";
  return size > -1 ? "Small" : "Tiny";
}

Sheet descriptionSheet(const std::vector<VariableSummary>& summaries) {
  Sheet sheet(static_cast<int>(summaries.size()) + 1, type);
  for (int col = name; col <= type; ++col)
    put(sheet, 1, col, heads[static_cast<std::size_t>(col - 1)],
        headingStyle(col == name ? Align::left : Align::centre));
  int row = 1;
  for (const VariableSummary& variable : summaries) putVariable(sheet, ++row, variable);
  return sheet;
}

frmDescStats::frmDescStats(Desktop& desktop, AnalysisState& state, DisplayHost& host)
    : TableDisplay(desktop, state, host, "frmDescStats", "Descriptive Statistics", "spdDescStats") {
}

}  // namespace tolmer
