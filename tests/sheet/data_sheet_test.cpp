// What a user sees of the sheet, one subject a test. What any order of actions may break is in
// data_editor_random_test.cpp.
#include "sheet/data_sheet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "textimport/typed_number.h"

namespace tolmer {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

CellRange block(int row, int column, int lastRow, int lastColumn) {
  return {{row, column}, {lastRow, lastColumn}};
}
CellRange at(int row, int column) { return block(row, column, row, column); }

std::vector<std::string> column(const DataSheet& sheet, int col, int rows) {
  std::vector<std::string> texts;
  for (int r = 1; r <= rows; ++r) texts.push_back(sheet.shownText(r, col));
  return texts;
}
void fill(DataSheet& sheet, int col, const std::vector<std::string>& texts) {
  int row = 0;
  for (const std::string& text : texts) sheet.enter(++row, col, text);
}

struct Entry {
  const char* typed;
  const char* shown;
  const char* edited;  // nullptr: refused
};

TEST(DataSheetTest, ValueCellsTakeWhatCanOnlyBeOneNumber) {
  for (const Entry& entry : {
           Entry{" 12 ", "12.000", "12"},
           Entry{"+.5", "0.500", "0.5"},
           Entry{"5.", "5.000", "5"},
           Entry{"-1.5e3", "-1500.000", "-1500"},
           Entry{"0.30000000000000004", "0.300", "0.30000000000000004"},
           Entry{"2.0005", "2.001", "2.0005"},  // 2.000499999999999989: by its 15 digits a half
           Entry{"-0.0001", "0.000", "-0.0001"},
           Entry{"1e300", "1e+300", "1e+300"},
           Entry{"1e-400", "0.000", "0"},
           Entry{" \t ", "", ""},
           Entry{"1,5", "", nullptr},
           Entry{"1e999", "", nullptr},
           Entry{"abc", "", nullptr},
           Entry{"inf", "", nullptr},
           Entry{"nan", "", nullptr},
           Entry{"+-1", "", nullptr},
           Entry{"-5*2", "-10.000", "=-5*2"},
           Entry{"$5", "5.000", "5"},
           Entry{"-5 \xE2\x82\xAC", "-5.000", "-5"},
           Entry{"(1,234,567.5)", "-1234567.500", "-1234567.5"},
           Entry{"1 234", "1234.000", "1234"},
           Entry{"1\xC2\xA0"
                 "234",
                 "1234.000", "1234"},
           Entry{"1\xE2\x80\xAF"
                 "234",
                 "1234.000", "1234"},
           Entry{"1\xE2\x80\x89"
                 "234",
                 "1234.000", "1234"},
           Entry{"\xE2\x88\x92"
                 "5",
                 "-5.000", "-5"},
           Entry{"1234 567", "", nullptr},
           Entry{"(5", "", nullptr},
           Entry{"1,234", "", nullptr},
           Entry{"50%", "", nullptr},
           Entry{"NA", "", nullptr},
           Entry{"-", "", nullptr},
           Entry{"0x10", "", nullptr},
           Entry{"1 2", "", nullptr},
           Entry{"=1+", "", nullptr},
       }) {
    DataSheet sheet(3, 2);
    sheet.enter(1, 1, "7");
    const EntryOutcome outcome = sheet.enter(1, 1, entry.typed);
    EXPECT_EQ(outcome.accepted, entry.edited != nullptr) << entry.typed;
    EXPECT_EQ(outcome.reason.empty(), outcome.accepted) << entry.typed;
    EXPECT_EQ(sheet.editText(1, 1), entry.edited ? entry.edited : "7") << entry.typed;
    EXPECT_EQ(sheet.shownText(1, 1), entry.edited ? entry.shown : "7.000") << entry.typed;
  }
  DataSheet sheet(3, 2);
  for (const auto& [typed, told] : std::map<std::string, std::string>{
           {"1,5", "\"1,5\" has a comma. Write the decimal mark as a point: 1.5."},
           {"1.234,5", "\"1.234,5\" has a comma. Write the decimal mark as a point: 1234.5."},
           {"1.234.567", "\"1.234.567\" has points between thousands. Write 1234567."},
           {"1,234", "\"1,234\" can be 1234 or 1.234. Write the one you mean."},
           {"$1,234", "\"$1,234\" can be 1234 or 1.234. Write the one you mean."},
           {"12.3%", "\"12.3%\" can be 12.3 or 0.123. Write the one you mean."},
           {"NA", "\"NA\" is not a number. Leave the cell empty where a value is missing."},
           {"B1*2", "\"B1*2\" is not a number. A formula begins with \"=\"."},
           {"-Nowhere", "Character 2: There is no variable called \"Nowhere\"."}})
    EXPECT_EQ(sheet.enter(1, 1, typed).reason, told);
  EXPECT_EQ(sheet.enter(1, 1, "$5").taken, "\"$5\" was taken as 5.");
  EXPECT_EQ(sheet.enter(1, 1, "+5").taken, "");
  sheet.enter(1, 0, " =A1\n\"x\" ");
  EXPECT_EQ(sheet.shownText(1, 0), " =A1 \"x\" ") << "a label is text, on one line";
  sheet.enter(1, 0, "   ");
  EXPECT_EQ(sheet.cell(1, 0), DataCell{});
}

TEST(DataSheetTest, NumbersBeyondDoublesAreToldFromThoseBelow) {
  using Kind = NumberReading::Kind;
  const std::string zeros(400, '0');
  EXPECT_EQ(readNumber("1" + zeros).kind, Kind::tooLarge);
  EXPECT_EQ(readNumber("1" + zeros + "e-399").number, 10) << "not too large at all";
  EXPECT_EQ(readNumber("1e99999999999999999999").kind, Kind::tooLarge);
  EXPECT_EQ(readNumber("0." + zeros + "1").number, 0);
  EXPECT_EQ(readNumber("0." + zeros + "1e800").kind, Kind::tooLarge);
  EXPECT_EQ(readNumber("1" + zeros + "e-800").number, 0);
  EXPECT_TRUE(std::signbit(readNumber("-1e-99999999999999999999").number));
  EXPECT_EQ(readNumber("4.9406564584124654e-324").number, 4.9406564584124654e-324);
}

TEST(DataSheetTest, FormulasFollowWhatTheyReferTo) {
  DataSheet sheet(5, 3);
  fill(sheet, 1, {"2", "4", "6"});
  fill(sheet, 2, {"=B1*10", "=SUM(B1:B3)", "=Var1", "=1/0", "=C4"});
  EXPECT_THAT(column(sheet, 2, 5), ElementsAre("20.000", "12.000", "6.000", "#DIV/0!", "#DIV/0!"));
  EXPECT_FALSE(sheet.value(4, 2).has_value());
  sheet.enter(0, 1, "Height");
  EXPECT_EQ(sheet.editText(3, 2), "=Height");
  sheet.undo();
  EXPECT_EQ(sheet.editText(3, 2), "=Var1");
  sheet.redo();

  EXPECT_EQ(sheet.insertRows(2, 2), 1) << "the row of =C4 is pushed out";
  EXPECT_EQ(sheet.editText(3, 2), "=SUM(B1:B4)");
  EXPECT_THAT(column(sheet, 2, 5), ElementsAre("20.000", "", "12.000", "6.000", "#DIV/0!"));
  sheet.deleteRows(1, 1);
  EXPECT_EQ(sheet.editText(2, 2), "=SUM(B1:B3)");
  EXPECT_EQ(sheet.shownText(2, 2), "10.000");

  sheet.enter(1, 1, "=C2");  // C2 adds up column B
  EXPECT_EQ(sheet.shownText(1, 1), "#CYCLE");
  EXPECT_EQ(sheet.shownText(2, 2), "#CYCLE");
  sheet.undo();
  EXPECT_EQ(sheet.shownText(2, 2), "10.000");
}

TEST(DataSheetTest, NamesThatAreCellsWorkBareWhereTheColumnIsUnused) {
  DataSheet sheet(5, 30);
  sheet.enter(0, 1, "X1");
  fill(sheet, 1, {"2", "4"});
  EXPECT_EQ(sheet.enter(1, 2, "=X1*2").taken,
            "Taken with the variable, not the cell of that name: =[X1]*2");
  EXPECT_EQ(sheet.shownText(1, 2), "4.000");
  sheet.enter(0, 1, "V1");
  EXPECT_EQ(sheet.editText(1, 2), "=[V1]*2");
  EXPECT_FALSE(sheet.enter(1, 21, "=V1").accepted) << "in column V itself";
  sheet.enter(5, 21, "7");
  EXPECT_EQ(sheet.shownText(1, 2), "4.000") << "what is stored stays as it was taken";
  EXPECT_THAT(sheet.enter(2, 2, "=V1").reason, HasSubstr("Write [V1]"));
}

TEST(DataSheetTest, FormulasWithLabelsAndRowsFollowSortingAndEditing) {
  DataSheet sheet(4, 3);
  fill(sheet, 0, {"north", "South", "north"});
  fill(sheet, 1, {"3", "1", "2"});
  for (int row = 1; row <= 3; ++row) sheet.enter(row, 2, "=IF(Label=\"NORTH\",1,0)");
  for (int row = 1; row <= 3; ++row) sheet.enter(row, 3, "=ROW()");
  EXPECT_EQ(sheet.orderDependentFormulas(), 3);
  sheet.sort(1, true);
  EXPECT_THAT(column(sheet, 2, 3), ElementsAre("0.000", "1.000", "1.000"));
  EXPECT_THAT(column(sheet, 3, 3), ElementsAre("2.000", "3.000", "1.000"));
  sheet.enter(1, 0, "North");
  EXPECT_EQ(sheet.shownText(1, 2), "1.000");
  sheet.enter(0, 0, "Region");
  EXPECT_EQ(sheet.editText(1, 2), "=IF(Region=\"NORTH\",1,0)");
  sheet.enter(4, 3, "=ROW()");
  sheet.insertRows(1, 1);
  EXPECT_EQ(sheet.enter(1, 3, "=ROW()+ROW(C3)").accepted, true);
  EXPECT_EQ(sheet.shownText(1, 3), "4.000");
}

TEST(DataSheetTest, RandomNumbersStayUntilTheyAreEdited) {
  DataSheet sheet(6, 2);
  fill(sheet, 1, {"3", "1", "2"});
  sheet.enter(1, 2, "=RANDN()");
  sheet.paste(block(2, 2, 3, 2), sheet.copy(at(1, 2)).table);
  const auto value = [&](int row) { return *sheet.value(row, 2); };
  const double first = value(1), second = value(2), third = value(3);
  EXPECT_NE(first, second);
  EXPECT_NE(second, third);
  sheet.sort(1, true);
  EXPECT_EQ(std::vector({value(1), value(2), value(3)}), std::vector({second, third, first}));
  DataSheet opened(6, 2);
  opened.replaceWith(sheet.content(), "file");
  EXPECT_EQ(opened.value(1, 2), second);
  opened.enter(4, 2, "=RANDN()");
  for (int row = 1; row <= 3; ++row) EXPECT_NE(opened.value(4, 2), opened.value(row, 2));
  sheet.enter(1, 2, "=RANDN()");
  EXPECT_NE(value(1), second);
  sheet.undo();
  EXPECT_EQ(value(1), second);
}

TEST(DataSheetTest, SortsCasesWithTheirLabelsBlanksLast) {
  DataSheet sheet(8, 2);
  fill(sheet, 0, {"b", "10", "9", "", "A", "a"});
  fill(sheet, 1, {"1", "2", "3", "4", "5", "6"});
  sheet.sort(0, true);
  EXPECT_THAT(column(sheet, 0, 6), ElementsAre("9", "10", "A", "a", "b", ""));
  EXPECT_EQ(sheet.shownText(1, 1), "3.000");
  sheet.sort(0, false);
  EXPECT_THAT(column(sheet, 0, 6), ElementsAre("b", "A", "a", "10", "9", ""));
  sheet.enter(8, 1, "-1");
  sheet.sort(1, false);
  EXPECT_THAT(column(sheet, 1, 8),
              ElementsAre("6.000", "5.000", "4.000", "3.000", "2.000", "1.000", "-1.000", ""));
}

TEST(DataSheetTest, SortingTellsOfFormulasThatPointToOtherRows) {
  DataSheet sheet(5, 3);
  fill(sheet, 1, {"3", "1", "2"});
  fill(sheet, 2, {"=B1*2", "=AVERAGE(Var1)", "=MAX(B$1:B$5)"});
  EXPECT_EQ(sheet.orderDependentFormulas(), 0);
  fill(sheet, 3, {"=B2", "=LAG(Var1)", "=B$3"});
  EXPECT_EQ(sheet.orderDependentFormulas(), 3);
  sheet.sort(1, true);
  EXPECT_EQ(sheet.editText(3, 2), "=B3*2");
  EXPECT_THAT(column(sheet, 2, 3), ElementsAre("2.000", "3.000", "6.000"));
  EXPECT_THAT(column(sheet, 3, 3), ElementsAre("3.000", "2.000", "1.000"));
  EXPECT_EQ(sheet.editText(3, 3), "1");
}

TEST(DataSheetTest, PastesWholeOrNotAtAll) {
  DataSheet sheet(5, 3);
  PasteTable table;
  table.cells.resize(2, 1);
  table.cells(0, 0) = {.kind = DataCell::Kind::number, .number = 7, .text = "007"};
  table.cells(0, 1) = {.kind = DataCell::Kind::text, .text = "x"};
  table.cells(1, 1) = {.kind = DataCell::Kind::text, .text = "=B1+1"};
  table.cells(2, 1) = {.kind = DataCell::Kind::text, .text = "y"};
  const SheetContent before = sheet.content();
  PasteOutcome outcome = sheet.paste(at(4, 1), table);
  EXPECT_FALSE(outcome.pasted);
  EXPECT_EQ(outcome.reason,
            "Nothing was pasted: the block has 3 rows, and from here on 2 will fit.");
  EXPECT_THAT(sheet.paste(at(1, 3), table).reason, HasSubstr("has 2 columns"));
  EXPECT_TRUE(sheet.content() == before && !sheet.changeMade());

  table.headings = {"Age", ""};
  outcome = sheet.paste(at(1, 0), table);
  EXPECT_EQ(outcome.refused, 2);
  EXPECT_EQ(outcome.reason, "\"x\" is not a number.");
  EXPECT_EQ(sheet.shownText(1, 0), "007");
  EXPECT_EQ(sheet.heading(0), "Age");
  EXPECT_EQ(sheet.heading(1), "Var1");
  EXPECT_EQ(sheet.shownText(2, 1), "1.000");
  EXPECT_EQ(sheet.undoName(), "Paste");
  sheet.undo();
  EXPECT_TRUE(sheet.content() == before);
}

TEST(DataSheetTest, CopiesExactlyAndFillsWithFormulas) {
  DataSheet sheet(6, 3);
  sheet.enter(1, 0, "5\" pipe");
  sheet.enter(2, 0, "\"q\"");
  sheet.enter(1, 1, "0.30000000000000004");
  sheet.enter(2, 1, "=B1/0");
  const CopiedBlock copied = sheet.copy(block(1, 0, 2, 1));
  EXPECT_EQ(copied.exactText, "5\" pipe\t0.30000000000000004\n\"\"\"q\"\"\"\t#DIV/0!\n");
  EXPECT_EQ(copied.texts(0, 1), "0.30000000000000004");
  EXPECT_EQ(copied.texts(1, 1), "#DIV/0!");
  sheet.enter(1, 1, "0.5");
  EXPECT_EQ(sheet.copy(at(1, 1)).texts(0, 0), "0.500") << "nothing is lost by the screen's digits";

  sheet.enter(1, 2, "=B1+$B$1");
  sheet.paste(block(2, 2, 4, 2), sheet.copy(at(1, 2)).table);
  EXPECT_EQ(sheet.editText(4, 2), "=B4+$B$1");
  sheet.paste(at(1, 1), sheet.copy(at(1, 2)).table);
  EXPECT_EQ(sheet.editText(1, 1), "=A1+$B$1");
  sheet.paste(at(6, 3), sheet.cut(at(4, 2)).table);
  EXPECT_EQ(sheet.editText(6, 3), "=B4+$B$1") << "what was cut keeps its references";
  EXPECT_EQ(sheet.editText(4, 2), "");
}

TEST(DataSheetTest, CancelUnmarksTheDataButDoesNotSaveThem) {
  DataSheet sheet(5, 5);
  sheet.markChanged();
  EXPECT_FALSE(sheet.unsaved()) << "nothing to lose";
  sheet.enter(1, 1, "5");
  const auto cancelAfter = [&](auto&& actions) {
    sheet.startVisit();
    actions();
    sheet.restoreVisitStart();
    EXPECT_FALSE(sheet.changeMade());
    return sheet.unsaved();
  };
  EXPECT_TRUE(cancelAfter([] {}));
  EXPECT_TRUE(cancelAfter([&] { sheet.clearAll(); }));
  EXPECT_FALSE(cancelAfter([&] { sheet.markSaved("a"); }));
  sheet.markSaved("a");
  EXPECT_FALSE(cancelAfter([&] { sheet.enter(1, 1, "6"); }));
  EXPECT_TRUE(cancelAfter([&] {
    sheet.enter(1, 1, "6");
    sheet.markSaved("a");
    sheet.enter(1, 1, "7");
  })) << "the file holds 6, the sheet 5";
}

TEST(DataSheetTest, KnowsWhatIsUnsaved) {
  DataSheet sheet(3, 2);
  EXPECT_FALSE(sheet.changeMade());
  sheet.enter(1, 1, "1");
  sheet.markSaved("a");
  sheet.enter(1, 1, "2");
  sheet.undo();
  EXPECT_FALSE(sheet.changeMade()) << "undone to what was saved";
  sheet.undo();
  EXPECT_TRUE(sheet.changeMade());
  sheet.enter(1, 1, "3");  // what was saved can no longer be reached
  sheet.undo();
  EXPECT_TRUE(sheet.changeMade());
  sheet.markSaved("a");
  sheet.sort(0, true);
  EXPECT_TRUE(sheet.changeMade()) << "sorting an empty sheet counts";
  EXPECT_TRUE(sheet.undoName().empty());
  sheet.markSaved("a");
  sheet.startVisit();
  EXPECT_FALSE(sheet.changeMade());
  sheet.enter(2, 1, "1");
  sheet.startVisit();
  EXPECT_TRUE(sheet.changeMade()) << "unsaved data stay unsaved from visit to visit";
  EXPECT_FALSE(sheet.undo());
}

}  // namespace
}  // namespace tolmer
