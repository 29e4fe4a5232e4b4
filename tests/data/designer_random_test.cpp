#include <random>

#include "course_folder.h"
#include "data/designer.h"
#include "platform/headless/headless_desktop.h"

namespace tolmer {
namespace {

// A student who clicks anywhere, always the same way for the same seed.
class RandomStudent {
 public:
  RandomStudent(frmModelDesign& designer, unsigned seed) : designer_(designer), random_(seed) {}

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

void expectSoundModel(const frmModelDesign& designer) {
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

TEST(DesignerRandom, ModelStaysSoundAndTheStateChangesByOkAlone) {
  test::CourseFolder folder;
  folder.write("set.csv", "A,B,C,D,E\n1,2,3,4,5\n2,3,4,5,7\n3,4,5,6,9\n1,1,1,2,2\n");
  test::StandInScenarios scenarios;
  scenarios.last = {"\\data\\set.csv", "", "False", "False", "4", "5", "2"};
  HeadlessDesktop desktop;
  const FrameWindow frame(desktop, "mdiReg", "Tolmer");
  for (unsigned seed = 1; seed <= 20; ++seed) {
    AnalysisState state;
    state.iDataSource = seed % 2 == 0 ? scenarioExample : databasePage;
    for (int round = 0; round < 10; ++round) {
      frmModelDesign designer(desktop, state, {scenarios, folder.programFolder()}, frame);
      designer.show();
      RandomStudent student(designer, 100 * seed + static_cast<unsigned>(round));
      const auto before = state.iModelCol;
      for (int action = 0; action < 100; ++action) {
        student.act();
        ASSERT_NO_FATAL_FAILURE(expectSoundModel(designer)) << seed << " " << round;
      }
      EXPECT_EQ(state.iModelCol, before);
      designer.cmdOK.click();
      if (designer.visible()) {
        EXPECT_EQ(state.iModelCol, before);  // refused
      } else if (state.bModelHasChanged) {
        EXPECT_EQ(state.iModelCol[1], designer.workingCopy().miDepVarCol);
        EXPECT_LE(state.iNumPredictors, 2);  // what four cases allow
      }
      state.bChangeModelOnly = state.iNumCases > 0;
    }
  }
}

}  // namespace
}  // namespace tolmer
