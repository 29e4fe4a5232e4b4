#include "report/state_json.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace tolmer {
namespace {

// Elements first..last of an array, as far as it reaches.
template <class Array>
void writeArray(JsonWriter& json, std::string_view name, const Array& array, int first, int last) {
  json.key(name);
  json.beginArray();
  last = std::min(last, static_cast<int>(array.size()) - 1);
  for (int i = first; i <= last; ++i) json.value(array[static_cast<std::size_t>(i)]);
  json.endArray();
}

template <class Value>
void writeMatrix(JsonWriter& json, std::string_view name, const Matrix<Value>& matrix, int lastRow,
                 int lastColumn) {
  json.key(name);
  json.beginArray();
  for (int row = 1; row <= std::min(lastRow, matrix.lastRow()); ++row) {
    json.beginArray();
    for (int column = 1; column <= std::min(lastColumn, matrix.lastColumn()); ++column)
      json.value(matrix(row, column));
    json.endArray();
  }
  json.endArray();
}

void writeModel(JsonWriter& json, const AnalysisState& state) {
  const int variables = state.iNumPredictors + 1;
  json.member("iNumCases", state.iNumCases);
  json.member("iNumPredictors", state.iNumPredictors);
  json.member("iNumTerms", state.iNumTerms);
  json.member("bUseIntercept", state.bUseIntercept);
  writeArray(json, "iModelCol", state.iModelCol, 1, variables);
  writeArray(json, "tVarName", state.tVarName, 0, state.iNumCols);
  writeArray(json, "iVarType", state.iVarType, 1, variables);
  writeArray(json, "tVarFormat", state.tVarFormat, 1, variables);
  writeMatrix(json, "dDescStat", state.dDescStat, 4, variables);
  writeMatrix(json, "sCorr", state.sCorr, variables, variables);
  writeArray(json, "sVIF", state.sVIF, 1, state.iNumPredictors);
}

void writeFit(JsonWriter& json, const Fit& fit, int cases, int terms) {
  writeArray(json, "sFitted", fit.sFitted, 1, cases);
  writeArray(json, "sResid", fit.sResid, 1, cases);
  writeArray(json, "sCoef", fit.sCoef, 1, terms);
  writeArray(json, "sCoefSE", fit.sCoefSE, 1, terms);
  writeArray(json, "sCoefT", fit.sCoefT, 1, terms);
  writeArray(json, "sCoefP", fit.sCoefP, 1, terms);
  json.key("sVarCovDiagonal");
  json.beginArray();
  for (int i = 1; i <= std::min(terms, fit.sVarCov.lastRow()); ++i) json.value(fit.sVarCov(i, i));
  json.endArray();
  json.member("sSSR", fit.sSSR);
  json.member("sSSE", fit.sSSE);
  json.member("sSST", fit.sSST);
  json.member("sStdErr", fit.sStdErr);
  json.member("sRSquared", fit.sRSquared);
  json.member("sR", fit.sR);
  json.member("sF", fit.sF);
  json.member("sFProb", fit.sFProb);
  json.member("sDurbinWatson", fit.sDurbinWatson);
  json.member("bSingular", fit.bSingular);
}

void writeResiduals(JsonWriter& json, const AnalysisState& state) {
  const int classes = state.iNumResidClasses;
  writeArray(json, "sSortedResid", state.sSortedResid, 1, state.iNumCases);
  json.member("iNumResidClasses", state.iNumResidClasses);
  writeArray(json, "sResidClassLimit", state.sResidClassLimit, 1, classes + 1);
  writeArray(json, "iResidClassCount", state.iResidClassCount, 1, classes);
  json.member("iResidOutside", state.iResidOutside);
  writeArray(json, "iStdResidClassCount", state.iStdResidClassCount, 1, 8);
  json.member("iStdResidOutside", state.iStdResidOutside);
}

}  // namespace

void writeState(JsonWriter& json, const AnalysisState& state) {
  json.beginObject();
  writeModel(json, state);
  writeFit(json, state.Fit, state.iNumCases, state.iNumTerms);
  writeResiduals(json, state);
  json.endObject();
}

}  // namespace tolmer
