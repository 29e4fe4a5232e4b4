#include "platform/text_metrics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolmer {
namespace {

using testing::ElementsAre;

const Font interface12{FontFamily::interface, 12, false};
const Font serif20{FontFamily::serif, 20, false};

// Liberation Serif has half an em for every digit and a quarter for the blank and the point.
TEST(TextWidth, AddsTheAdvances) {
  EXPECT_DOUBLE_EQ(textWidth(serif20, ""), 0);
  EXPECT_DOUBLE_EQ(textWidth(serif20, "1000"), 40);
  EXPECT_DOUBLE_EQ(textWidth(serif20, "1 0.5"), 40);
  EXPECT_GT(textWidth({FontFamily::serif, 20, true}, "Width"), textWidth(serif20, "Width"));
}

TEST(TextWidth, CountsCharactersNotBytes) {
  EXPECT_DOUBLE_EQ(textWidth(interface12, "é"), textWidth(interface12, "e"));
  EXPECT_DOUBLE_EQ(textWidth(interface12, "漢"), textWidth(interface12, "x"));
  EXPECT_DOUBLE_EQ(textWidth(interface12, "y\u0302"), textWidth(interface12, "y"));
  EXPECT_GT(textWidth(interface12, "−"), textWidth(interface12, "-"));
}

TEST(TextWidth, MeasuresBrokenText) {
  EXPECT_GT(textWidth(interface12, "a\xC3"), textWidth(interface12, "a"));
  EXPECT_GT(textWidth(interface12, "\xF0\x9F"), 0);
  EXPECT_GT(textWidth(interface12, "\xFF\x80z"), textWidth(interface12, "z"));
}

// Heights that text layouts of Qt 6.4.2 gave for these sizes; for the serif with its line gap.
TEST(LineHeight, IsThatOfTheScreen) {
  EXPECT_EQ(lineHeight({FontFamily::interface, 12, false}), 17);
  EXPECT_EQ(lineHeight({FontFamily::interface, 14, true}), 20);
  EXPECT_EQ(lineHeight({FontFamily::interface, 16, false}), 22);
  EXPECT_EQ(lineHeight({FontFamily::serif, 11, false}), 13);
  EXPECT_EQ(lineHeight({FontFamily::serif, 20, false}), 24);
}

TEST(WrapText, KeepsWordsWhole) {
  const double width = textWidth(serif20, "one two");
  EXPECT_THAT(wrapText(serif20, "one two three", width), ElementsAre("one two", "three"));
  EXPECT_THAT(wrapText(serif20, "one two three", width - 0.5), ElementsAre("one", "two", "three"));
  EXPECT_THAT(wrapText(serif20, "one two three", 1000), ElementsAre("one two three"));
}

TEST(WrapText, EndsLinesAtLineFeeds) {
  EXPECT_THAT(wrapText(serif20, "a\r\n\nb\n", 100), ElementsAre("a", "", "b", ""));
  EXPECT_THAT(wrapText(serif20, "", 100), ElementsAre(""));
  EXPECT_THAT(wrapText(serif20, "  a  b", 100), ElementsAre("  a  b"));
}

TEST(WrapText, CutsAWordWiderThanTheLine) {
  EXPECT_THAT(wrapText(serif20, "5 12345", 30), ElementsAre("5", "123", "45"));
  EXPECT_THAT(wrapText(serif20, "éé", 1), ElementsAre("é", "é"));
  EXPECT_EQ(wrappedHeight(serif20, "5 12345", 30), 3 * lineHeight(serif20));
}

TEST(Mnemonics, AreTakenOut) {
  EXPECT_EQ(withoutMnemonic("&Change Model"), "Change Model");
  EXPECT_EQ(withoutMnemonic("Salt && E&xit"), "Salt & Exit");
  EXPECT_EQ(withoutMnemonic("End&"), "End");
}

}  // namespace
}  // namespace tolmer
