// A copy of an example's data in the editor: named as one, marked once it differs, and nothing that
// was in the editor before is lost.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/designer.h"
#include "report/report_document.h"
#include "shell/shipped_program.h"

namespace tolmer::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class EditedCopy : public ShippedProgram {
 protected:
  EditedCopy() { startWithDefaultExample(); }
  ShellParts& parts() { return module.parts(); }
  frmDataEditor& editor() { return parts().ownData.editor(); }
  const std::string& status() {
    desktop.advance(1000);
    return parts().frame.lblStatus.caption();
  }
  void type(int row, int col, const std::string& text) {
    EXPECT_TRUE(editor().spdData.enter({row + 1, col + 1}, text)) << text;
  }
  // Leaves by OK, without saving where something has changed.
  void expectEditor(bool isChanged, const std::function<void()>& actions) {
    script.window("frmDataEditor", [this, actions] {
      actions();
      user.click("frmDataEditor", "cmdOK");
    });
    if (isChanged)
      script.box("Data Changed",
                 "There is unsaved data in the Data Editor. Do you want to save it?", Answer::no);
  }
  void editCopy(bool isChanged, const std::function<void()>& actions) {
    expectEditor(isChanged, actions);
    script.window("frmModelDesign", [&] {
      auto& designer = dynamic_cast<frmModelDesign&>(*desktop.modalWindow());
      EXPECT_EQ(designer.workingCopy().miNumPredictors, 3) << "the model in force";
      user.click("frmModelDesign", "cmdOK");
    });
    user.menu("mdiReg", "Explore/Edit a Copy of These Data");
    script.finish();
  }
  void editAgain(const std::function<void()>& actions) {
    expectEditor(true, actions);
    script.window("frmModelDesign", [&] { user.click("frmModelDesign", "cmdOK"); });
    user.click("frmControlPanel", "cmdChangeDataSource");
    script.finish();
  }
  void takeExampleAgain() {
    script.window("frmNotebook", [&] { user.click("frmNotebook", "cmdOK"); });
    script.window("frmModelDesign", [&] { user.click("frmModelDesign", "cmdOK"); });
    user.click("frmControlPanel", "cmdShowNotebook");
    script.finish();
  }
};

TEST_F(EditedCopy, IsMarkedAsSoonAsAValueDiffers) {
  const float loss = state().sData(3, state().iModelCol[1]);
  const Fit before = state().Fit;
  editCopy(false, [&] { EXPECT_EQ(editor().txtTitle.text(), "Copy of stakloss"); });
  EXPECT_THAT(status(), StartsWith("Copy of stakloss   ·   21 of 21 cases   ·   StackLoss on "));
  EXPECT_TRUE(state().Fit == before);
  editAgain([&] { type(3, 1, "81"); });
  EXPECT_THAT(status(), StartsWith("Edited copy of stakloss   ·   "));
  EXPECT_THAT(
      parts().notes.notes().front().text,
      HasSubstr("an edited copy of stakloss: 1 value differs, AirFlow of case 3 (81 in place "
                "of "));
  EXPECT_EQ(parts().notes.notes().front().cases, std::vector<int>{3});
  const ReportDocument document = reportDocument(state(), {}, {});
  EXPECT_TRUE(std::ranges::any_of(document.facts, [](const ReportFact& fact) {
    return fact.name == "Data file" && fact.value == "Edited copy of stakloss";
  }));
  EXPECT_EQ(state().sData(3, state().iModelCol[1]), loss);
  parts().frame.mnuExplore.click();
  EXPECT_FALSE(parts().frame.mnuExploreEditCopy.enabled()) << "they are in the editor";
  editAgain([&] { type(3, 1, "75"); });
  EXPECT_THAT(status(), StartsWith("Copy of stakloss"));
}

TEST_F(EditedCopy, TakesNothingFromWhatWasInTheEditor) {
  editCopy(true, [&] { type(3, 1, "81"); });
  takeExampleAgain();
  const std::string question =
      "The data in the Data Editor have not been saved. Do you want to save them before the copy "
      "of "
      "stakloss takes their place?";
  script.box("Unsaved Data", question, Answer::cancel);
  user.menu("mdiReg", "Explore/Edit a Copy of These Data");
  script.finish();
  EXPECT_EQ(editor().sheet().value(3, 1), 81);
  script.box("Unsaved Data", question, Answer::no);
  script.window("frmDataEditor", [&] {
    EXPECT_EQ(editor().sheet().value(3, 1), 75);
    user.click("frmDataEditor", "cmdCancel");
  });
  user.menu("mdiReg", "Explore/Edit a Copy of These Data");
  script.finish();
  EXPECT_EQ(editor().sheet().value(3, 1), 81) << "Cancel brings it back";
  EXPECT_EQ(state().iDataSource, scenarioExample);
  EXPECT_THAT(status(), StartsWith("stakloss"));
}

}  // namespace
}  // namespace tolmer::test
