#include "report/table_text.h"

#include "support/table_of.h"

namespace tolmer {
namespace {

using test::figure;
using test::frame;
using test::head;
using test::key;
using test::tableOf;
using test::word;

TEST(TableText, ColumnsLineUpAndMarksOfTheKeyBecomeSigns) {
  const TableContent table =
      tableOf({{head("Name"), head("P", Align::centre), head("Word", Align::centre)},
               {head("Größe\nneu"), figure("0.001", CellMark::pBelow01), word("Big")},
               {head("b"), figure("12.5"), word("Medium", CellMark::beyond4SE)},
               {frame, frame, frame},
               {frame, key("p < .01", CellMark::pBelow01), frame},
               {frame, frame, frame}});
  EXPECT_EQ(tableText(table, 78, false),
            "  Name           P     Word\n"
            "  Größe neu  0.001 **  Big\n"
            "  b           12.5     Medium\n"  // not in the key
            "\n"
            "  ** p < .01\n");
  EXPECT_THAT(tableText(table, 78, true), testing::HasSubstr("\x1b[41;97mMedium\x1b[0m"));
}

TEST(TableText, PartsBelowAnEmptyRowKeepTheColumns) {
  const auto right = [](const char* text) {
    return TableCell{text, CellRole::figure, CellMark::none, Align::right};
  };
  const auto left = [](const char* text) { return TableCell{text, CellRole::text}; };
  const TableContent table = tableOf({{head("Source"), head("Sum", Align::right)},
                                      {left("Error"), right("1.5")},
                                      {frame, frame},
                                      {left("R-squared"), right("0.9136")}});
  EXPECT_EQ(tableText(table, 78, false),
            "  Source        Sum\n"
            "  Error         1.5\n"
            "\n"
            "  R-squared  0.9136\n");
}

// The columns that name the rows are heads of each block.
TEST(TableText, WideTablesStandInBlocksOfColumns) {
  const TableContent table =
      tableOf({{head("Case"), head("Town"), head("A"), head("B"), head("C")},
               {head("1"), head("Bern"), figure("10"), figure("20"), figure("30000")},
               {head("2"), head("Basel"), figure("1"), figure("2"), figure("********")}});
  EXPECT_EQ(tableText(table, 21, false),
            "  Case  Town    A   B\n"
            "  1     Bern   10  20\n"
            "  2     Basel   1   2\n"
            "\n"
            "  Case  Town          C\n"
            "  1     Bern      30000\n"
            "  2     Basel  ********\n");  // a figure that has no room
  // A column always comes along, however narrow the terminal.
  EXPECT_THAT(tableText(table, 5, false), testing::StartsWith("  Case  Town    A\n"));
}

}  // namespace
}  // namespace tolmer
