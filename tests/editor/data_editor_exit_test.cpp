// The ways out of the editor: what is asked, and what stays in the sheet. What the host gets is
// compared with a model in data_editor_random_test.cpp.
#include <gmock/gmock.h>

#include "editor/editor_visit.h"
#include "sheetfiles/editor_file.h"

namespace tolmer::test {
namespace {

const MessageBox notEnough{
    "Not Enough Data",
    "The sample size is too small for analysis. You need at least 3 complete observations. If you "
    "leave the Data Editor this data will NOT be used! Do you want to leave the Data Editor "
    "anyway?",
    MessageIcon::exclamation, MessageButtons::yesNo};

const MessageBox twoIncomplete{
    "Missing Data",
    "Warning: 2 cases are incomplete. They cannot be used in the analysis. Press OK to proceed by "
    "discarding incomplete data, or Cancel to return to the Data Editor.",
    MessageIcon::question, MessageButtons::okCancel};

class DataEditorExit : public EditorVisit {
 protected:
  // Presses OK, which the editor refuses.
  void staysAfterOK() {
    click("cmdOK");
    desktop.advance(2000);
    EXPECT_TRUE(editor.visible());
  }
};

TEST_F(DataEditorExit, TooFewCasesKeepTheStudentOrLeaveWithoutTheData) {
  visit([&] {
    script.box(notEnough, Answer::no);
    staysAfterOK();
    EXPECT_FALSE(editor.UserCancel());
    fill({{"1", "5"}, {"2", "6"}, {"3", ""}, {"4", ""}});
    script.box(twoIncomplete, Answer::cancel);
    staysAfterOK();
    script.box(twoIncomplete);
    script.box(notEnough, Answer::no);
    staysAfterOK();
    // Nobody asks whether to save what is not used.
    script.box(twoIncomplete);
    script.box(notEnough, Answer::yes);
    click("cmdOK");
  });
  EXPECT_TRUE(editor.UserCancel());
  visit([&] {
    EXPECT_FALSE(editor.UserCancel());
    EXPECT_EQ(shown(2, 2), "6.000");
    type(3, 2, "8");
    type(1, 1, "7");
    script.box(saveFirst, Answer::no);
    click("cmdCancel");
  });
  EXPECT_EQ(shown(1, 1) + shown(3, 2), "1.000") << "a visit of its own";
}

TEST_F(DataEditorExit, ARefusedEntryStaysOpenUntilItIsMendedOrGivenUp) {
  visit([&] {
    fill({{"12"}, {"3"}, {"5"}});
    savesAs(folder.file("mine.zmm"));
    click("cmdSave");
    go(1, 1);
    editor.spdData.typeText("12,5");
    const auto stays = [&](const std::string& after) {
      EXPECT_EQ(editor.spdData.editText(), "12,5") << after;
      EXPECT_THAT(editor.lblStatus.caption(), testing::HasSubstr("Write the decimal mark"))
          << after;
      EXPECT_TRUE(editor.spdData.editMode() && editor.visible()) << after;
    };
    for (const std::string entry :
         {"File/New", "File/Open...", "File/Save", "File/Save As...",
          "File/Close Editor and Use Data", "Edit/Undo", "Edit/Cut", "Edit/Copy", "Edit/Paste",
          "Edit/Insert Row", "Edit/Delete Row", "Options/Format/Standard Format...",
          "Options/Format/Individual Column Format...", "Options/Sort..."}) {
      choose(entry);
      stays(entry);
    }
    for (const std::string button : {"cmdOK", "cmdSave", "cmdOpen"}) {
      click(button);
      stays(button);
    }
    user.key("frmDataEditor", {.code = 'S', .control = true});
    go(3, 1);
    script.box(saveFirst, Answer::yes);  // what is refused is unsaved
    user.close("frmDataEditor");
    EXPECT_EQ(editor.focus(), &editor.spdData);
    click("txtTitle");
    editor.txtTitle.setText("Rents");
    stays("the title");
    script.box(beforeTheEnd, Answer::yes);
    EXPECT_FALSE(editor.mayEndProgram());
    stays("the end");
    click("txtTitle");
    key(keys::escape);
    EXPECT_FALSE(editor.spdData.editMode()) << "also from the title";
    EXPECT_EQ(shown(1, 1), "12.000");
    click("cmdSave");
    go(1, 1);
    editor.spdData.typeText("x");
    script.box(saveFirst, Answer::no);
    click("cmdCancel");
  });
  EXPECT_TRUE(editor.UserCancel());
  EXPECT_FALSE(editor.spdData.editMode());
  EXPECT_EQ(loadEditorFile(folder.file("mine.zmm"))->cells(1, 1).number, 12);
}

TEST_F(DataEditorExit, NothingReachesTheSheetWhileAButtonAcknowledgesTheWayOut) {
  for (const std::string way : {"cmdOK", "cmdCancel"}) {
    visit([&] {
      fill({{"1"}, {"2"}, {way == "cmdOK" ? "4" : "5"}});
      desktop.setClipboard({.text = "7\t8\n9\t10\n"});
      go(1, 1);
      script.box(saveFirst, Answer::no);
      click(way);
      EXPECT_TRUE(isLit(way == "cmdOK" ? editor.cmdOK : editor.cmdCancel));
      EXPECT_TRUE(editor.visible() && editor.spdData.enabled()) << "it looks as ever";
      EXPECT_FALSE(editor.spdData.canBeUsed());
      EXPECT_THROW(user.key("frmDataEditor", {.code = 'V', .control = true}), std::runtime_error);
      EXPECT_THROW(choose("Edit/Paste"), std::runtime_error);
    });
    EXPECT_EQ(shown(3, 1), "4.000") << way;
    EXPECT_TRUE(editor.spdData.enabled() && editor.takesInput()) << "for the next visit";
  }
}

TEST_F(DataEditorExit, LeavingTheTitleBoxMarksTheDataChanged) {
  visit([&] {
    click("txtTitle");
    EXPECT_FALSE(editor.sheet().changeMade());
    editor.spdData.setFocus();
    EXPECT_TRUE(editor.sheet().changeMade());
    cancel();
  });
}

TEST_F(DataEditorExit, ABlankHeadingIsNamedWhereItsColumnHasData) {
  visit([&] {
    fill({{"1", "4"}, {"2", "6"}, {"3", "5"}});
    mark(0, 1, 0, 3);
    key(keys::deleteKey);
    EXPECT_EQ(shown(0, 1) + shown(0, 2), "");
    EXPECT_EQ(editor.spdData.sheet().at(1, 2).style.back, Colour::rgb(255, 255, 128));
    savesAs(folder.file("mine.zmm"));
    click("cmdSave");
    click("cmdOK");  // naming is no change that would have to be saved
  });
  EXPECT_EQ(editor.VarHeader(1) + "|" + editor.VarHeader(2) + "|" + editor.VarHeader(3),
            "Var1|Var2|");
  EXPECT_EQ(shown(0, 2), "Var2");
}

}  // namespace
}  // namespace tolmer::test
