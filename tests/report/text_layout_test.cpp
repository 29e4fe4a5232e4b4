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
  EXPECT_EQ(wrapped("a\r\nb", 9, 2), "  a b");
  EXPECT_EQ(wrapped("", 9, 2), "");
}

TEST(TextLayout, BarsGrowByEighths) {
  EXPECT_EQ(barText(0), "");
  EXPECT_EQ(barText(1), "▏");
  EXPECT_EQ(barText(19), "██▍");
}

}  // namespace
}  // namespace tolmer
