// References that follow what they refer to: by examples, and by the law that a formula keeps its
// value when its sheet moves along.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "formula/rewrite.h"
#include "formula/small_sheet.h"

namespace tolmer::test {
namespace {

const SheetNames& names() {
  static const SheetNames sheet({}, {"Label", "Var1", "X2", "a]b"});
  return sheet;
}

TEST(Rewrite, MovesRelativePartsAndNothingElse) {
  struct Move {
    std::string before;
    int rows, columns;
    std::string after;
  };
  const std::vector<Move> moves = {
      {"= b1 +  $B$2*C$3 - $d4", 2, 1, "= c3 +  $B$2*D$3 - $d6"},
      {"=sum( B1 : b20 )*1.50", 1, 0, "=sum( B2 : b21 )*1.50"},
      {"=SUM($B1:B$9,Var1,[a]]b],B:$C)", 3, 1, "=SUM($B4:C$9,Var1,[a]]b],C:$C)"},
      {"=B1+B3", -1, 0, "=#REF!+B2"},
      {"=B1:B499+AY1", 2, 0, "=#REF!+AY3"},
      {"=A1+AY$1", 0, 1, "=B1+#REF!"},
      {"=z9", 0, 1, "=aa9"},
      {"=X1+1", 1, 0, "=X2:X2+1"},  // X2 is a name
      {"=X2:X2", -1, 0, "=X1:X1"},
      {"=B1+\"B1\"+)", 1, 0, "=B2+\"B1\"+)"},
      {"=LOG10(B10)", 90, 0, "=LOG10(B100)"},
      {"=B1=\"B1 \"\"B1\"+ROW(B1)", 1, 0, "=B2=\"B1 \"\"B1\"+ROW(B2)"},
      {"B1 is a text", 1, 1, "B1 is a text"},
  };
  for (const Move& move : moves)
    EXPECT_EQ(movedFormula(move.before, names(), move.rows, move.columns), move.after)
        << move.before;
}

TEST(Rewrite, InsertedAndDeletedRowsShiftAllThatLiesBehind) {
  struct Change {
    std::string before;
    int at, count;
    std::string inserted, deleted;
  };
  const std::vector<Change> changes = {
      {"=B4+B5+$B$6", 5, 1, "=B4+B6+$B$7", "=B4+#REF!+$B$5"},
      {"=SUM(B2:B9)", 5, 2, "=SUM(B2:B11)", "=SUM(B2:B7)"},
      {"=SUM(B2:B9)", 2, 1, "=SUM(B3:B10)", "=SUM(B2:B8)"},
      {"=SUM(B9:b$2)", 9, 3, "=SUM(B12:b$2)", "=SUM(B8:b$2)"},
      {"=SUM(B2:B9)", 10, 5, "=SUM(B2:B9)", "=SUM(B2:B9)"},
      {"=SUM(B2:B9)", 1, 20, "=SUM(B22:B29)", "=SUM(#REF!)"},
      {"=SUM(B2:B500)+B500", 4, 1, "=SUM(B2:B500)+#REF!", "=SUM(B2:B499)+B499"},
      {"=SUM(Var1,B:C)", 1, 9, "=SUM(Var1,B:C)", "=SUM(Var1,B:C)"},
      {"=X1+X3", 1, 1, "=X2:X2+X4", "=#REF!+X2:X2"},
  };
  for (const Change& change : changes) {
    EXPECT_EQ(withRowsInserted(change.before, names(), change.at, change.count), change.inserted)
        << change.before;
    EXPECT_EQ(withRowsDeleted(change.before, names(), change.at, change.count), change.deleted)
        << change.before;
  }
}

TEST(Rewrite, RenamedVariablesKeepTheirMeaning) {
  const auto renamed = [](const std::string& text, const std::string& name) {
    return withVariableRenamed(text, names(), 1, name);
  };
  EXPECT_EQ(renamed("=var1 + [ VAR1]*B1+SUM([X2])", "Höhe"), "=Höhe + [Höhe]*B1+SUM([X2])");
  EXPECT_EQ(renamed("=Var1", "two words"), "=[two words]");
  EXPECT_EQ(renamed("=Var1", "Q4"), "=[Q4]") << "a cell, too";
  EXPECT_EQ(renamed("=Q4*$Q4+q4:Q5", "Q4"), "=Q4:Q4*$Q4+q4:Q5") << "what was a cell stays one";
  EXPECT_EQ(renamed("=Var1", "a]b["), "=[a]]b[]");
  EXPECT_EQ(renamed("=@Var1+AVERAGE(Var1)", ""), "=@$B:$B+AVERAGE($B:$B)");
  EXPECT_EQ(renamed("=Var1+[X2]", "x2"), "=$B:$B+$C:$C") << "two of one name are none";
  EXPECT_EQ(renamed("=Var1+", "Fit"), "=Fit+") << "though it is no formula";
}

// A sheet of numbers, empty cells and texts, and formulas that use all ways of writing.
class Law : public testing::Test {
 protected:
  static constexpr SheetSize size{12, 6};
  std::mt19937 random{11};
  const SheetNames sheetNames{size, {"Label", "Var1", "B2", "c 3", "D4", "Last", "F"}};

