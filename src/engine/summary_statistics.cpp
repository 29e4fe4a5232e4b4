#include "engine/summary_statistics.h"

#include <cmath>
#include <vector>

#include "engine/decimals_choice.h"

namespace tolmer {
namespace {

// The values of one data column, from element 1.
std::vector<float> columnValues(const AnalysisState& state, int column) {
  std::vector<float> values(static_cast<std::size_t>(state.iNumCases) + 1);
  for (int c = 1; c <= state.iNumCases; ++c) values[c] = state.sData(c, column);
  return values;
}

void describe(AnalysisState& state, int i, std::span<const float> values) {
  double sum = 0;
  double minimum = values.empty() ? 0 : values.front();
  double maximum = minimum;
  for (const float value : values) {
    sum += value;
    if (value < minimum) minimum = value;
    if (value > maximum) maximum = value;
  }
  const double mean = sum / state.iNumCases;
  double squares = 0;
  for (const float value : values) squares += (value - mean) * (value - mean);
  state.dDescStat(1, i) = mean;
  state.dDescStat(2, i) = std::sqrt(squares / state.iNumCases);
  state.dDescStat(3, i) = minimum;
  state.dDescStat(4, i) = maximum;
}

void reportZeroRange(const std::string& name, MessagePort& messages) {
  messages.messageBox({"Error in Summary Stats", "Zero range for " + name + ". Check data.",
                       MessageIcon::exclamation});
}

bool allWhole(const AnalysisState& state, int column) {
  for (int c = 1; c <= state.iNumCases; ++c)
    if (state.sData(c, column) != std::floor(state.sData(c, column))) return false;
  return true;
}

}  // namespace

void SummaryStats(AnalysisState& state, MessagePort& messages) {
  for (int i = 1; i <= state.iNumPredictors + 1; ++i) {
    const int column = state.iModelCol[i];
    const std::vector<float> values = columnValues(state, column);
    describe(state, i, std::span(values).subspan(1));
    if (state.dDescStat(3, i) == state.dDescStat(4, i))
      reportZeroRange(state.tVarName[column], messages);
    state.tVarFormat[i] = FindFormatString(values, state.iNumCases, 4, 8, false, true, true, true);
  }
}

void ClassifyVariables(AnalysisState& state) {
  for (int i = 1; i <= state.iNumPredictors + 1; ++i) {
    const bool dummyRange = state.dDescStat(4, i) - state.dDescStat(3, i) == 1;
    const VarType whole = dummyRange ? dummyVariable : wholeNumbers;
    state.iVarType[i] = allWhole(state, state.iModelCol[i]) ? whole : hasFractions;
  }
}

float SngMax(float a, float b) { return a > b ? a : b; }

float SngMin(float a, float b) { return a < b ? a : b; }

int IndexOfLargest(std::span<const float> sArray) {
  int largest = 1;
  for (int i = 2; i < static_cast<int>(sArray.size()); ++i)
    if (sArray[i] > sArray[largest]) largest = i;
  return largest;
}

}  // namespace tolmer
