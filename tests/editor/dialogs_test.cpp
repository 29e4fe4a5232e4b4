// Sorting, formatting, the title and the instructions, as the user of the editor meets them.
#include <gtest/gtest.h>

#include "editor/graph_title.h"
#include "editor/instructions.h"
#include "editor/numeric_format.h"
#include "editor/sort_options.h"
#include "support/headless_user.h"
#include "support/layout_check.h"
#include "support/script.h"

namespace tolmer {
namespace {

using test::HeadlessUser;
using test::Script;

struct Stage {
  explicit Stage(int variables) : sheet(20, variables) { sheet.startVisit(); }

  // "Ann 3 1|Bob 1 2": labels and values from row 1 on.
  void fill(const std::vector<std::vector<std::string>>& rows) {
    for (int r = 0; r < static_cast<int>(rows.size()); ++r)
      for (int c = 0; c < static_cast<int>(rows[r].size()); ++c)
        EXPECT_TRUE(sheet.enter(r + 1, c, rows[r][c]).accepted);
    sheet.markSaved("kept");
  }
  std::string shown(int rows, int lastColumn) const {
    std::string text;
    for (int r = 1; r <= rows; ++r) {
      for (int c = 0; c <= lastColumn; ++c) text += (c ? " " : "") + sheet.editText(r, c);
      text += "|";
    }
    return text;
  }
  template <class Dialog, class... Extra>
  void open(std::function<void()> actions, Extra... extra) {
    Dialog dialog(desktop, sheet, extra...);
    EXPECT_EQ(test::layoutFaults(dialog), "");
    script.window(dialog.name(), std::move(actions));
    dialog.showModal();
    script.finish();
  }

