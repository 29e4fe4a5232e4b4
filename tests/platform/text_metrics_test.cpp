#include "platform/text_metrics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <optional>

#include "platform/font_advances.h"

namespace tolmer {
namespace {

using testing::ElementsAre;

const Font interface12{FontFamily::interface, 12, false};
const Font serif20{FontFamily::serif, 20, false};

// A font file read by another road than the one that made the tables.
class FontFile {
 public:
  static std::optional<FontFile> find(const std::string& pattern) {
    std::FILE* pipe = popen(("fc-match -f '%{family}|%{file}' '" + pattern + "'").c_str(), "r");
    if (!pipe) return std::nullopt;
    std::string answer;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) answer += static_cast<char>(c);
    pclose(pipe);
    const std::string family = pattern.substr(0, pattern.find(':'));
    const auto bar = answer.find('|');
    if (bar == std::string::npos || answer.substr(0, bar) != family) return std::nullopt;
    return FontFile(answer.substr(bar + 1));
  }
  int unitsPerEm() const { return u16(table("head") + 18); }
  int ascent() const { return s16(table("hhea") + 4); }
  int descent() const { return -s16(table("hhea") + 6); }
  int lineGap() const { return s16(table("hhea") + 8); }
  int advance(char32_t code) const {
    const auto glyph = glyphOf(code);
    const auto last = static_cast<std::size_t>(u16(table("hhea") + 34)) - 1;
    return glyph == 0 ? 0 : u16(table("hmtx") + 4 * std::min(glyph, last));
  }

 private:
  explicit FontFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    bytes_.assign(std::istreambuf_iterator<char>(file), {});
  }
  int u16(std::size_t at) const {
    return static_cast<unsigned char>(bytes_.at(at)) * 256 +
           static_cast<unsigned char>(bytes_.at(at + 1));
  }
  int s16(std::size_t at) const { return static_cast<std::int16_t>(u16(at)); }
  std::size_t u32(std::size_t at) const {
    return static_cast<std::size_t>(u16(at)) * 65536 + static_cast<std::size_t>(u16(at + 2));
  }
  std::size_t table(const std::string& tag) const {
    for (int i = 0; i < u16(4); ++i)
      if (const auto at = 12 + 16 * static_cast<std::size_t>(i); bytes_.substr(at, 4) == tag)
        return u32(at + 8);
    throw std::runtime_error("no table " + tag);
  }
  // By the subtable of format 12 where there is one, else by format 4.
  std::size_t glyphOf(char32_t code) const {
    const auto cmap = table("cmap");
    std::size_t format4 = 0;
    for (int i = 0; i < u16(cmap + 2); ++i) {
      const auto at = cmap + u32(cmap + 8 + 8 * static_cast<std::size_t>(i));
      if (u16(at) == 12) return glyphByGroups(at, code);
      if (u16(at) == 4) format4 = at;
    }
    return glyphBySegments(format4, code);
  }
  std::size_t glyphByGroups(std::size_t at, char32_t code) const {
    for (std::size_t i = 0; i < u32(at + 12); ++i) {
      const auto group = at + 16 + 12 * i;
      if (code >= u32(group) && code <= u32(group + 4)) return u32(group + 8) + code - u32(group);
    }
    return 0;
  }
  std::size_t glyphBySegments(std::size_t at, char32_t code) const {
    const auto wide = static_cast<std::size_t>(u16(at + 6));  // twice the number of segments
    for (std::size_t i = at + 14; i < at + 14 + wide; i += 2) {
      const auto start = static_cast<std::size_t>(u16(i + wide + 2));
      if (code > static_cast<char32_t>(u16(i)) || code < start) continue;
      const auto offset = static_cast<std::size_t>(u16(i + 3 * wide + 2));
      const int glyph = offset == 0 ? static_cast<int>(code)
                                    : u16(i + 3 * wide + 2 + offset + 2 * (code - start));
      return static_cast<std::uint16_t>(glyph + u16(i + 2 * wide + 2));
    }
    return 0;
  }

  std::string bytes_;
};

class TablesAgainstFont : public testing::TestWithParam<std::tuple<std::string, Font>> {};

TEST_P(TablesAgainstFont, EveryAdvanceIsTheFontsOwn) {
  const auto& [pattern, font] = GetParam();
  const auto file = FontFile::find(pattern);
  if (!file) GTEST_SKIP() << pattern << " is not installed";
  const FontAdvances& table = fontAdvances(font.family, font.bold);
  EXPECT_EQ(table.unitsPerEm, file->unitsPerEm());
  EXPECT_EQ(table.ascent, file->ascent());
  EXPECT_EQ(table.descent, file->descent());
  EXPECT_EQ(table.lineGap, file->lineGap());
  std::size_t i = 0;
  for (const CodePointRange& range : advanceRanges)
    for (char32_t code = range.first; code <= range.last; ++code, ++i)
      EXPECT_EQ(table.advances[i], file->advance(code)) << "code point " << unsigned{code};
  EXPECT_EQ(i, table.advances.size());
}

INSTANTIATE_TEST_SUITE_P(
    Fonts, TablesAgainstFont,
    testing::Values(std::tuple("Noto Sans:regular", Font{FontFamily::interface, 12, false}),
                    std::tuple("Noto Sans:bold", Font{FontFamily::interface, 12, true}),
                    std::tuple("Liberation Serif:regular", Font{FontFamily::serif, 12, false}),
                    std::tuple("Liberation Serif:bold", Font{FontFamily::serif, 12, true})));

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
