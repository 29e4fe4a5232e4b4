#include "state/analysis_state.h"

#include <algorithm>
#include <cstddef>

namespace tolmer {
namespace {

// Elements 0..last, all of them empty.
template <class Value>
void redim(std::vector<Value>& array, int last) {
  array.assign(static_cast<std::size_t>(last) + 1, Value{});
}

}  // namespace

bool hasModel(const AnalysisState& state) {
  return state.iNumCases > 0 && state.iModelCol.size() > 1 && state.iModelCol[1] > 0;
}

void RedimDataArrays(AnalysisState& state) {
  state.sData.resize(state.iNumCases, state.iNumCols);
  redim(state.tVarName, state.iNumCols);
  redim(state.tCaseLabel, state.iNumCases);
  redim(state.iModelCol, state.iNumPredictors + 2);
  redim(state.tVarDesc, state.iNumCols);
}

void RedimAnalysisArrays(AnalysisState& state) {
  const int variables = state.iNumPredictors + 1;
  redim(state.Fit.sFitted, state.iNumCases);
  redim(state.Fit.sResid, state.iNumCases);
  redim(state.iVarType, variables);
  redim(state.tVarFormat, std::max<int>(state.iNumCases, variables));
  state.sCorr.resize(variables, variables);
  state.dDescStat.resize(4, variables);
  redim(state.sSortedResid, state.iNumCases);
  redim(state.tSortedResidLabel, state.iNumCases);
  redim(state.sVIF, state.iNumPredictors);
}

void RedimFitArrays(AnalysisState& state, int iTerms) {
  redim(state.iTermCol, iTerms + 1);
  redim(state.Fit.sCoef, iTerms);
  redim(state.Fit.sCoefSE, iTerms);
  redim(state.Fit.sCoefT, iTerms);
  redim(state.Fit.sCoefP, iTerms);
  state.Fit.sVarCov.resize(iTerms + 1, iTerms + 1);
}

bool isAnalysed(const AnalysisState& state) {
  const int variables = state.iNumPredictors + 1;
  const int cases = state.iNumCases;
  return !state.bAnalysing && hasModel(state) && state.sData.lastRow() == cases &&
         state.iModelCol.size() > static_cast<std::size_t>(variables) &&
         state.dDescStat.lastColumn() == variables &&
         state.Fit.sResid.size() == static_cast<std::size_t>(cases) + 1;
}

std::string dataSetName(const AnalysisState& state) {
  const std::string& file = state.tDataFileName;
  if (const auto& copy = state.uOrigin.copy)
    return (copy->differing > 0 ? "Edited copy of " : "Copy of ") + copy->of;
  if (file == "None") return "Data editor";  // the data's, while another source is being chosen too
  const std::string name = file.substr(file.find_last_of("/\\") + 1);
  return name.substr(0, name.rfind('.'));
}

double writtenValue(const AnalysisState& state, int iCase, int column) {
  const Matrix<double>& written = state.uOrigin.written;
  const bool isKept = iCase <= written.lastRow() && column <= written.lastColumn();
  return isKept ? written(iCase, column) : state.sData(iCase, column);
}

int listedVariables(const AnalysisState& state) {
  return isAnalysed(state) ? state.iNumPredictors + 1 : 0;
}

std::span<const std::string> caseLabels(const AnalysisState& state) {
  if (!state.bLabeledData || state.tCaseLabel.empty()) return {};
  return std::span(state.tCaseLabel).subspan(1);
}

const std::string& variableName(const AnalysisState& state, int variable) {
  const Int16 column = state.iModelCol[variable];
  return state.tVarName[column];
}

}  // namespace tolmer
