#include "report/text_layout.h"

namespace tolmer {
namespace {

TEST(TextLayout, WidthCountsColumnsOfATerminal) {
  EXPECT_EQ(terminalWidth("Größe β"), 7U);
  EXPECT_EQ(terminalWidth("e\xCC\x81"), 1U);  // a letter and a combining accent
  EXPECT_EQ(terminalWidth("東京"), 4U);
  EXPECT_EQ(padded("é", 3, Align::right), "  é");
  EXPECT_EQ(padded("é", 4, Align::centre), " é  ");
  EXPECT_EQ(padded("abc", 2, Align::left), "abc");
}

TEST(TextLayout, LinesBreakAtBlanksAndKeepTheirIndent) {
  EXPECT_EQ(wrapped("one two  three", 9, 2), "  one two\n  three");
  EXPECT_EQ(wrapped("a-word-too-long b", 5, 0), "a-word-too-long\nb");
  EXPECT_EQ(wrapped("", 9, 2), "");
}

TEST(TextLayout, BarsGrowByEighths) {
  EXPECT_EQ(barText(0), "");
  EXPECT_EQ(barText(1), "▏");
  EXPECT_EQ(barText(19), "██▍");
}

TEST(TextLayout, TableColumnsLineUpAndColoursBecomeMarks) {
  const Colour face = colours::buttonFace;
  const Colour white = colours::white;
  DisplayTable table;
  table.rows = {{{"Name", face}, {"P", face}},
                {{"Größe", face}, {"0.001", colours::cyan, Align::right}},
                {{"b", face}, {"12.5", white, Align::right}},
                {{"", face}, {"", white}},
                {{"", face}, {"p < .01", colours::cyan}},
                {{"", face}, {"", face}}};
  EXPECT_EQ(tableText(table, false),
            "  Name       P\n"
            "  Größe  0.001 **\n"
            "  b       12.5\n"
            "\n"
            "  ** p < .01\n");
}

}  // namespace
}  // namespace tolmer
