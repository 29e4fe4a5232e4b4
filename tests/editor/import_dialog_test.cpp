// What is asked before foreign text is brought in, and what comes of it.
#include "editor/import_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sheet/new_sheet.h"
#include "sheet/sheet_content.h"
#include "support/headless_user.h"
#include "support/layout_check.h"
#include "support/script.h"

namespace tolmer {
namespace {

constexpr const char* window = "frmTextImport";
const ImportTarget asFile{.observations = 500, .variables = 50};
const ImportTarget atCursor{TextOrigin::clipboard, 7, 2, 500, 50};

struct Stage {
  std::optional<ImportedTable> ask(const std::string& text, const ImportTarget& target,
                                   std::function<void()> actions) {
    const auto import = TextImport::read(text, target);
    frmTextImport dialog(desktop, *import, sheet, "data.csv");
    EXPECT_EQ(test::layoutFaults(dialog), "");
    EXPECT_LE(dialog.height(), desktop.screenSize().height);
    script.window(window, std::move(actions));
    auto table = dialog.ask();
    script.finish();
    return table;
  }
  ComboBox& answer(ImportDoubt doubt) {
    return user.get<ComboBox>(window,
                              "cmboAnswer(" + std::to_string(static_cast<int>(doubt) + 1) + ")");
  }
  void choose(ImportDoubt doubt, int index) {
    user.choose(window, answer(doubt).name(), answer(doubt).items().at(index));
  }
  std::string state() { return user.get<Label>(window, "lblState").caption(); }
  bool okWorks() { return user.window(window).find("cmdOK")->enabled(); }
  std::string row(int number) {
    auto& grid = user.get<Grid>(window, "spdPreview");
    std::string text;
    for (int col = 0; col <= grid.maxCols(); ++col)
      text += (col ? " " : "") + grid.text(number, col);
    return text;
  }

