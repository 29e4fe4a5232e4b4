// The ways out of the editor: what is asked, what the host gets, what stays in the sheet.
#include <gmock/gmock.h>

#include "editor/editor_visit.h"
#include "sheetfiles/editor_file.h"

namespace tolmer::test {
namespace {

using testing::ElementsAre;

const MessageBox notEnough{
    "Not Enough Data",
    "The sample size is too small for analysis. You need at least 3 complete observations. If you "
    "leave the Data Editor this data will NOT be used! Do you want to leave the Data Editor "
    "anyway?",
    MessageIcon::exclamation, MessageButtons::yesNo};

MessageBox incomplete(const std::string& cases) {
  return {"Missing Data",
          "Warning: " + cases +
              " be used in the analysis. Press OK to proceed by discarding incomplete data, or "
              "Cancel to return to the Data Editor.",
          MessageIcon::question, MessageButtons::okCancel};
}
const MessageBox oneIncomplete = incomplete("One case is incomplete. It cannot");

MessageBox onlyOneValue(const std::string& heading, const std::string& value) {
  return {"Variable Error", "Your Variable " + heading + " has only 1 value: " + value,
          MessageIcon::critical};
}

class DataEditorExit : public EditorVisit {
 protected:
  // Presses OK, which the editor refuses.
  void staysAfterOK() {
    click("cmdOK");
    desktop.advance(2000);
    EXPECT_TRUE(editor.visible());
  }
  void leavesUnsaved() {
    script.box(saveFirst, Answer::no);
    click("cmdOK");
  }
  std::vector<double> values(int iVar) {
    std::vector<double> all;
    for (int i = 1; i <= editor.CompleteObservations(); ++i)
      all.push_back(editor.DataValue(iVar, i));
    return all;
  }
};

TEST_F(DataEditorExit, TooFewCasesKeepTheStudentOrLeaveWithoutTheData) {
  visit([&] {
    script.box(notEnough, Answer::no);
    staysAfterOK();
    EXPECT_FALSE(editor.UserCancel());
    fill({{"1", "5"}, {"2", "6"}, {"3", ""}});
    script.box(oneIncomplete);
    script.box(notEnough, Answer::no);
    staysAfterOK();
    // Nobody asks whether to save what is not used.
    script.box(oneIncomplete);
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

TEST_F(DataEditorExit, AGapCountsOnlyBelowTheFirstValueOfItsColumn) {
  visit([&] {
    // Above all data, and above the second variable's first value: complete.
    fill({{"", ""}, {"1", ""}, {"2", "6"}, {"", "7"}, {"4", "8"}});
    script.box(oneIncomplete, Answer::cancel);
    staysAfterOK();
    type(5, 2, " ");  // blanks are no data
    type(1, 0, "  ");
    EXPECT_EQ(shown(5, 2) + shown(1, 0), "");
    script.box(incomplete("2 cases are incomplete. They cannot"));
    leavesUnsaved();
  });
  EXPECT_FALSE(editor.UserCancel());
  EXPECT_FALSE(editor.DataLabelsEntered());
  EXPECT_THAT(values(1), ElementsAre(0, 1, 2));
  EXPECT_THAT(values(2), ElementsAre(0, 0, 6));
}

TEST_F(DataEditorExit, AVariableWithOneValueIsRefusedUnlessItIsZero) {
  visit([&] {
    type(0, 3, "Fives");
    fill(
        {{"1", "0", "5", "1234.5678"}, {"2", "0", "5", "1234.5678"}, {"4", "0", "5", "1234.5678"}});
    script.box(onlyOneValue("Fives", "5"));
    staysAfterOK();
    type(2, 3, "6");
    script.box(onlyOneValue("Var4", "1,235"));
    staysAfterOK();
    mark(1, 4, 3, 4);
    key(keys::deleteKey);
    leavesUnsaved();
  });
  EXPECT_FALSE(editor.UserCancel());
  EXPECT_THAT(values(2), ElementsAre(0, 0, 0));
}

TEST_F(DataEditorExit, UnsavedDataMayBeSavedOnTheWay) {
  const std::string mine = folder.file("mine.zmm");
  visit([&] {
    fill({{"1"}, {"2"}, {"4"}});
    savesAs(std::nullopt);
    script.box(saveFirst, Answer::yes);
    staysAfterOK();
    EXPECT_FALSE(editor.UserCancel());
    script.box(saveFirst, Answer::yes);
    click("cmdCancel");
    EXPECT_TRUE(editor.visible());
    EXPECT_EQ(shown(3, 1), "4.000");
    savesAs(mine);
    script.box(saveFirst, Answer::yes);
    click("cmdOK");
  });
  EXPECT_FALSE(editor.UserCancel());
  EXPECT_EQ(loadEditorFile(mine)->cells(3, 1).number, 4);
  visit([&] {
    type(3, 1, "5");
    const std::string other = folder.file("other.zmm");
    savesAs(other);
    script.box(saveFirst, Answer::yes);  // by a name, although one is known
    click("cmdCancel");
    EXPECT_EQ(loadEditorFile(other)->cells(3, 1).number, 5);
  });
  EXPECT_TRUE(editor.UserCancel());
  EXPECT_EQ(shown(3, 1), "4.000") << "saved, and taken back all the same";
  EXPECT_FALSE(editor.sheet().changeMade());
}

TEST_F(DataEditorExit, CancelAsksOnlyWhereSomethingIsUnsaved) {
  visit([&] { click("cmdCancel"); });
  EXPECT_TRUE(editor.UserCancel());
  visit([&] {
    fill({{"1"}});
    savesAs(folder.file("mine.zmm"));
    click("cmdSave");
    choose("File/Close Editor and Discard Data");
  });
  EXPECT_TRUE(editor.UserCancel());
  EXPECT_EQ(shown(1, 1), "1.000") << "what was saved is not taken back";
  visit([&] {
    // The close box, while an entry is open.
    go(1, 1);
    editor.spdData.typeText("2");
    script.box(saveFirst, Answer::no);
    user.close("frmDataEditor");
    EXPECT_FALSE(editor.requestClose()) << "while the button flashes";
  });
  EXPECT_EQ(shown(1, 1), "1.000");
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

TEST_F(DataEditorExit, TheSnapshotOutlivesDialogsAndHoldsEverything) {
  visit([&] {
    fill({{"3", "1"}, {"1", "2"}, {"2", "4"}});
    leavesUnsaved();
  });
  const SheetContent before = editor.sheet().content();
  visit([&] {
    type(0, 1, "Rent");
    script.window("frmSortOptions", [&] {
      user.choose("frmSortOptions", "cmboSortVbl", "Rent");
      user.click("frmSortOptions", "cmdOK");
    });
    choose("Options/Sort...");
    editor.reportActivated();
    script.window("frmNumericFormat", [&] { user.click("frmNumericFormat", "cmdCancel"); });
    choose("Options/Format/Individual Column Format...");
    editor.reportActivated();
    script.window("frmNumericFormat", [&] {
      user.type("frmNumericFormat", "spnDecDigits(0)", "1");
      user.click("frmNumericFormat", "cmdOK");
    });
    choose("Options/Format/Standard Format...");
    EXPECT_EQ(shown(1, 1), "1.0");
    editor.txtTitle.setText("Rents");
    type(500, 50, "9");  // below and to the right of what the snapshot holds
    script.box(saveFirst, Answer::no);
    click("cmdCancel");
  });
  EXPECT_EQ(editor.sheet().content(), before);
  EXPECT_EQ(shown(0, 1) + shown(1, 1) + shown(500, 50), "Var13.000");
  EXPECT_EQ(editor.txtTitle.text(), "User Supplied Data");
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
