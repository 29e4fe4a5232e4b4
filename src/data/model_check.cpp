#include "data/model_check.h"

#include <cstddef>
#include <string_view>

namespace tolmer {
namespace {

// An entry of the model in force; before the first one there is no array.
Int16 modelColumn(const AnalysisState& state, int index) {
  const auto at = static_cast<std::size_t>(index);
  return at < state.iModelCol.size() ? state.iModelCol[at] : Int16{0};
}

bool sameDescription(const WorkingCopy& copy, const AnalysisState& state) {
  return copy.mbUseIntercept == state.bUseIntercept && copy.miNumCases == state.iNumCases &&
         copy.miNumCols == state.iNumCols && copy.mtDataFileName == state.tDataFileName &&
         copy.mtDataFileInfoName == state.tDataFileInfoName &&
         copy.mbLabeledData == state.bLabeledData && copy.mbInfoAvailable == state.bInfoAvailable &&
         copy.mtLabelColName == state.tLabelColName;
}

bool sameModel(const WorkingCopy& copy, const AnalysisState& state) {
  if (copy.miNumPredictors != state.iNumPredictors || copy.miDepVarCol != modelColumn(state, 1))
    return false;
  for (int i = 1; i <= copy.miNumPredictors; ++i)
    if (copy.oiIndepVarCol(i) != modelColumn(state, i + 1)) return false;
  return true;
}

bool sameLabels(const WorkingCopy& copy, const AnalysisState& state) {
  if (!copy.mbLabeledData) return true;
  for (int i = 1; i <= copy.miNumCases; ++i)
    if (copy.otCaseLabel(i) != state.tCaseLabel[static_cast<std::size_t>(i)]) return false;
  return true;
}

bool sameValues(const WorkingCopy& copy, const AnalysisState& state) {
  for (int i = 1; i <= copy.miNumCases; ++i)
    for (int j = 1; j <= copy.miNumCols; ++j)
      if (copy.osData(i, j) != state.sData(i, j)) return false;
  return true;
}

}  // namespace

void CheckForChanges(WorkingCopy& copy, const AnalysisState& state) {
  copy.mbModelHasChanged = !(sameDescription(copy, state) && sameModel(copy, state) &&
                             sameLabels(copy, state) && sameValues(copy, state));
}

void CheckModelSpec(WorkingCopy& copy) {
  copy.mtErrorMessage.clear();
  const auto require = [&](bool met, std::string_view sentence) {
    if (!met) copy.mtErrorMessage += sentence;
  };
  require(copy.mbDepVarSpecified, "No dependent variable was named. ");
  require(copy.miNumPredictors >= 1, "You need at least one independent variable. ");
  require(copy.miNumCases >= 3, "Sample size is too small for meaningful analysis. ");
  require(copy.miNumCases - copy.miNumPredictors - 1 >= 1,
          "Too many variables for this sample size. ");
  copy.mbModelOK = copy.mtErrorMessage.empty();
}

}  // namespace tolmer