  HeadlessDesktop desktop;
  test::HeadlessUser user{desktop};
  test::Script script{desktop};
  SheetContent sheet = newContent(500, 50);
};

TEST(TextImportDialog, ClearTextNeedsOnlyReturn) {
  Stage stage;
  const auto table = stage.ask("Town,Price\nUlm,1.5\nRom,2\n", asFile, [&] {
    EXPECT_EQ(stage.user.window(window).caption(), "Bring in Data - data.csv");
    EXPECT_EQ(stage.row(1), "Obs Town Price");
    EXPECT_EQ(stage.row(2), "1 Ulm 1.5");
    EXPECT_EQ(stage.state(), "2 rows, 2 columns.");
    EXPECT_EQ(stage.user.get<Label>(window, "lblPreview").caption(),
              "As it would stand in the sheet:");
    EXPECT_THAT(stage.user.get<Label>(window, "lblNotes").caption(),
                testing::HasSubstr("Fields are divided by commas."));
    EXPECT_EQ(stage.answer(ImportDoubt::labels).listIndex(), 0);
    stage.user.key(window, {keys::enter});
  });
  ASSERT_TRUE(table);
  EXPECT_EQ(table->cells(1, 1).number, 2);
  EXPECT_EQ(table->firstColumn, 0);
}

TEST(TextImportDialog, OpenQuestionsHoldOkBackAndThePreviewFollows) {
  Stage stage;
  EXPECT_TRUE(stage.sheet.cells(0, 2).text == "Var2");
  const auto table = stage.ask("12%\t1\n34%\tx\n", atCursor, [&] {
    EXPECT_EQ(stage.row(1), "Obs Var2 Var3");
    EXPECT_EQ(stage.row(2), "7 12% 1");
    EXPECT_EQ(stage.answer(ImportDoubt::percent).listIndex(), -1);
    EXPECT_TRUE(stage.answer(ImportDoubt::percent).hasFocus());
    EXPECT_EQ(stage.state(), "2 questions wait for an answer.");
    EXPECT_FALSE(stage.okWorks());
    stage.user.key(window, {keys::enter});
    stage.choose(ImportDoubt::percent, 1);
    EXPECT_EQ(stage.row(2), "7 0.12 1");
    EXPECT_EQ(stage.state(), "1 question waits for an answer.");
    stage.user.key(window, {keys::tab});
    EXPECT_TRUE(stage.answer(ImportDoubt::words).hasFocus());
    stage.choose(ImportDoubt::words, 1);
    // Told not to bring it in, it says where, and the answer can still be another.
    stage.script.box("Bring in Data - data.csv",
                     "Nothing was brought in. line 2, column 2: \"x\" is no number.");
    stage.user.key(window, {keys::enter});
    stage.choose(ImportDoubt::words, 0);
    stage.user.key(window, {keys::enter});
  });
  ASSERT_TRUE(table);
  EXPECT_EQ(table->cells(1, 0).number, 0.34);
  EXPECT_FALSE(table->cells(1, 1).number);
}

TEST(TextImportDialog, AnAnswerHoldsOnlyForTheQuestionThatWasRead) {
  Stage stage;
  const auto table = stage.ask("(1),5;(7)\n(2),5;(8)\n(3),5;(3)\n", asFile, [&] {
    // Cut at commas, "(1)" is the first number in brackets; cut at semicolons, it is "(7)".
    stage.choose(ImportDoubt::separator, 1);
    stage.choose(ImportDoubt::brackets, 0);
    EXPECT_TRUE(stage.okWorks());
    stage.choose(ImportDoubt::separator, 0);
    EXPECT_EQ(stage.answer(ImportDoubt::brackets).listIndex(), -1);
    EXPECT_FALSE(stage.okWorks());
    stage.user.key(window, {keys::escape});
  });
  EXPECT_FALSE(table);
}

TEST(TextImportDialog, ATableTooLargeCanBeMendedByAnotherAnswerOnly) {
  Stage stage;
  std::string wide;
  for (int line = 0; line < 2; ++line) {
    for (int i = 0; i < 60; ++i) wide += i ? ",1" : "1;1";
    wide += '\n';
  }
  stage.ask(wide, asFile, [&] {
    stage.choose(ImportDoubt::separator, 1);
    EXPECT_EQ(stage.state(),
              "The text has 2 rows and 60 columns of data; there is room for 500 and 50. Press "
              "Variables to choose.");
    EXPECT_FALSE(stage.okWorks());
    stage.choose(ImportDoubt::separator, 0);
    EXPECT_TRUE(stage.okWorks());
    EXPECT_EQ(stage.answer(ImportDoubt::separator).listIndex(), 0);
    stage.user.close(window);
  });
}

// From a table that is too large to one that lands, by the keyboard alone.
TEST(TextImportDialog, TicksVariablesAndChoosesCasesOfALargeTable) {
  constexpr const char* choice = "frmVariableChoice";
  Stage stage;
  std::string text;
  for (int i = 0; i < 60; ++i) text += (i ? ",v" : "v") + std::to_string(i);
  for (int row = 1; row <= 600; ++row) {
    text += "\n" + std::to_string(row);
    for (int i = 1; i < 60; ++i)
      text += i == 7 ? (row % 3 ? ",North" : ",South") : "," + std::to_string(row * i);
  }
  const auto state = [&] { return stage.user.get<Label>(choice, "lblState").caption(); };
  const auto type = [&](const char* box, const char* typed) {
    stage.user.get<TextBox>(choice, box).setText(typed);
  };
  stage.script.window(choice, [&] {
    EXPECT_EQ(test::layoutFaults(stage.user.window(choice)), "");
    EXPECT_EQ(stage.user.get<Label>(choice, "lblSize").caption(),
              "There are 60 variables and 600 cases; the sheet has room for 50 and 500.");
    stage.user.click(choice, "cmdAll");
    EXPECT_EQ(state(), "60 of 60 variables ticked; they take 60 columns, there is room for 50.");
    EXPECT_FALSE(stage.user.window(choice).find("cmdOK")->enabled());
    stage.user.click(choice, "cmdNone");
    auto& list = stage.user.get<Grid>(choice, "spdVariables");
    list.setFocus();
    stage.user.key(choice, {keys::space});
    type("txtFind", "v7");
    EXPECT_EQ(list.maxRows(), 2);
    stage.user.key(choice, {keys::space});
    EXPECT_EQ(list.text(2, 1) + list.text(2, 7), "Yes1 and 0");
    stage.user.choose(choice, "cmboReference", "South");
    EXPECT_EQ(state(), "2 of 60 variables ticked; they take 2 columns, there is room for 50.");
    type("txtWhere", "v99 > 3");
    stage.user.key(choice, {keys::enter});
    EXPECT_EQ(state(), "The condition: there is no variable \"v99\".");
    type("txtWhere", "v7 = south");
    stage.user.key(choice, {keys::enter});
  });
  const auto table = stage.ask(text, asFile, [&] {
    EXPECT_THAT(stage.user.get<Label>(window, "lblNotes").caption(),
                testing::HasSubstr("Of 600 cases 200 meet"));
    stage.script.window(choice, [&] {
      EXPECT_EQ(state(), "2 of 60 variables ticked; they take 2 columns, there is room for 50.");
      stage.user.get<OptionButton>(choice, "optFirst").setValue(true);
      stage.user.key(choice, {keys::enter});
    });
    stage.user.click(window, "cmdVariables");
    stage.user.key(window, {keys::enter});
  });
  ASSERT_TRUE(table);
  EXPECT_EQ(table->headings, (std::vector<std::string>{"v0", "v7: North"}));
  EXPECT_EQ(table->cells.lastRow(), 499);
}

// Every doubt that can stand beside the others, in a window that the user makes small and large.
TEST(TextImportDialog, ManyQuestionsFitTheScreen) {
  Stage stage;
  const std::string text =
      "Name\tx\ty\n1\t1,234\t12 345\nAnn\tNA\t12%\nBob\t$3\tsome words that go on and on\nCy\n";
  stage.ask(text, {TextOrigin::clipboard, 1, 1, 500, 50}, [&] {
    Window& dialog = stage.user.window(window);
    for (const ImportDoubt doubt :
         {ImportDoubt::headingPlace, ImportDoubt::shortRows, ImportDoubt::decimalMark})
      EXPECT_TRUE(stage.answer(doubt).visible());
    for (const Size inner : {Size{dialog.width(), dialog.height()}, Size{pixels(1200), pixels(740)},
                             Size{pixels(640), dialog.height()}}) {
      dialog.reportInnerSize(inner);
      EXPECT_EQ(test::layoutFaults(dialog), "");
    }
    stage.user.key(window, {keys::escape});
  });
}

}  // namespace
}  // namespace tolmer
