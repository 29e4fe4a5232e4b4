// A student at the model designer.
#pragma once

#include <gtest/gtest.h>

#include <random>

#include "data/designer.h"

namespace tolmer::test {

// Always the same student for the same seed.
class DesignerStudent {
 public:
  DesignerStudent(frmModelDesign& designer, unsigned seed) : designer_(designer), random_(seed) {}

  // A model that stands: one dependent variable, and a block of others without it.
  void chooseModel() {
    const int last = designer_.workingCopy().miNumCols;
    if (last < 1) return;
    designer_.spdIndepVars.press({1, 1});
    designer_.spdIndepVars.press({last, 1}, {.shift = true, .control = false});
    designer_.cmdIndVarDeselect.click();
    designer_.spdVarList.press({1 + upTo(last - 1), 1});
    designer_.cmdDepVarSelect.click();
    designer_.spdVarList.press({1 + upTo(last - 1), 1});
    designer_.spdVarList.press({1 + upTo(last - 1), 1}, {.shift = true, .control = false});
    designer_.cmdIndVarSelect.click();
  }

 private:
  int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }

  frmModelDesign& designer_;
  std::mt19937 random_;
};

inline void expectSoundModel(const frmModelDesign& designer) {
  const WorkingCopy& copy = designer.workingCopy();
  ASSERT_FALSE(copy.miDepVarCol > 0 && copy.obIsIndepVar(copy.miDepVarCol));
  int count = 0;
  for (int col = 1; col <= copy.miNumCols; ++col) {
    if (!copy.obIsIndepVar(col)) continue;
    ASSERT_EQ(copy.oiIndepVarCol(++count), col);
    ASSERT_EQ(designer.spdIndepVars.text(count, 2), copy.otColName(col));
  }
  ASSERT_EQ(copy.miNumPredictors, count);
  if (count < designer.spdIndepVars.maxRows()) {
    ASSERT_EQ(designer.spdIndepVars.text(count + 1, 1), "");
  }
}

}  // namespace tolmer::test
