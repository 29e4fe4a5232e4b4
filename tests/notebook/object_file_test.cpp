#include "notebook/object_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "notebook/book_check.h"
#include "notebook/sample_book.h"

namespace tolmer {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

Result<Book> read(std::string text) {
  FieldReader fields("b.nbo", std::move(text));
  return readBook(fields);
}

std::string errorOf(std::string text) {
  const auto book = read(std::move(text));
  return book ? "no error" : book.error().message();
}

TEST(ObjectFile, whatIsWrittenIsReadBack) {
  const Book book = test::sampleBook();
  const auto again = read(objectFileText(book));
  ASSERT_TRUE(again) << again.error().message();
  EXPECT_EQ(*again, book);
  EXPECT_EQ(again->uScenario[4].tParameter[0], "");
}

// Written out by hand from the grammar, in freer form than the writer's: several records a line,
// blanks, bare texts, numbers for booleans, Windows-1252, something behind the end.
TEST(ObjectFile, isReadInTheOrderOfItsGrammar) {
  std::string file = "Caf\xE9, Ch. 17 Regression\n1 \"One\", 1 1\n1\n7,1 1 1 0\n1,\"N\",D";
  for (int i = 1; i <= maxParameter; ++i) file += ",p" + std::to_string(i);
  file += "\nDefault,\"\"";
  for (int i = 1; i <= maxParameter; ++i) file += ",q" + std::to_string(i);
  file += "\n1\nName,Short,2,Desc,Data,Label,Head,#TRUE#,0\n";
  file += "a,b,c,d,e,f\r\ng,h,i,j,k,l\r\n1,T,-1,1\n1,H\n1,J,#false#,0,1,1\n1,1,1,0\n";
  file += "1,1,9,9,5,0,9,1,1\n1,x.png\n1,C,0,0,2\n1,V,0,0,500\n1,4,1,0\nwhatever";
  const auto book = read(file);
  ASSERT_TRUE(book) << book.error().message();
  EXPECT_EQ(book->tTitle, "Café");
  EXPECT_EQ(book->uPage[1], (PageRecord{7, 1, 1, 1, 0}));
  EXPECT_EQ(book->uScenario[1].tParameter[170], "p170");
  EXPECT_EQ(book->uDefaultScenario.tParameter[1], "q1");
  EXPECT_EQ(book->uDatabase[1].tHeading, "Head");
  EXPECT_EQ(book->uDatabase[1].bExpanded, (std::array<bool, 3>{false, true, false}));
  EXPECT_EQ(book->uDefaultDatabase[2].tLabelFileName, "k");
  EXPECT_TRUE(book->uText[1].bIndent);
  EXPECT_EQ(book->uOutline[1].uEntry[1], (OutlineEntry{5, 0, 9, 1, 1}));
  EXPECT_EQ(book->uVersion[1].iValue, 500);
  EXPECT_EQ(book->uPageElement[1], (PageElement{4, 1, 0}));
}

TEST(ObjectFile, everyCutIsAnErrorThatNamesFileAndLine) {
  const std::string whole = objectFileText(test::sampleBook());
  // Without its last line end the file is still complete.
  for (std::size_t length = 0; length + 2 < whole.size(); ++length) {
    const std::string message = errorOf(whole.substr(0, length));
    ASSERT_THAT(message, StartsWith("b.nbo:")) << length;
  }
}

// Every field in turn replaced: by a text, by numbers that point somewhere else. Whatever is
// accepted must still hold together.
TEST(ObjectFile, noReplacedFieldLeadsOutOfBounds) {
  const std::string whole = objectFileText(test::sampleBook());
  int refused = 0;
  for (std::size_t start = 0; start < whole.size();) {
    const std::size_t end = whole.find_first_of(",\r", start);
    const bool isNumber = whole[start] != '"' && whole[start] != '#' && end > start;
    for (const char* other : {"x", "32767", "-32768", "0", "-1", "3"}) {
      if (!isNumber) break;
      const auto book = read(whole.substr(0, start) + other + whole.substr(end));
      if (book)
        ASSERT_TRUE(checkBook(*book).empty()) << "at byte " << start << ": " << other;
      else
        ++refused;
      ASSERT_FALSE(book && other[0] == 'x') << "at byte " << start;
    }
    start = whole.find_first_not_of(",\r\n", end);
  }
  EXPECT_GT(refused, 300);
}

// One row for each table: how many it may have, and a record that is right in a book which has at
// least one page, scenario and database.
struct TableCase {
  std::string noun;
  int bound;
  std::string record;
};

std::string strings(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += i ? ",\"\"" : "\"\"";
  return text;
}

const std::vector<TableCase>& tableCases() {
  static const std::vector<TableCase> cases = {{"section", 8, "s,1,1"},
                                               {"page", 30, "1,0,0,0,0"},
                                               {"scenario", 50, strings(172)},
                                               {"database", 200, ",,1,,,,,0,0"},
                                               {"text element", 200, "t,0,0"},
                                               {"heading element", 30, "h"},
                                               {"jump element", 40, "j,0,0,1,1"},
                                               {"scenario element", 20, "1,1,0"},
                                               {"outline element", 8, "1,0,0,0,0,0,1,1"},
                                               {"bitmap element", 8, "b"},
                                               {"check element", 20, "c,0,0,0"},
                                               {"version element", 20, "v,0,0,0"},
                                               {"page element", 450, "7,0,0"}};
  return cases;
}

// A file in which table `full` has `rows` rows and every other table one.
std::string fileWithTable(std::size_t full, int rows) {
  std::string file = "title\nchapter\n";
  for (std::size_t t = 0; t < tableCases().size(); ++t) {
    const int count = t == full ? rows : 1;
    file += std::to_string(count) + "\n";
    for (int i = 0; i < count; ++i) file += tableCases()[t].record + "\n";
    if (t == 2) file += strings(172) + "\n";
    if (t == 3) file += strings(12) + "\n";
  }
  return file;
}

TEST(ObjectFile, everyTableTakesItsBoundAndNotOneMore) {
  for (std::size_t t = 0; t < tableCases().size(); ++t) {
    const auto& [noun, bound, record] = tableCases()[t];
    EXPECT_EQ(errorOf(fileWithTable(t, bound)), "no error") << noun;
    EXPECT_THAT(errorOf(fileWithTable(t, bound + 1)),
                HasSubstr(": " + std::to_string(bound + 1) + " " + noun + "s, from 0 to " +
                          std::to_string(bound) + " are possible"));
    EXPECT_THAT(errorOf(fileWithTable(t, -1)), HasSubstr("-1 " + noun + "s"));
  }
}

TEST(ObjectFile, outlinesHaveOneOrTwoEntries) {
  for (const char* entries : {"0", "3", "-1"}) {
    std::string file = fileWithTable(0, 1);
    const std::string record = tableCases()[8].record;
    file.replace(file.find("1\n" + record) + 2, 1, entries);
    EXPECT_THAT(errorOf(file), HasSubstr("outlines, from 1 to 2 are possible")) << entries;
  }
}

}  // namespace
}  // namespace tolmer
