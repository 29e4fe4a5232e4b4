// Courses that can be left with OK where nothing is to be analysed: nothing comes, and nothing of
// what the student can still do fails.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "notebook/notebook_window.h"
#include "shell/shipped_program.h"

namespace tolmer::test {
namespace {

class NoData : public ShippedProgram {
 protected:
  NoData() { script.window("frmOpeningBook"); }

  // The shipped course greys OK on such pages, so the book is closed here as its OK would.
  void okOnPage(Int16 section, Int16 page) {
    script.window("frmNotebook", [this, section, page] {
      NoteBook& book = module.parts().notebook;
      book.iLastSectionNumber = section;
      book.iLastPageNumber = page;
      book.iLastAction = NoteBook::closedByOK;
      book.window().hide();
    });
  }
  void okInEmptyDesigner() {
    script.window("frmModelDesign", [this] {
      EXPECT_EQ(user.get<TextBox>("frmModelDesign", "txtDepVar").text(), "");
      user.click("frmModelDesign", "cmdOK");
    });
  }
  void okOnDefaultExample() {
    okOnPage(1, 1);
    script.window("frmModelDesign", [this] { user.click("frmModelDesign", "cmdOK"); });
  }
  void start() {
    script.window("frmHint", [this] { user.click("frmHint", "cmdOK"); });
    module.Main();
    script.finish();
    EXPECT_FALSE(state().bStartingUp);
  }
  void useMenus() {
    user.menu("mdiReg", "File/Return to ZM Menu");
    user.menu("mdiReg", "Edit/Copy");
    user.menu("mdiReg", "Displays/Graphs/Residual Standardized Histogram");
    for (int twice = 0; twice < 2; ++twice) {
      user.menu("mdiReg", "Options/Display Regression Line on Scatterplots");
      user.menu("mdiReg", "Options/Display Correlation on Scatterplots");
      desktop.advance(1200);
    }
  }
};

TEST_F(NoData, SectionWithoutDataLeavesAFrameWhoseMenusWork) {
  okOnPage(6, 1);
  start();
  EXPECT_THROW(user.window("frmControlPanel"), std::runtime_error);
  useMenus();
  EXPECT_FALSE(module.parts().panel.tmrFlashUpdate.enabled());
  EXPECT_THROW(user.window("frmStdResidHist"), std::runtime_error);
  EXPECT_EQ(state().iCompletedFits, 0);
}

TEST_F(NoData, NotebookComesBackWhereAPageBroughtNone) {
  okOnPage(5, 1);  // the student's own data, and Cancel in the editor
  script.window("frmDataEditor", [this] { user.click("frmDataEditor", "cmdCancel"); });
  okOnPage(3, 1);  // the overview of the examples, before any was chosen
  okInEmptyDesigner();
  okOnPage(4, 1);
  okInEmptyDesigner();
  okOnDefaultExample();
  start();
  EXPECT_EQ(state().iCompletedFits, 1);
  EXPECT_EQ(user.window("frmEstCoef").tag(), "11");

  // Now the overview opens the data in use again, and the student's own data leave them alone.
  okOnPage(3, 1);
  script.window("frmModelDesign", [this] { user.click("frmModelDesign", "cmdOK"); });
  user.click("frmControlPanel", "cmdShowNotebook");
  EXPECT_EQ(state().iCompletedFits, 2);
  okOnPage(5, 1);
  script.window("frmDataEditor", [this] { user.click("frmDataEditor", "cmdCancel"); });
  user.click("frmControlPanel", "cmdShowNotebook");
  EXPECT_EQ(state().iCompletedFits, 2);
  EXPECT_EQ(state().iNumCases, 21);
}

TEST_F(NoData, QuadrantsWithoutAnalysisCanBeUsed) {
  okOnPage(3, 1);
  okInEmptyDesigner();
  okOnPage(2, 1);
  start();
  module.parts().analysis.RunAnalysis();
  EXPECT_EQ(state().iCompletedFits, 0);
  for (const char* display : {"frmEstCoef", "frmANOVA", "frmResidHist"}) {
    user.rightClick(display);
    user.maximise(display);
    user.restore(display);
    user.menu("mdiReg", "Edit/Copy");
  }
  useMenus();
  script.window("frmModelDesign", [this] {
    user.click("frmModelDesign", "cmdDepVarDeselect");
    user.click("frmModelDesign", "cmdOK");
  });
  user.click("frmControlPanel", "cmdChangeModel");
  user.click("frmControlPanel", "cmdChangeDataSource");
  okOnDefaultExample();
  user.click("frmControlPanel", "cmdShowNotebook");
  EXPECT_EQ(state().iCompletedFits, 1);
  EXPECT_EQ(user.window("frmANOVA").tag(), "21");
}

}  // namespace
}  // namespace tolmer::test
