#include "fieldfile/field_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace tolmer {
namespace {

FieldReader reading(std::string bytes) { return FieldReader("f.txt", std::move(bytes)); }

std::vector<std::string> texts(std::string bytes) {
  FieldReader reader = reading(std::move(bytes));
  std::vector<std::string> found;
  while (auto text = reader.readText()) found.push_back(*text);
  return found;
}

using testing::ElementsAre;

TEST(TextFields, endAtCommaAndLineEndWithBlanksAroundThemDropped) {
  EXPECT_THAT(texts("a,b\nc\r\nd\re"), ElementsAre("a", "b", "c", "d", "e"));
  EXPECT_THAT(texts("  a b \t, c\t\n"), ElementsAre("a b", "c"));
  EXPECT_THAT(texts(",\n\n,x"), ElementsAre("", "", "", "", "x"));
}

TEST(TextFields, mayBeQuoted) {
  EXPECT_THAT(texts("\"a, b\" ,\" c \"\n\"\",d"), ElementsAre("a, b", " c ", "", "d"));
  EXPECT_THAT(texts("5\" pipe,x"), ElementsAre("5\" pipe", "x"));
  EXPECT_THAT(texts("\"two\r\nlines\",x"), ElementsAre("two\r\nlines", "x"));
}

TEST(TextFields, withBadQuotesAreRefused) {
  EXPECT_EQ(reading("\"abc").readText().error().message(),
            "f.txt:1: field 1: the closing quote of a text is missing");
  EXPECT_EQ(reading("\"a \"\"b\"\"\"").readText().error().text,
            "field 1: a text goes on behind its closing quote");
}

TEST(NumberFields, alsoEndAtABlank) {
  FieldReader reader = reading(" 1 2\t3 , 4 \r\n5\n");
  for (const float expected : {1.f, 2.f, 3.f, 4.f, 5.f}) EXPECT_EQ(*reader.readSingle(), expected);
  EXPECT_TRUE(reader.onlyBlanksLeft());
  EXPECT_FALSE(reader.readSingle());
}

TEST(NumberFields, emptyMeansZero) {
  FieldReader reader = reading("1,,\n3,\"t\"\n,#TRUE#");
  EXPECT_EQ(*reader.readInteger(), 1);
  EXPECT_EQ(*reader.readInteger(), 0);
  EXPECT_EQ(*reader.readSingle(), 0);
  EXPECT_EQ(*reader.readSingle(), 3);
  EXPECT_EQ(*reader.readText(), "t");
  EXPECT_FALSE(*reader.readBoolean());
  EXPECT_TRUE(*reader.readBoolean());
}

TEST(NumberFields, singlesAreRoundedOnceFromTheText) {
  const struct {
    const char* text;
    float value;
  } cases[] = {{"+1.5", 1.5f},
               {"-.5", -.5f},
               {"5.", 5.f},
               {"1e-3", 1e-3f},
               {"2.5E+2", 250.f},
               {"1e-50", 0.f},
               {"-1e-999", 0.f},
               {"3.4028235e38", std::numeric_limits<float>::max()},
               {"1.401298464324817e-45", std::numeric_limits<float>::denorm_min()},
               // half-way in double, above it in decimal: rounding twice would give 1
               {"1.00000005960464477539062500001", 1.00000011920928955f}};
  for (const auto& one : cases) {
    const auto value = reading(one.text).readSingle();
    ASSERT_TRUE(value) << one.text;
    EXPECT_EQ(*value, one.value) << one.text;
  }
}

TEST(NumberFields, whatIsNoNumberIsRefused) {
  for (const char* text : {"abc", "1.2.3", "+", "-", "+-1", "++1", "1e", "1e5x", "0x10", "inf",
                           "nan", "NA", "1e39", "-1e39", "1e999", "\"12\"", "1;2", "."})
    EXPECT_FALSE(reading(text).readSingle()) << text;
  for (const char* text : {"32768", "-32769", "1.5", "1e2", "99999999999999999999", "#TRUE#"})
    EXPECT_FALSE(reading(text).readInteger()) << text;
  EXPECT_EQ(*reading("-32768").readInteger(), -32768);
  EXPECT_EQ(*reading("+32767").readInteger(), 32767);
}

TEST(Booleans, areWordsInAnyCaseOrNumbers) {
  for (const char* text : {"#TRUE#", "#true#", "-1", "1", "0.5"})
    EXPECT_TRUE(*reading(text).readBoolean()) << text;
  for (const char* text : {"#FALSE#", "#False#", "0", "0.0"})
    EXPECT_FALSE(*reading(text).readBoolean()) << text;
  for (const char* text : {"True", "#TRUE", "##", "yes"})
    EXPECT_FALSE(reading(text).readBoolean()) << text;
}

TEST(Errors, nameFileLineAndField) {
  FieldReader reader = reading("\"x\ny\",2\n3,four");
  ASSERT_TRUE(reader.readText() && reader.readInteger() && reader.readInteger());
  EXPECT_EQ(reader.readInteger().error().message(),
            "f.txt:3: field 4: a whole number from -32768 to 32767 was expected, not \"four\"");
  // the field was not taken: another kind may still fit
  EXPECT_EQ(*reader.readText(), "four");
  EXPECT_EQ(reader.readText().error().message(),
            "f.txt:3: field 5: a text was expected, but the file ends here");
}

TEST(Lines, areTakenAsTheyStand) {
  FieldReader reader = reading(" a, \"b\" \r\n\nc\rlast");
  for (const char* expected : {" a, \"b\" ", "", "c", "last"})
    EXPECT_EQ(*reader.readLine(), expected);
  EXPECT_EQ(reader.readLine().error().message(),
            "f.txt:4: field 5: a line was expected, but the file ends here");
}

TEST(Files, inOldEncodingOrWithAMarkAreRead) {
  EXPECT_EQ(*reading("\xEF\xBB\xBF"
                     "12")
                 .readInteger(),
            12);
  EXPECT_EQ(*reading("caf\xE9").readText(), "café");
  EXPECT_EQ(FieldReader::open("no\\such.csv").error().where, "no\\such.csv");
}

// As std::from_chars, which rounds once, reads them: decimals near a single, or halfway between
// two.
TEST(SingleFromText, isRoundedOnce) {
  std::mt19937_64 bits(1702);
  for (int i = 0; i < 100000; ++i) {
    const auto a = std::ldexp(static_cast<float>(bits() >> 40U), i % 50 - 40);
    const double halfway = (double{a} + std::nextafter(a, 1e30F)) / 2;
    for (const double number : {double{a}, -halfway}) {
      std::array<char, 64> text;
      const char* end = std::to_chars(text.data(), text.data() + text.size(), number,
                                      std::chars_format::fixed, i % 16)
                            .ptr;
      const std::string decimal(text.data(), static_cast<std::size_t>(end - text.data()));
      float expected = 0;
      std::from_chars(text.data(), end, expected);
      const auto read = singleFromText(decimal);
      ASSERT_TRUE(read) << decimal;
      ASSERT_EQ(std::bit_cast<int>(*read), std::bit_cast<int>(expected)) << decimal;
    }
  }
}

TEST(SingleFromText, needsOneDigitAndOnePoint) {
  for (const char* text :
       {"", "-", "+", ".", "-.", "1.2.3", "1,2", "--1", "+-1", "1 ", "0x1", "inf"})
    EXPECT_FALSE(singleFromText(text)) << text;
  EXPECT_EQ(singleFromText("5."), 5.0F);
  EXPECT_EQ(singleFromText("+.5"), 0.5F);
  EXPECT_EQ(singleFromText("-1.5e3"), -1500.0F);
  EXPECT_TRUE(std::signbit(*singleFromText("-0.0")));
}

}  // namespace
}  // namespace tolmer
