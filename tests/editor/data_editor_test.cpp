// The data editor through its window.
#include "editor/data_editor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "base/file_io.h"
#include "support/headless_user.h"
#include "support/script.h"
#include "support/temp_folder.h"

namespace tolmer::test {
namespace {

using testing::HasSubstr;

class DataEditor : public testing::Test {
 protected:
  // One visit, in which the student does this and leaves.
  void visit(const std::function<void()>& actions) {
    script.window("frmDataEditor", actions);
    editor.ShowDataEditor();
    script.finish();
  }
  void type(int row, int col, const std::string& text) {
    EXPECT_TRUE(editor.spdData.enter({row + 1, col + 1}, text)) << text;
  }
  // Rows of values from observation 1, variable 1 on.
  void fill(const std::vector<std::vector<std::string>>& rows) {
    for (std::size_t i = 0; i < rows.size(); ++i)
      for (std::size_t j = 0; j < rows[i].size(); ++j)
        type(static_cast<int>(i) + 1, static_cast<int>(j) + 1, rows[i][j]);
  }
  std::string shown(int row, int col) { return editor.spdData.text(row + 1, col + 1); }
  void choose(MenuItem& item) {
    ASSERT_TRUE(item.enabled()) << item.name();
    item.click();
  }
  void mark(int row, int col, int row2, int col2) {
    editor.spdData.press({row + 1, col + 1});
    editor.spdData.press({row2 + 1, col2 + 1}, {.shift = true, .control = false});
  }

