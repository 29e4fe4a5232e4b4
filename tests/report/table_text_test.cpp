#include "report/table_text.h"

namespace tolmer {
namespace {

const Colour face = colours::buttonFace;
const Colour white = colours::white;

DisplayCell figure(const char* text, Colour back = white) { return {text, back, Align::centre}; }

TEST(TableText, ColumnsLineUpAndColoursOfTheKeyBecomeMarks) {
  DisplayTable table;
  table.rows = {{{"Name", face}, figure("P", face), figure("Word", face)},
                {{"Größe\nneu", face}, figure("0.001", colours::cyan), figure("Big")},
                {{"b", face}, figure("12.5"), figure("Medium", colours::red)},
                {{"", face}, {"", white}, {"", face}},
                {{"", face}, {"p < .01", colours::cyan}, {"", face}},
                {{"", face}, {"", face}, {"", face}}};
  EXPECT_EQ(tableText(table, 78, false),
            "  Name           P     Word\n"
            "  Größe neu  0.001 **  Big\n"
            "  b           12.5     Medium\n"  // red has no word in the key
            "\n"
            "  ** p < .01\n");
  EXPECT_THAT(tableText(table, 78, true), testing::HasSubstr("\x1b[41;97mMedium\x1b[0m"));
}

TEST(TableText, PartsBelowAnEmptyRowKeepTheColumns) {
  DisplayTable table;
  table.rows = {{{"Source", face}, {"Sum", face, Align::right}},
                {{"Error", white}, {"1.5", white, Align::right}},
                {{"", face}, {"", face}},
                {{"R-squared", white}, {"0.9136", white, Align::right}}};
  EXPECT_EQ(tableText(table, 78, false),
            "  Source        Sum\n"
            "  Error         1.5\n"
            "\n"
            "  R-squared  0.9136\n");
}

// The columns that name the rows are heads of each block.
TEST(TableText, WideTablesStandInBlocksOfColumns) {
  DisplayTable table;
  table.rows = {{{"Case", face}, {"Town", face}, {"A", face}, {"B", face}, {"C", face}},
                {{"1", face}, {"Bern", face}, figure("10"), figure("20"), figure("30000")},
                {{"2", face}, {"Basel", face}, figure("1"), figure("2"), figure("3")}};
  EXPECT_EQ(tableText(table, 21, false),
            "  Case  Town    A   B\n"
            "  1     Bern   10  20\n"
            "  2     Basel   1   2\n"
            "\n"
            "  Case  Town       C\n"
            "  1     Bern   30000\n"
            "  2     Basel      3\n");
  // A column always comes along, however narrow the terminal.
  EXPECT_THAT(tableText(table, 5, false), testing::StartsWith("  Case  Town    A\n"));
}

}  // namespace
}  // namespace tolmer
