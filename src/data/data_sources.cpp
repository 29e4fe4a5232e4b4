#include "data/data_sources.h"

#include <functional>
#include <utility>

#include "base/paths.h"
#include "data/data_file.h"
#include "data/scenario_parameters.h"

namespace tolmer {
namespace {

using Parameter = std::function<std::string(int)>;

void reportFaults(const std::string& faults, MessagePort& messages) {
  if (faults.empty()) return;
  messages.messageBox({"Error", "The course's entry for this data set is faulty. " + faults,
                       MessageIcon::exclamation, MessageButtons::ok});
}

// Files and sizes of a scenario's data set, and its dependent variable where it is an example.
void takeParameters(WorkingCopy& copy, const Parameter& parameter, bool isExample,
                    const std::string& programFolder, MessagePort& messages) {
  const ScenarioParameters parameters = scenarioParameters(parameter, isExample);
  reportFaults(parameters.faults, messages);
  copy.mtDataFileName = dataFileName(programFolder, parameters.dataFile);
  copy.mtDataFileInfoName = dataFileName(programFolder, parameters.infoFile);
  copy.dataStamp = parameters.dataStamp;
  copy.infoStamp = parameters.infoStamp;
  copy.mbInfoAvailable = parameters.infoAvailable;
  copy.mbLabeledData = parameters.labeledData;
  copy.miNumCases = parameters.numCases;
  copy.miNumCols = parameters.numCols;
  copy.miDepVarCol = parameters.depVarCol;
}

void loadExample(WorkingCopy& copy, const Parameter& parameter, const std::string& programFolder,
                 MessagePort& messages) {
  takeParameters(copy, parameter, true, programFolder, messages);
  copy.mbDepVarSpecified = copy.miDepVarCol > 0;
  copy.miNumPredictors = static_cast<Int16>(copy.miNumCols - 1);
  DimensionModelDesignerArrays(copy);
  ReadNewData(copy, messages);
  if (copy.miNumCols == 0) return;
  for (int col = 1; col <= copy.miNumCols; ++col) copy.obIsIndepVar(col) = col != copy.miDepVarCol;
  // miNumPredictors stays as told above even where the dependent variable is at fault.
  listIndepVars(copy);
}

bool copyVariable(WorkingCopy& copy, const StudentData& data, int iVar, int col) {
  bool hasValues = false;
  for (int i = 1; i <= copy.miNumCases; ++i) {
    const float value = static_cast<float>(data.mdValue(i, iVar));
    copy.osData(i, col) = value;
    copy.origin.written(i, col) = data.mdValue(i, iVar);
    hasValues = hasValues || value != 0.0F;
  }
  return hasValues;
}

// Cuts the data down to the columns in use, keeping them, and makes the other arrays anew.
void shrinkColumns(WorkingCopy& copy) {
  Matrix<float> used(copy.miNumCases, copy.miNumCols);
  for (int i = 0; i <= copy.miNumCases; ++i)
    for (int j = 0; j <= copy.miNumCols; ++j) used(i, j) = copy.osData(i, j);
  copy.osData = std::move(used);
  copy.otColName.redimPreserve(copy.miNumCols);
  copy.otVarInfo.redim(copy.miNumCols);
  copy.oiVarCol.redim(copy.miNumCols + 1);
  copy.obIsIndepVar.redim(copy.miNumCols);
  copy.oiIndepVarCol.redim(copy.miNumCols);
}

}  // namespace

std::string dataFileName(const std::string& programFolder, const std::string& tParameter) {
  return hostPath(tRemoveBackSlash(tParentFolder(tRemoveBackSlash(coursePath(programFolder)))) +
                  tParameter);
}

void LoadDefaultExample(WorkingCopy& copy, const ScenarioSource& scenarios,
                        const std::string& programFolder, MessagePort& messages) {
  loadExample(
      copy, [&](int iIndex) { return scenarios.DefaultScenarioParameter(iIndex); }, programFolder,
      messages);
}

void LoadNewExample(WorkingCopy& copy, const ScenarioSource& scenarios,
                    const std::string& programFolder, MessagePort& messages) {
  loadExample(
      copy, [&](int iIndex) { return scenarios.LastScenarioParameter(iIndex); }, programFolder,
      messages);
}

void LoadNewDatabase(WorkingCopy& copy, const ScenarioSource& scenarios,
                     const std::string& programFolder, MessagePort& messages) {
  takeParameters(
      copy, [&](int iIndex) { return scenarios.LastScenarioParameter(iIndex); }, false,
      programFolder, messages);
  clearModel(copy);
  DimensionModelDesignerArrays(copy);
  ReadNewData(copy, messages);
}

void LoadFromDataEditor(WorkingCopy& copy, const StudentData& data) {
  copy.mtDataFileName = noDataFile;
  copy.mtDataFileInfoName = noDataFile;
  copy.dataStamp.reset();
  copy.infoStamp.reset();
  copy.mbInfoAvailable = !data.description.empty();
  copy.mbLabeledData = data.mbDataLabelsEntered;
  copy.miNumCases = static_cast<Int16>(data.miCompleteObs);
  copy.miNumCols = EditorData::numberVariables;
  clearModel(copy);
  DimensionModelDesignerArrays(copy);
  copy.origin.leftOut = data.leftOut;
  copy.origin.copy = data.copy;
  copy.origin.written.resize(copy.miNumCases, copy.miNumCols);
  setInterceptColumn(copy);
  for (int i = 1; i <= copy.miNumCases; ++i)
    copy.otCaseLabel(i) = copy.mbLabeledData ? data.mtLabel[i] : std::to_string(i);

  Int16 used = 0;
  std::vector<std::string> info = data.description;
  for (int v = 1; v <= data.mdValue.lastColumn(); ++v) {
    if (!copyVariable(copy, data, v, used + 1)) continue;
    copy.otColName(++used) = data.mtVarHeader[v];
    if (copy.mbInfoAvailable) info[used] = data.description[v];
  }
  copy.miNumCols = used;
  shrinkColumns(copy);
  if (!copy.mbInfoAvailable) return;
  info.resize(static_cast<std::size_t>(used) + 1);
  copy.otVarInfo.setValues(std::move(info));
}

}  // namespace tolmer
