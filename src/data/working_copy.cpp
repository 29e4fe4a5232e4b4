#include "data/working_copy.h"

namespace tolmer {

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

}  // namespace tolmer
