#include "data/working_copy.h"

namespace tolmer {
namespace {

void copyDataToGlobal(const WorkingCopy& copy, AnalysisState& state) {
  state.tVarName = copy.otColName.values();
  for (int i = 1; i <= copy.miNumCases; ++i) {
    for (int j = 0; j <= copy.miNumCols; ++j) state.sData(i, j) = copy.osData(i, j);
    state.tCaseLabel[i] = copy.otCaseLabel(i);
  }
  if (copy.mbInfoAvailable) state.tVarDesc = copy.otVarInfo.values();
  state.uOrigin = copy.origin;
}

void copyModelToGlobal(const WorkingCopy& copy, AnalysisState& state) {
  state.iModelCol[1] = copy.miDepVarCol;
  for (int i = 1; i <= copy.miNumPredictors; ++i) state.iModelCol[i + 1] = copy.oiIndepVarCol(i);
  state.iModelCol[copy.miNumPredictors + 2] = 0;
}

void takeModel(WorkingCopy& copy, const AnalysisState& state) {
  copy.mbDepVarSpecified = true;
  copy.miDepVarCol = state.iModelCol[1];
  for (int i = 1; i <= copy.miNumPredictors; ++i) {
    const Int16 col = state.iModelCol[i + 1];
    copy.oiIndepVarCol(i) = col;
    copy.obIsIndepVar(col) = true;
  }
}

}  // namespace

void clearModel(WorkingCopy& copy) {
  copy.miDepVarCol = 0;
  copy.mbDepVarSpecified = false;
  copy.miNumPredictors = 0;
}

void DimensionModelDesignerArrays(WorkingCopy& copy) {
  copy.osData.resize(copy.miNumCases, copy.miNumCols);
  copy.otColName.redim(copy.miNumCols);
  copy.otCaseLabel.redim(copy.miNumCases);
  copy.otVarInfo.redim(copy.miNumCols);
  copy.oiVarCol.redim(copy.miNumCols + 1);
  copy.obIsIndepVar.redim(copy.miNumCols);
  copy.oiIndepVarCol.redim(copy.miNumCols);
  copy.origin = {};
}

void setInterceptColumn(WorkingCopy& copy) {
  copy.otColName(0) = "Intercept";
  for (int i = 1; i <= copy.miNumCases; ++i) copy.osData(i, 0) = 1.0F;
}

Int16 listIndepVars(WorkingCopy& copy) {
  Int16 count = 0;
  for (Int16 col = 1; col <= copy.miNumCols; ++col)
    if (copy.obIsIndepVar(col)) copy.oiIndepVarCol(++count) = col;
  return count;
}

void CopyModuleVarsToGlobal(const WorkingCopy& copy, AnalysisState& state) {
  state.bModelHasChanged = true;
  describedData(state) = describedData(copy);
  state.iNumPredictors = copy.miNumPredictors;
  RedimDataArrays(state);
  copyDataToGlobal(copy, state);
  copyModelToGlobal(copy, state);
}

void CopyGlobalVarsToModule(WorkingCopy& copy, const AnalysisState& state) {
  describedData(copy) = describedData(state);
  copy.miNumPredictors = state.iNumPredictors;
  DimensionModelDesignerArrays(copy);
  if (!hasModel(state)) return;
  copy.otColName.setValues(state.tVarName);
  copy.otCaseLabel.setValues(state.tCaseLabel);
  copy.osData = state.sData;
  copy.origin = state.uOrigin;
  if (copy.mbInfoAvailable) copy.otVarInfo.setValues(state.tVarDesc);
  takeModel(copy, state);
}

}  // namespace tolmer
