// A student at the model designer who does anything.
#pragma once

#include <gtest/gtest.h>

#include <random>

#include "data/designer.h"

namespace tolmer::test {

// A student who clicks anywhere, always the same way for the same seed.
class DesignerStudent {
 public:
  DesignerStudent(frmModelDesign& designer, unsigned seed) : designer_(designer), random_(seed) {}

  void act() {
    switch (upTo(9)) {
      case 0:
      case 1:
        return mark(designer_.spdVarList);
      case 2:
        return mark(designer_.spdIndepVars);
      case 3:
        return designer_.cmdDepVarSelect.click();
      case 4:
        return designer_.cmdDepVarDeselect.click();
      case 5:
      case 6:
        return designer_.cmdIndVarSelect.click();
      case 7:
        return designer_.cmdIndVarDeselect.click();
      case 8:
        return designer_.chkUseIntercept.setValue(upTo(1));
      default:
        designer_.spdVarList.pressKey(
            {.code = upTo(1) ? keys::down : keys::up, .shift = upTo(1) == 1});
    }
  }

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
  void mark(Grid& list) {
    const CellPosition from{1 + upTo(list.maxRows() - 1), 1};
    list.press(from, {.shift = false, .control = upTo(3) == 0});
    if (upTo(1)) list.press({1 + upTo(list.maxRows() - 1), 2}, {.shift = true, .control = false});
    list.click(from);
  }

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
