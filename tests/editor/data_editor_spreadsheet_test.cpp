// What a user of spreadsheets expects of the data editor's sheet.
#include <gmock/gmock.h>

#include "editor/editor_visit.h"
#include "support/layout_check.h"

namespace tolmer::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class DataEditorAsSpreadsheet : public EditorVisit {
 protected:
  void press(int row, int col, ClickKeys held = {}) {
    editor.spdData.press({row + 1, col + 1}, held);
  }
  void keys(int code, KeyPress held) {
    held.code = code;
    user.key("frmDataEditor", held);
  }
  void startTyping(int row, int col, const std::string& text) {
    go(row, col);
    editor.spdData.typeText(text);
  }
  // Texts of a column from observation 1 on.
  std::string column(int col, int rows) {
    std::string text;
    for (int row = 1; row <= rows; ++row)
      text += (row > 1 ? " " : "") + editor.sheet().editText(row, col);
    return text;
  }
  std::string status() { return editor.lblStatus.caption(); }
  std::string typed() { return editor.spdData.editText(); }
  CellPosition cursor() {
    const CellPosition at = editor.spdData.activeCell();
    return {at.row - 1, at.col - 1};
  }
  std::vector<CellBlock> marked() { return editor.spdData.selection().blocks(); }
};

TEST_F(DataEditorAsSpreadsheet, HomeIsTheFirstValueAndANameIsTypedAnew) {
  visit([&] {
    go(7, 3);
    keys(keys::home, {.control = true});
    EXPECT_EQ(cursor(), (CellPosition{1, 1}));
    editor.spdData.press({1, 3});
    editor.spdData.doubleClick({1, 3});
    editor.spdData.typeText("Rent");
    EXPECT_EQ(typed(), "Rent");
    key(keys::enter);
    EXPECT_EQ(editor.VarHeader(2), "Rent");
    type(1, 1, "12");
    go(1, 1);
    editor.spdData.doubleClick({2, 2});
    editor.spdData.typeText("5");
    EXPECT_EQ(typed(), "125") << "a value is mended";
    key(keys::escape);
    cancel();
  });
}

TEST_F(DataEditorAsSpreadsheet, WholeRowsAndSeveralBlocksGoAtOneStroke) {
  visit([&] {
    fill({{"1", "10"}, {"2", "=B2*10"}, {"3", "30"}, {"4", "40"}, {"5", "50"}});
    editor.spdData.press({3, 0});
    editor.spdData.press({5, 0}, {.shift = false, .control = true});
    choose("Edit/Delete Row");
    EXPECT_EQ(column(1, 4), "1 3 5 ");
    choose("Edit/Undo");
    EXPECT_EQ(column(1, 5), "1 2 3 4 5");
    EXPECT_EQ(status(), "Undone: Delete Row, Obs 2 and 1 other");
    EXPECT_EQ(marked().size(), 2u);
    editor.spdData.press({1, 0});
    editor.spdData.press({2, 0}, {.shift = true, .control = false});
    script.box({{}, "You cannot delete the row of variable names.", MessageIcon::information});
    choose("Edit/Delete Row");

    go(1, 1);
    press(3, 1, {.shift = false, .control = true});
    editor.spdData.dragTo({4, 3});
    choose("Edit/Copy");
    EXPECT_THAT(status(), StartsWith("Nothing was copied")) << "blocks of unlike width";
    go(2, 2);
    press(4, 2, {.shift = false, .control = true});
    choose("Edit/Copy");
    EXPECT_EQ(desktop.clipboard().text, "20\n40\n");
    for (const char* entry : {"Edit/Cut", "Edit/Paste", "Edit/Insert Row", "Edit/Fill Down"}) {
      choose(entry);
      EXPECT_THAT(status(), HasSubstr("takes one block")) << entry;
    }
    go(1, 3);
    choose("Edit/Paste");
    EXPECT_EQ(column(3, 2), "20 40") << "the formula's result: its cells are not beside it";
    go(2, 2);
    press(4, 2, {.shift = false, .control = true});
    key(keys::deleteKey);
    EXPECT_EQ(column(2, 5), "10  30  50");
    choose("Edit/Undo");
    EXPECT_EQ(column(2, 5), "10 =B2*10 30 40 50");
    cancel();
  });
}

