// The data set and the model as the model designer holds them while it is open. Nothing here is
// shared: the analysis state changes only when a model is accepted.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "fieldfile/file_stamp.h"
#include "state/analysis_state.h"
#include "state/matrix.h"

namespace tolmer {

// A vector addressed as the program's arrays are: with an int, from 0 to the upper bound.
template <class Value>
class IndexedArray {
 public:
  using Reference = typename std::vector<Value>::reference;
  using ConstReference = typename std::vector<Value>::const_reference;

  // Elements 0..last, all of them empty; what they held is lost.
  void redim(int last) { values_.assign(static_cast<std::size_t>(last) + 1, Value{}); }
  // The same, but elements up to the new bound keep what they hold.
  void redimPreserve(int last) { values_.resize(static_cast<std::size_t>(last) + 1); }
  int last() const { return static_cast<int>(values_.size()) - 1; }  // -1 while empty

  Reference operator()(int index) { return values_[index]; }
  ConstReference operator()(int index) const { return values_[index]; }

  const std::vector<Value>& values() const { return values_; }
  void setValues(std::vector<Value> values) { values_ = std::move(values); }

 private:
  std::vector<Value> values_;
};

// In the place of a file's name, for data that come another way.
inline constexpr const char* noDataFile = "None";

// Cases and columns count from 1. Element 0 of an array is empty unless its line says otherwise.
struct WorkingCopy {
  Int16 miNumCases = 0;
  Int16 miNumCols = 0;                 // variables; the intercept column is not counted
  std::string mtDataFileName;          // the host's full name; noDataFile for data of the editor
  std::string mtDataFileInfoName;      // likewise
  std::optional<FileStamp> dataStamp;  // of mtDataFileName, where the notebook has one
  std::optional<FileStamp> infoStamp;  // of mtDataFileInfoName, likewise
  bool mbLabeledData = false;          // every case has a label
  bool mbInfoAvailable = false;        // there is a variable-information file, or its content
  std::string mtLabelColName;          // heading of the label column
  Int16 miNumPredictors = 0;
  Int16 miDepVarCol = 0;                // 0 for none
  bool mbModelHasChanged = false;       // result of CheckForChanges
  bool mbModelOK = false;               // result of CheckModelSpec
  bool mbDepVarSpecified = false;       // a dependent variable is shown and counts
  std::string mtErrorMessage;           // result of CheckModelSpec
  bool mbUseIntercept = false;          // as the check box stood when OK was pressed
  bool mbNewDepVarOK = false;           // result of the last SpecifyDepVar
  Matrix<float> osData;                 // (0..miNumCases, 0..miNumCols); column 0 is the constant 1
  IndexedArray<std::string> otColName;  // (0..miNumCols); element 0 is "Intercept"
  IndexedArray<std::string> otCaseLabel;  // (0..miNumCases)
  IndexedArray<std::string> otVarInfo;    // (0..miNumCols); element 0 is the data set's comment
  IndexedArray<Int16> oiVarCol;           // (0..miNumCols+1); dimensioned with the others, unused
  IndexedArray<bool> obIsIndepVar;        // (0..miNumCols)
  IndexedArray<Int16> oiIndepVarCol;      // (0..miNumCols); 1..miNumPredictors, ascending
  DataOrigin origin;                      // of osData
};

// What describes the data of a working copy or of the state, field by field, to be compared or
// taken over.
auto describedData(auto& copy) requires requires { copy.miNumCases; }
{
  return std::tie(copy.mbUseIntercept, copy.miNumCases, copy.miNumCols, copy.mtDataFileName,
                  copy.mtDataFileInfoName, copy.mbLabeledData, copy.mbInfoAvailable,
                  copy.mtLabelColName);
}
auto describedData(auto& state) requires requires { state.iNumCases; }
{
  return std::tie(state.bUseIntercept, state.iNumCases, state.iNumCols, state.tDataFileName,
                  state.tDataFileInfoName, state.bLabeledData, state.bInfoAvailable,
                  state.tLabelColName);
}

// Gives all arrays the bounds of miNumCases and miNumCols; their contents are lost.
void DimensionModelDesignerArrays(WorkingCopy& copy);

// No dependent variable and no predictors. The arrays stay as they are.
void clearModel(WorkingCopy& copy);

// The name of the intercept and its column of ones, in the cases from 1.
void setInterceptColumn(WorkingCopy& copy);

// Numbers the columns marked in obIsIndepVar into oiIndepVarCol, ascending, and returns how many
// there are. The marks are the master; miNumPredictors is left to the caller.
Int16 listIndepVars(WorkingCopy& copy);

// Accepts the model: data and model go into the shared state, whose data arrays are dimensioned
// anew, and bModelHasChanged is set.
void CopyModuleVarsToGlobal(const WorkingCopy& copy, AnalysisState& state);

// Takes the data and the model in force, for a change of the model alone. Where none is in force
// the copy is empty, as for no data.
void CopyGlobalVarsToModule(WorkingCopy& copy, const AnalysisState& state);

}  // namespace tolmer