  TempFolder folder;
  HeadlessDesktop desktop;
  HeadlessUser user{desktop};
  Script script{desktop};
  frmDataEditor editor{desktop, {folder.path() + "/tolmod", ""}};
};

TEST_F(DataEditor, HandsOutTheCompleteCases) {
  visit([&] {
    type(0, 1, "Rent");
    type(1, 0, "Ann");
    fill({{"1", "10"}, {"2.5", "20"}, {"3", ""}, {"4", "=B4*10"}});
    EXPECT_EQ(shown(1, 1), "1.000");
    EXPECT_EQ(shown(4, 2), "40.000");
    script.box("Missing Data",
               "Warning: One case is incomplete. It cannot be used in the analysis. Press OK to "
               "proceed by discarding incomplete data, or Cancel to return to the Data Editor.");
    script.box("Data Changed", "There is unsaved data in the Data Editor. Do you want to save it?",
               Answer::no);
    user.click("frmDataEditor", "cmdOK");
  });
  EXPECT_FALSE(editor.UserCancel());
  EXPECT_EQ(editor.CompleteObservations(), 3);
  EXPECT_TRUE(editor.DataLabelsEntered());
  EXPECT_EQ(editor.DataLabel(1), "Ann");
  EXPECT_EQ(editor.VarHeader(1), "Rent");
  EXPECT_EQ(editor.VarHeader(2), "Var2");
  EXPECT_EQ(editor.DataValue(2, 3), 40);
  EXPECT_THROW(editor.VarHeader(51), std::out_of_range);
}

TEST_F(DataEditor, RefusesWordsAmongNumbersAndSaysWhy) {
  visit([&] {
    EXPECT_FALSE(editor.spdData.enter({2, 2}, "much"));
    EXPECT_EQ(shown(1, 1), "");
    EXPECT_THAT(editor.lblStatus.caption(), HasSubstr("much"));
    EXPECT_EQ(desktop.beeps(), 1);
    user.click("frmDataEditor", "cmdCancel");
  });
  EXPECT_TRUE(editor.UserCancel());
}

TEST_F(DataEditor, CancelGivesBackTheStartOfTheVisitAfterItsFlash) {
  visit([&] {
    fill({{"1", "2"}, {"3", "5"}, {"4", "4"}});
    script.box("Data Changed", "There is unsaved data in the Data Editor. Do you want to save it?",
               Answer::no);
    user.click("frmDataEditor", "cmdOK");
  });
  visit([&] {
    type(1, 1, "77");
    editor.txtTitle.setText("Other");
    script.box("Data Changed", "There is unsaved data in the Data Editor. Do you want to save it?",
               Answer::no);
    user.click("frmDataEditor", "cmdCancel");
    EXPECT_EQ(editor.cmdCancel.backColour(), Colour::rgb(255, 255, 128));
    EXPECT_TRUE(editor.visible());
  });
  EXPECT_TRUE(editor.UserCancel());
  EXPECT_EQ(shown(1, 1), "1.000");
  EXPECT_EQ(editor.txtTitle.text(), "User Supplied Data");
  EXPECT_EQ(editor.cmdCancel.backColour(), colours::buttonFace);
}

TEST_F(DataEditor, RowsComeAndGoButTheHeadingsStay) {
  visit([&] {
    fill({{"1"}, {"2"}, {"3"}});
    editor.spdData.setActiveCell({1, 2});
    script.box("", "You cannot insert a row before the variable names.");
    choose(editor.menu.mnuEditInsertRow);
    script.box("", "You cannot delete the row of variable names.");
    choose(editor.menu.mnuEditDeleteRow);
    editor.spdData.setActiveCell({3, 2});
    choose(editor.menu.mnuEditInsertRow);
    EXPECT_EQ(shown(2, 1) + "|" + shown(3, 1), "|2.000");
    choose(editor.menu.mnuEditUndo);
    EXPECT_EQ(shown(2, 1), "2.000");
    mark(1, 1, 2, 1);
    choose(editor.menu.mnuEditDeleteRow);
    EXPECT_EQ(shown(1, 1), "3.000");
    // The test before a deletion looks at the columns.
    mark(1, 0, 1, 1);
    script.box("", "You cannot delete the row of variable names.");
    choose(editor.menu.mnuEditDeleteRow);
    script.box("Data Changed", "There is unsaved data in the Data Editor. Do you want to save it?",
               Answer::no);
    user.click("frmDataEditor", "cmdCancel");
  });
}

TEST_F(DataEditor, CopiesFormulasHereAndNumbersElsewhere) {
  visit([&] {
    fill({{"1", "=B1*2"}, {"2"}});
    mark(1, 2, 1, 2);
    choose(editor.menu.mnuEditCopy);
    EXPECT_EQ(desktop.clipboard().text, "2\n");
    editor.spdData.press({3, 3});
    choose(editor.menu.mnuEditPaste);
    EXPECT_EQ(shown(2, 2), "4.000");
    desktop.setClipboard({.text = "Size\tAge\n3\t4\n5\t6\n"});
    editor.spdData.press({1, 5});
    choose(editor.menu.mnuEditPaste);
    EXPECT_EQ(shown(0, 4) + shown(2, 5), "Size6.000");
    choose(editor.menu.mnuEditUndo);
    EXPECT_EQ(shown(0, 4), "Var4");
    script.box("Data Changed", "There is unsaved data in the Data Editor. Do you want to save it?",
               Answer::no);
    user.click("frmDataEditor", "cmdCancel");
  });
}

TEST_F(DataEditor, SavesOpensAndRefusesWhatIsNoDataFile) {
  const std::string name = folder.file("mine.zmm");
  visit([&] {
    fill({{"0.1", "=B1+0.2"}, {"2"}});
    desktop.onSaveFile = [&](const FileQuestion&) { return std::optional(name); };
    user.click("frmDataEditor", "cmdSave");
    EXPECT_EQ(editor.caption(), "Data Editor [mine.zmm]");
    EXPECT_TRUE(editor.menu.mnuFileSave.enabled());
    type(1, 1, "9");
    desktop.onOpenFile = [&](const FileQuestion&) { return std::optional(name); };
    script.box("Data Changed",
               "The current data has not been saved. Do you want to load new data anyway?",
               Answer::yes);
    user.click("frmDataEditor", "cmdOpen");
    EXPECT_EQ(editor.sheet().value(1, 2), 0.1 + 0.2);

    const std::string other = folder.file("other.zmm");
    EXPECT_FALSE(writeFileAtomically(other, "no data at all"));
    desktop.onOpenFile = [&](const FileQuestion&) { return std::optional(other); };
    script.box("Bad File", "Could not load file " + other + ". Check file type.");
    user.click("frmDataEditor", "cmdOpen");
    EXPECT_EQ(editor.sheet().value(1, 2), 0.1 + 0.2);
    user.click("frmDataEditor", "cmdCancel");
  });
}

// What the grid shows is what the sheet holds, whatever a student does, and undoing it all gives
// the start back.
TEST_F(DataEditor, ShowsTheSheetUnderARandomStudent) {
  std::mt19937 random(3);
  const auto upTo = [&](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
  const char* const entries[] = {"1", "-2.5", "=B1+1", "=SUM(Var1)", "abc", "", "1e300", "=1/0"};
  const MenuItem* const commands[] = {
      &editor.menu.mnuEditCut,       &editor.menu.mnuEditCopy,
      &editor.menu.mnuEditPaste,     &editor.menu.mnuEditUndo,
      &editor.menu.mnuEditRedo,      &editor.menu.mnuEditInsertRow,
      &editor.menu.mnuEditDeleteRow, &editor.menu.mnuEditTypingReplaces};
  desktop.onMessageBox = [](const MessageBox&) { return Answer::no; };
  desktop.onModal = [&](Window& window) {
    if (&window != &editor) return window.hide();
    const SheetContent start = editor.sheet().content();
    for (int action = 1; action <= 4000; ++action) {
      const CellPosition cell{1 + upTo(12), 1 + upTo(6)};
      if (upTo(2) == 0) {
        const MenuItem& command = *commands[upTo(7)];
        if (command.enabled()) raise(command.Click);
      } else if (upTo(1)) {
        editor.spdData.enter(cell, entries[upTo(7)]);
      } else {
        editor.spdData.press(cell, {.shift = upTo(2) == 0, .control = false});
      }
      if (action % 50 != 0) continue;
      for (int row = 0; row <= 14; ++row)
        for (int col = 0; col <= 8; ++col)
          ASSERT_EQ(shown(row, col), editor.sheet().shownText(row, col)) << action;
    }
    while (editor.sheet().undo()) {
    }
    EXPECT_EQ(editor.sheet().content(), start);
    editor.cmdCancel.click();
  };
  editor.ShowDataEditor();
}

TEST_F(DataEditor, BringsUnsavedWorkBackAtTheNextStart) {
  const std::string aside = folder.path() + "/aside";
  {
    HeadlessDesktop first;
    first.onMessageBox = [](const MessageBox&) { return Answer::no; };
    frmDataEditor lost(first, {folder.path() + "/tolmod", aside});
    first.onModal = [&](Window&) {
      lost.spdData.enter({2, 2}, "42");
      first.advance(10000);
      throw ProgramEnded{1};  // as if it had been killed
    };
    EXPECT_THROW(lost.ShowDataEditor(), ProgramEnded);
  }
  frmDataEditor next(desktop, {folder.path() + "/tolmod", aside});
  std::string asked;
  desktop.onMessageBox = [&](const MessageBox& box) {
    if (asked.empty()) {
      asked = box.title;
      return Answer::yes;
    }
    return Answer::no;
  };
  desktop.onModal = [&](Window&) {
    EXPECT_EQ(next.sheet().value(1, 1), 42);
    EXPECT_TRUE(next.sheet().changeMade());
    next.cmdCancel.click();
  };
  next.ShowDataEditor();
  EXPECT_EQ(asked, "Unsaved Data");
}

}  // namespace
}  // namespace tolmer::test