TEST_F(DataEditorAsSpreadsheet, UndoGoesToWhatItBringsBack) {
  visit([&] {
    fill({{"1", "2"}, {"3", "4"}});
    mark(1, 1, 2, 2);
    key(keys::deleteKey);
    type(400, 9, "5");
    go(30, 2);
    choose("Edit/Undo");
    EXPECT_EQ(cursor(), (CellPosition{400, 9}));
    EXPECT_EQ(status(), "Undone: Typing, J400");
    choose("Edit/Undo");
    EXPECT_EQ(marked(), (std::vector<CellBlock>{{2, 2, 3, 3}}));
    EXPECT_EQ(status(), "Undone: Delete, B1:C2");
    choose("Edit/Redo");
    EXPECT_EQ(status(), "Redone: Delete, B1:C2");
    key(keys::down);
    EXPECT_EQ(status(), "B2 = Var1, Obs 2");
    cancel();
  });
}

TEST_F(DataEditorAsSpreadsheet, PointsAtCellsWhileAFormulaIsTyped) {
  visit([&] {
    fill({{"1", "10"}, {"2", "20"}, {"3", "30"}});
    type(0, 2, "GNP per head");
    startTyping(1, 3, "=");
    EXPECT_EQ(editor.spdData.columnTags().at(2), "B");
    EXPECT_THAT(status(), StartsWith("Click a cell"));
    press(1, 1);
    EXPECT_EQ(typed(), "=B1");
    EXPECT_THAT(status(), HasSubstr("B1 = Var1, Obs 1:  1"));
    press(2, 1);
    EXPECT_EQ(typed(), "=B2") << "until a letter is typed, another cell takes its place";
    editor.spdData.typeText("*SUM(");
    press(1, 2);
    editor.spdData.dragTo({4, 3});
    editor.spdData.typeText(")+");
    key(keys::left);
    key(keys::left);
    keys(keys::down, {.shift = true});
    EXPECT_EQ(typed(), "=B2*SUM(C1:C3)+B1:B2");
    key(keys::up);
    key(keys::up);
    EXPECT_EQ(typed(), "=B2*SUM(C1:C3)+Var1") << "a name has no address";
    editor.spdData.typeText("+SUM(");
    press(0, 2);
    EXPECT_EQ(typed(), "=B2*SUM(C1:C3)+Var1+SUM([GNP per head]");
    editor.spdData.typeText(")");
    key(keys::enter);
    EXPECT_EQ(editor.sheet().value(1, 3), 2 * 60 + 1 + 60);
    EXPECT_TRUE(editor.spdData.columnTags().empty());

    // Behind a whole operand a press ends the entry, within the text it puts the address there.
    startTyping(2, 3, "=B2");
    press(3, 3);
    EXPECT_EQ(editor.sheet().editText(2, 3), "=B2");
    startTyping(3, 3, "=(+1)");
    editor.spdData.reportEditMark({2, 0});
    press(3, 2);
    EXPECT_EQ(typed(), "=(C3+1)");
    key(keys::escape);
    startTyping(1, 0, "=");
    press(1, 1);
    EXPECT_EQ(editor.sheet().editText(1, 0), "=") << "a label is text";
    cancel();
  });
}

TEST_F(DataEditorAsSpreadsheet, FillsDownAndGoesOnWithSeries) {
  visit([&] {
    fill({{"0.1", "=B1*2", "7"}, {"0.2", "", "9"}, {"", "", "12"}});
    type(1, 0, "1990");
    type(2, 0, "1991");
    mark(1, 2, 4, 2);
    choose("Edit/Fill Down");
    EXPECT_EQ(column(2, 5), "=B1*2 =B2*2 =B3*2 =B4*2 ");
    EXPECT_EQ(marked(), (std::vector<CellBlock>{{2, 3, 5, 3}}));
    go(5, 2);
    keys('D', {.control = true});
    EXPECT_EQ(column(2, 5), "=B1*2 =B2*2 =B3*2 =B4*2 =B5*2") << "one cell takes the one above";
    go(1, 2);
    choose("Edit/Fill Down");
    EXPECT_THAT(status(), HasSubstr("none to copy"));
    EXPECT_TRUE(editor.sheet().undoName() == "Fill");

    EditGrid& grid = editor.spdData;
    mark(1, 0, 2, 1);
    grid.startFill();
    grid.fillTo({6, 4});
    EXPECT_EQ(grid.fillTarget(), (CellBlock{2, 1, 6, 2}));
    grid.endFill();
    EXPECT_EQ(column(0, 5), "1990 1991 1992 1993 1994");
    EXPECT_EQ(column(1, 5), "0.1 0.2 0.3 0.4 0.5");
    mark(4, 1, 5, 1);
    grid.startFill();
    grid.fillTo({1, 2});
    grid.endFill();
    EXPECT_EQ(column(1, 5), "0.1 0.2 0.3 0.4 0.5") << "and upwards, as far as the names";
    mark(1, 3, 6, 3);
    choose("Edit/Fill Series");
    EXPECT_EQ(column(3, 6), "7 9 12 7 9 12") << "no equal distances";
    type(1, 4, "5");
    go(1, 4);
    grid.fillBeside();
    EXPECT_EQ(column(4, 7), "5 5 5 5 5 5 ") << "one number is repeated";
    type(1, 0, "Ann");
    go(1, 0);
    grid.startFill();
    grid.fillTo({2, 2});
    grid.endFill();
    EXPECT_THAT(status(), StartsWith("One cell was not taken. \"Ann\""));
    EXPECT_EQ(editor.sheet().editText(1, 1), "0.1");
    cancel();
  });
}