  int draw(int from, int to) {
    return from + static_cast<int>(random() % static_cast<unsigned>(to - from + 1));
  }

  // Rows 3..9 and columns 2..4 leave room on all sides.
  SmallSheet filled() {
    static const std::string word = "word";
    SmallSheet sheet(sheetNames.headings(), size);
    for (int row = 3; row <= 9; ++row)
      for (int column = 2; column <= 4; ++column)
        if (const int kind = draw(0, 9); kind > 1)
          sheet.cells[{row, column}] = CellValue::ofNumber(draw(1, 999));
        else if (kind == 1)
          sheet.cells[{row, column}] = CellValue::ofText(word);
    return sheet;
  }

  std::string cell() {
    const std::string address = columnLetters(draw(2, 4)) + std::to_string(draw(3, 9));
    const bool isName = sheetNames.lookUp(address).found != SheetNames::Found::none;
    return isName ? address + ":" + address : address;
  }
  std::string range() { return cell().substr(0, 2) + ":" + cell().substr(0, 2); }
  std::string expression(int depth) {
    switch (depth > 2 ? draw(0, 2) : draw(0, 7)) {
      case 0:
        return std::to_string(draw(0, 99));
      case 1:
      case 2:
        return cell();
      case 3:
        return "SUM(" + range() + "," + expression(depth + 1) + ")";
      case 4:
        return "MAX(" + range() + ";" + range() + ")";
      case 5:
        return "IF(" + expression(depth + 1) + "<" + expression(depth + 1) + "," +
               expression(depth + 1) + "," + expression(depth + 1) + ")";
      case 6:
        return "(" + expression(depth + 1) + "+" + expression(depth + 1) + ")";
      default:
        return "-" + expression(depth + 1);
    }
  }

  static SmallSheet shifted(const SmallSheet& sheet, int fromRow, int rows, int columns) {
    SmallSheet result(sheet.names.headings(), size);
    for (const auto& [cell, value] : sheet.cells)
      result
          .cells[cell.row >= fromRow ? CellAddress{cell.row + rows, cell.column + columns} : cell] =
          value;
    return result;
  }
};

TEST_F(Law, AFormulaIsWorthTheSameInASheetThatMovedWithIt) {
  for (int round = 0; round < 1000; ++round) {
    const SmallSheet sheet = filled();
    const std::string formula = "=" + expression(0);
    const FormulaValue value = sheet.value(formula, 5);
    ASSERT_FALSE(compileFormula(formula, sheetNames, 1).problem) << formula;

    const int rows = draw(-2, 3), columns = draw(-2, 2);
    const std::string moved = movedFormula(formula, sheetNames, rows, columns);
    ASSERT_EQ(shifted(sheet, 1, rows, columns).value(moved, 5 + rows), value)
        << formula << " -> " << moved;
    ASSERT_EQ(movedFormula(formula, sheetNames, 0, 0), formula);

    const int at = draw(1, 12), count = draw(1, 3);
    const std::string inserted = withRowsInserted(formula, sheetNames, at, count);
    ASSERT_EQ(shifted(sheet, at, count, 0).value(inserted, 1), value)
        << formula << " -> " << inserted;
    const std::string deleted = withRowsDeleted(inserted, sheetNames, at, count);
    ASSERT_EQ(sheet.value(deleted, 1), value) << formula << " -> " << deleted;
  }
}

}  // namespace
}  // namespace tolmer::test
