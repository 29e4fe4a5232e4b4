#include "base/text_encoding.h"

#include <gtest/gtest.h>

namespace tolmer {
namespace {

// The rows of table 3-7 of the Unicode standard: the ends of each range, and what lies just beyond.
TEST(Utf8, acceptsEveryRangeToItsEnds) {
  for (const char* text :
       {"", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xEC\xBF\xBF", "\xED\x9F\xBF",
        "\xEE\x80\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF3\xBF\xBF\xBF", "\xF4\x8F\xBF\xBF"})
    EXPECT_TRUE(isUtf8(text)) << testing::PrintToString(text);
}

TEST(Utf8, refusesOverlongSurrogateTooLargeAndCutForms) {
  for (const char* text :
       {"\x80", "\xC1\xBF", "\xC2", "\xC2 ", "\xE0\x9F\xBF", "\xE2\x82", "\xED\xA0\x80",
        "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "caf\xE9",
        "\xF0\x90\x80 ", "\xE2\x82\xAC\xE2"})
    EXPECT_FALSE(isUtf8(text)) << testing::PrintToString(text);
}

TEST(FileText, isUtf8WhereItCanBeAndWindows1252Otherwise) {
  EXPECT_EQ(utf8FromFile("caf\xC3\xA9"), "café");
  EXPECT_EQ(utf8FromFile("caf\xE9"), "café");
  EXPECT_EQ(utf8FromFile("\x80 5 \x96 \x93quoted\x94 \xB2\xFF"), "€ 5 – “quoted” ²ÿ");
  EXPECT_EQ(utf8FromFile("\x81\x8D"), "\xC2\x81\xC2\x8D");
}

TEST(FileText, isUtf16WhereItsMarkSaysSo) {
  using namespace std::string_literals;
  EXPECT_EQ(utf8FromFile("\xFF\xFEG\0\xF6\0\xAC\x20\x3D\xD8\x00\xDE"s), "Gö€\xF0\x9F\x98\x80");
  EXPECT_EQ(utf8FromFile("\xFE\xFF\0G\0\xF6\x20\xAC\xD8\x3D\xDE\x00"s), "Gö€\xF0\x9F\x98\x80");
  for (const auto& broken : {"\xFF\xFE\x3D\xD8"s, "\xFF\xFE\x00\xDE"s, "\xFF\xFE\x3D\xD8\xAC"s})
    EXPECT_EQ(utf8FromFile(broken), "\xEF\xBF\xBD");
}

TEST(FileText, losesItsByteOrderMarkOnce) {
  EXPECT_EQ(utf8FromFile("\xEF\xBB\xBFx"), "x");
  EXPECT_EQ(utf8FromFile("\xEF\xBB\xBF\xEF\xBB\xBFx"), "\xEF\xBB\xBFx");
  EXPECT_EQ(utf8FromFile("\xEF\xBB"), "ï»");
}

TEST(Prefix, countsCharactersAndNotBytes) {
  EXPECT_EQ(utf8Prefix("Ch. 17 Multiple", 7), 7u);
  EXPECT_EQ(utf8Prefix("é€x", 2), 5u);
  EXPECT_EQ(utf8Prefix("é€x", 9), 6u);
  EXPECT_EQ(utf8Prefix("", 1), 0u);
}

TEST(TextEncoding, nothingThatActsOnATerminalIsKept) {
  EXPECT_EQ(withoutControls("a\x1b[31m\x7f\xC2\x9b\xC2\x80\xC2\xA0\t\r\nä"),
            "a?[31m???\xC2\xA0\t\r\nä");
  EXPECT_EQ(withoutControls("\x9b\xE4\xC2"), "???") << "no UTF-8: the first byte acts as it is";
  EXPECT_EQ(withoutControls(std::string("\0x", 2)), "?x");
  EXPECT_EQ(onOneLine("a\r\n\tb\x1b"), "a b?");
  // Letters are looked at in eights.
  for (const char acting : {'\0', '\x1f', '\x7f', '\x80', '\xff'})
    for (std::size_t at = 0; at < 20; ++at) {
      std::string text = "\tThis is ~ plain.\r\n ", expected = text;
      text[at] = acting;
      expected[at] = '?';
      EXPECT_EQ(withoutControls(text), expected) << at;
      EXPECT_EQ(isUtf8(text), acting >= 0) << at;
    }
}

}  // namespace
}  // namespace tolmer
