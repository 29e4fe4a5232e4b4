#include "course_folder.h"
#include "data/designer.h"
#include "platform/headless/headless_desktop.h"
#include "support/designer_student.h"

namespace tolmer {
namespace {

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
      test::DesignerStudent student(designer, 100 * seed + static_cast<unsigned>(round));
      const auto before = state.iModelCol;
      for (int action = 0; action < 100; ++action) {
        student.act();
        ASSERT_NO_FATAL_FAILURE(test::expectSoundModel(designer)) << seed << " " << round;
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