  HeadlessDesktop desktop;
  HeadlessUser user{desktop};
  Script script{desktop};
  DataSheet sheet;
};

TEST(SortOptions, FewVariablesAreOptionsAndCasesTravelWhole) {
  Stage stage(3);
  EXPECT_TRUE(stage.sheet.enter(0, 2, "R&D").accepted);
  EXPECT_TRUE(stage.sheet.enter(0, 3, " ").accepted);
  stage.fill({{"b", "2", "1"}, {"10", "", "2"}, {"9", "1", "3"}, {"c", "1", "4"}});
  const auto open = [&](std::function<void()> actions) {
    stage.open<frmSortOptions>(std::move(actions));
  };
  open([&] {
    EXPECT_EQ(stage.user.get<OptionButton>("frmSortOptions", "optSortBy(2)").caption(), "R&&D");
    EXPECT_EQ(stage.user.get<OptionButton>("frmSortOptions", "optSortBy(3)").caption(), "Column D");
    EXPECT_TRUE(stage.user.get<OptionButton>("frmSortOptions", "optSortByLabel").value());
    stage.user.click("frmSortOptions", "cmdHelp");
    stage.user.click("frmSortOptions", "optSortBy(1)");
    stage.user.key("frmSortOptions", {keys::escape});
  });
  EXPECT_EQ(stage.desktop.helpRequests().at(0).file, "dataedit");
  EXPECT_EQ(stage.desktop.helpRequests().at(0).context, 102);
  EXPECT_FALSE(stage.sheet.changeMade());

  open([&] { stage.user.key("frmSortOptions", {keys::enter}); });
  EXPECT_EQ(stage.shown(4, 2), "9 1 3|10  2|b 2 1|c 1 4|");
  open([&] {
    stage.user.click("frmSortOptions", "optSortBy(1)");
    stage.user.click("frmSortOptions", "optDescending");
    stage.user.click("frmSortOptions", "cmdOK");
  });
  EXPECT_EQ(stage.shown(4, 2), "b 2 1|9 1 3|c 1 4|10  2|") << "blanks last, ties in their order";
}

TEST(SortOptions, AsksBeforeFormulasBecomeValues) {
  Stage stage(2);
  stage.fill({{"", "3", "=B1*2"}, {"", "1", "=B2-B1"}});
  const std::string question =
      "One formula depends on the order of the rows. Sorting replaces it by its present number; "
      "Undo brings it back. Do you want to sort?";
  stage.open<frmSortOptions>([&] {
    stage.user.click("frmSortOptions", "optSortBy(1)");
    stage.script.box("Sort", question, Answer::cancel);
    stage.user.click("frmSortOptions", "cmdOK");
    EXPECT_EQ(stage.shown(2, 2), " 3 =B1*2| 1 =B2-B1|");
    EXPECT_FALSE(stage.sheet.changeMade());
    stage.script.box("Sort", question);
    stage.user.click("frmSortOptions", "cmdOK");
  });
  EXPECT_EQ(stage.shown(2, 2), " 1 -2| 3 =B2*2|");
  EXPECT_TRUE(stage.sheet.undo());
  EXPECT_EQ(stage.shown(2, 2), " 3 =B1*2| 1 =B2-B1|");
}

std::vector<int> digits(const DataSheet& sheet) {
  std::vector<int> all;
  for (int i = 1; i <= sheet.variables(); ++i) all.push_back(sheet.decimals(i));
  return all;
}

TEST(NumericFormat, StandardAndIndividualColumnsTogether) {
  Stage stage(6);
  const auto standard = [&](int count, const char* columns) {
    stage.open<frmNumericFormat>(
        [&] {
          EXPECT_EQ(stage.user.get<NumberBox>("frmNumericFormat", "spnDecDigits(0)").value(),
                    stage.sheet.miStdDecDigits());
          stage.user.type("frmNumericFormat", "spnDecDigits(0)", std::to_string(count));
          stage.user.click("frmNumericFormat", columns);
          stage.user.click("frmNumericFormat", "cmdOK");
        },
        true);
  };
  // Typed digits belong to the name that was shown, also where Return follows at once.
  const auto column = [&](const char* name, int count) {
    stage.open<frmNumericFormat>(
        [&] {
          stage.user.type("frmNumericFormat", "spnDecDigits(0)", "9");
          stage.user.choose("frmNumericFormat", "cmboVblNames", "Var2");
          stage.user.choose("frmNumericFormat", "cmboVblNames", "Var1");
          EXPECT_EQ(stage.user.get<NumberBox>("frmNumericFormat", "spnDecDigits(0)").value(), 9);
          stage.user.type("frmNumericFormat", "spnDecDigits(0)", "3");
          stage.user.choose("frmNumericFormat", "cmboVblNames", name);
          stage.user.type("frmNumericFormat", "spnDecDigits(0)", std::to_string(count));
          stage.user.key("frmNumericFormat", {keys::enter});
        },
        false);
  };
  column("Var2", 5);
  standard(1, "optCols(1)");
  EXPECT_EQ(digits(stage.sheet), (std::vector{1, 5, 1, 1, 1, 1}));
  standard(0, "optCols(0)");
  EXPECT_EQ(digits(stage.sheet), (std::vector{0, 0, 0, 0, 0, 0}));
}

TEST(NumericFormat, FewVariablesHaveABoxEachAndTheBinaryOneNone) {
  Stage stage(4);
  stage.open<frmNumericFormat>(
      [&] {
        EXPECT_EQ(stage.user.get<Label>("frmNumericFormat", "lblVarName(4)").caption(), "Var3");
        EXPECT_EQ(stage.user.control("frmNumericFormat", "spnDecDigits(1)").tip(),
                  "Number of digits to right of decimal point");
        EXPECT_ANY_THROW(stage.user.type("frmNumericFormat", "spnDecDigits(3)", "2"));
        stage.user.type("frmNumericFormat", "spnDecDigits(4)", "6");
        stage.user.click("frmNumericFormat", "cmdHelp");
        stage.user.click("frmNumericFormat", "cmdOK");
      },
      false);
  EXPECT_EQ(digits(stage.sheet), (std::vector{3, 3, 0, 6}));
  EXPECT_EQ(stage.desktop.helpRequests().at(0).context, 101);

  stage.sheet.markSaved("kept");
  stage.open<frmNumericFormat>([&] { stage.user.key("frmNumericFormat", {keys::escape}); }, false);
  EXPECT_FALSE(stage.sheet.changeMade());
  stage.open<frmNumericFormat>([&] { stage.user.click("frmNumericFormat", "cmdOK"); }, false);
  EXPECT_TRUE(stage.sheet.changeMade()) << "OK counts, even where no digit differs";
}

TEST(GraphTitle, AnEmptyBoxIsNoTitle) {
  Stage stage(2);
  const auto open = [&](const std::string& before, const std::string& typed) {
    stage.open<frmGraphTitle>([&] {
      EXPECT_EQ(stage.user.get<TextBox>("frmGraphTitle", "txtGraphTitle").text(), before);
      EXPECT_TRUE(stage.user.control("frmGraphTitle", "txtGraphTitle").hasFocus());
      stage.user.click("frmGraphTitle", "cmdHelp");
      stage.user.type("frmGraphTitle", "txtGraphTitle", typed);
      stage.user.key("frmGraphTitle", {keys::enter});
    });
  };
  open("User Supplied Data", "Rents of 1998");
  EXPECT_EQ(stage.sheet.title(), "Rents of 1998");
  open("Rents of 1998", "");
  EXPECT_EQ(stage.sheet.title(), "(No Title)");
  EXPECT_TRUE(stage.sheet.changeMade());
  stage.sheet.markSaved("kept");
  open("(No Title)", "");
  EXPECT_FALSE(stage.sheet.changeMade());
  EXPECT_EQ(stage.desktop.helpRequests().at(0).context, 103);
}

TEST(Instructions, StepsAreNumberedAndApart) {
  const std::string text = instructions(0);
  EXPECT_TRUE(text.starts_with(
      "Instructions for Bringing Text Files into Data Editor\n\n"
      "1.  Open your spreadsheet program (e.g., Excel or 123).\n\n"
      "2.  Bring the text file into the spreadsheet program.\n(a)  Select Open under File"));
  EXPECT_NE(text.find("Open button.\n\n3.  Parse the data into columns.\n(a)  A wizard"),
            text.npos);
  EXPECT_NE(text.find("Help file.\n\n4.  Copy a column or block of data."), text.npos);
  EXPECT_NE(text.find("\n\n5.  Paste the data in the ZM Data Editor.\n(a)  Return"), text.npos);
  const std::string other = instructions(1);
  EXPECT_TRUE(other.starts_with("Instructions for Bringing Spreadsheet Files into Data Editor\n"));
  EXPECT_EQ(other.find("Parse"), other.npos);
  EXPECT_NE(other.find("Open button.\n\n3.  Copy a column or block of data."), other.npos);
  EXPECT_NE(other.find("\n\n4.  Paste the data"), other.npos);
  EXPECT_TRUE(other.ends_with("selecting Paste under Edit in the Menu Bar."));
}

}  // namespace
}  // namespace tolmer