TEST_F(DataEditorAsSpreadsheet, FindsAndReplacesInNamesLabelsValuesAndFormulas) {
  visit([&] {
    type(0, 1, "Rent");
    fill({{"12", "=LN(Rent)"}, {"1.5"}, {"120"}});
    type(2, 0, "rent a car");
    go(1, 1);
    script.window("frmFind", [&] {
      EXPECT_EQ(layoutFaults(*desktop.modalWindow()), "");
      const auto found = [&] { return user.get<Label>("frmFind", "lblFound").caption(); };
      const auto press = [&](const std::string& button) { user.click("frmFind", button); };
      user.type("frmFind", "txtFind", "rent");
      press("cmdFindNext");
      EXPECT_EQ(found(), "2 of 3:  C1 = Var2, Obs 1:  =LN(Rent)");
      EXPECT_EQ(cursor(), (CellPosition{1, 2}));
      press("cmdFindNext");
      press("cmdFindNext");
      EXPECT_EQ(cursor(), (CellPosition{0, 1})) << "from the end it goes on at the beginning";
      press("cmdFindPrevious");
      EXPECT_EQ(cursor(), (CellPosition{2, 0}));
      user.type("frmFind", "txtFind", "1.500");
      press("cmdFindNext");
      EXPECT_EQ(cursor(), (CellPosition{2, 1})) << "as it is shown";
      user.type("frmFind", "txtFind", "12");
      press("chkWhole");
      user.type("frmFind", "txtReplace", "x");
      press("cmdReplace");
      EXPECT_EQ(cursor(), (CellPosition{1, 1})) << "at first it is found";
      press("cmdReplace");
      EXPECT_EQ(found(), "The cell was not changed. \"x\" is not a number.");
      press("chkWhole");
      user.type("frmFind", "txtReplace", "34");
      press("cmdReplaceAll");
      EXPECT_EQ(found(), "3 cells were changed.") << "Var12, too";
      press("chkCase");
      user.type("frmFind", "txtFind", "Rent");
      user.type("frmFind", "txtReplace", "Fee");
      press("cmdReplaceAll");
      press("cmdReplaceAll");
      EXPECT_EQ(found(), "\"Rent\" is in no cell.");
      press("cmdClose");
    });
    keys('H', {.control = true});
    EXPECT_EQ(column(1, 3), "34 1.5 340");
    EXPECT_EQ(editor.sheet().editText(1, 2), "=LN(Fee)");
    EXPECT_EQ(editor.VarHeader(1) + editor.sheet().editText(2, 0), "Feerent a car");
    choose("Edit/Undo");
    EXPECT_EQ(editor.VarHeader(1) + editor.sheet().editText(1, 2), "Rent=LN(Rent)");
    script.window("frmFind", [&] {
      EXPECT_EQ(user.get<TextBox>("frmFind", "txtReplace").text(), "Fee") << "as it was left";
      user.click("frmFind", "cmdClose");
    });
    keys('H', {.control = true});
    cancel();
  });
}

TEST_F(DataEditorAsSpreadsheet, TheRightButtonOffersWhatCanBeDoneWithTheCells) {
  visit([&] {
    fill({{"1"}, {"2"}});
    MenuItem* offered = nullptr;
    desktop.onPopupMenu = [&](MenuItem& menu, Window&) { offered = &menu; };
    editor.spdData.pressForMenu({3, 2});
    user.rightClick("frmDataEditor", "spdData");
    ASSERT_EQ(offered, &editor.cellMenu.top);
    EXPECT_EQ(cursor(), (CellPosition{2, 1})) << "the cell under the mouse";
    editor.cellMenu.mnuCellsClear.click();
    EXPECT_EQ(column(1, 2), "1 ");
    editor.cellMenu.mnuCellsFillDown.click();
    EXPECT_EQ(column(1, 2), "1 1");
    mark(1, 1, 2, 1);
    editor.spdData.pressForMenu({3, 2});
    EXPECT_EQ(marked().size(), 1u) << "what is marked stays marked";
    cancel();
  });
}

}  // namespace
}  // namespace tolmer::test
