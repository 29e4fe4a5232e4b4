// The object file of a book, and the check on its references.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "notebook/book_check.h"
#include "notebook/object_file.h"
#include "support/sample_book.h"

namespace tolmer {
namespace {

using testing::AllOf;
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

// Up to where the told format ends.
std::string recordsOf(const Book& book) {
  const std::string text = objectFileText(book);
  return text.substr(0, text.rfind("crc "));
}

// Whatever is changed in a file with its checksum is found, and a file without one is read.
TEST(ObjectFile, damageAnywhereIsFoundByTheChecksum) {
  const std::string whole = objectFileText(test::sampleBook());
  const std::string records = recordsOf(test::sampleBook());
  EXPECT_EQ(errorOf(records), "no error");
  EXPECT_EQ(errorOf(records + "crc 123"), "no error") << "cut within the checksum";
  std::string otherLineEnds = whole;
  std::erase(otherLineEnds, '\r');
  EXPECT_EQ(errorOf(otherLineEnds), "no error");
  for (std::size_t at = 0; at + 2 < records.size(); ++at) {
    if (records[at] == '\r') continue;
    std::string damaged = whole;
    damaged[at] = static_cast<char>(damaged[at] ^ 1);
    ASSERT_THAT(errorOf(damaged), HasSubstr("the checksum at the end of the file")) << at;
  }
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
  const std::string whole = recordsOf(test::sampleBook());
  int line = 1;
  // Without its last line end the file is still complete.
  for (std::size_t length = 0; length + 2 < whole.size(); ++length) {
    if (length > 0 && whole[length - 1] == '\r') ++line;
    ASSERT_THAT(errorOf(whole.substr(0, length)),
                StartsWith("b.nbo:" + std::to_string(line) + ":"));
  }
}

// Every number and boolean in turn replaced: by a text, which is told by line and field, and by
// numbers that point somewhere else. Whatever is accepted must still hold together.
TEST(ObjectFile, noReplacedFieldLeadsOutOfBounds) {
  const std::string whole = recordsOf(test::sampleBook());
  int refused = 0, line = 1, field = 1;
  for (std::size_t start = 0; start < whole.size(); ++field) {
    const bool isText = whole[start] == '"';
    const auto end = whole.find_first_of(",\r", isText ? whole.find('"', start + 1) : start);
    for (const char* other : {"x", "32767", "-32768", "0", "-1", "3"}) {
      if (isText) break;
      const auto book = read(whole.substr(0, start) + other + whole.substr(end));
      refused += !book;
      const std::string where =
          "b.nbo:" + std::to_string(line) + ": field " + std::to_string(field) + ": ";
      ASSERT_TRUE(!book || checkBook(*book).empty()) << where << other;
      if (other[0] != 'x') continue;
      ASSERT_THAT(book ? "no error" : book.error().message(),
                  AllOf(StartsWith(where), HasSubstr("\"x\"")));
    }
    if (whole[end] == '\r') ++line;
    start = whole.find_first_not_of(",\r\n", end);
  }
  EXPECT_GT(refused, 300);
}

// One row more than a table may have is refused where the rows are counted.
TEST(ObjectFile, noTableTakesMoreThanItsBound) {
  const std::string whole = recordsOf(test::sampleBook());
  struct Table {
    std::string noun;
    int bound, defaults = 0;  // a line for each row and default
  };
  const Table tables[] = {{"section", 8},         {"page", 30},
                          {"scenario", 50, 1},    {"database", 200, 2},
                          {"text element", 200},  {"heading element", 30},
                          {"jump element", 40},   {"scenario element", 20},
                          {"outline element", 8}, {"bitmap element", 8},
                          {"check element", 20},  {"version element", 20},
                          {"page element", 450}};
  std::size_t count = whole.find("\n", whole.find("\n") + 1) + 1;  // behind title and chapter
  for (const auto& [noun, bound, defaults] : tables) {
    const std::size_t digits = whole.find('\r', count) - count;
    for (const std::string& rows : {std::to_string(bound + 1), std::string("-1")})
      EXPECT_THAT(errorOf(std::string(whole).replace(count, digits, rows)),
                  HasSubstr(": " + rows + " " + noun + "s, from 0 to " + std::to_string(bound) +
                            " are possible"));
    for (int line = std::stoi(whole.substr(count, digits)) + defaults; line >= 0; --line)
      count = whole.find("\n", count) + 1;
  }
}

// What the check says of the sample book after one change, as "noun row: text" lines.
std::string faultsAfter(const std::function<void(Book&)>& change) {
  Book book = test::sampleBook();
  change(book);
  std::string all;
  for (const BookFault& fault : checkBook(book))
    all += std::string(nounOf(fault.part)) + " " + std::to_string(fault.row) + ": " + fault.text +
           "\n";
  return all;
}

TEST(BookCheck, findsNothingInARightBook) {
  EXPECT_EQ(faultsAfter([](Book&) {}), "");
}

TEST(BookCheck, namesTheRowOfEachWrongReference) {
  const struct {
    std::function<void(Book&)> change;
    const char* fault;
  } cases[] = {
      {[](Book& b) { b.uSection.resize(0); }, "section 0: the book has no section"},
      {[](Book& b) { b.uSection[1].iNumPages = 0; }, "section 1: it has no page"},
      {[](Book& b) { b.uSection[2].iFirstPage = 3; }, "section 2: 3 pages from 3 on"},
      {[](Book& b) { b.uSection[2].iFirstPage = 0; }, "section 2: 3 pages from 0 on"},
      {[](Book& b) { b.uPage[4].iNumElements = 8; }, "page 4: 8 page elements from 8 on"},
      {[](Book& b) { b.uPage[4].iNumElements = -1; }, "page 4: -1 page elements"},
      {[](Book& b) { b.uPage[2].iScenarioElement = 2; }, "page 2: scenario element 2"},
      {[](Book& b) { b.uPage[3].iOutlineElement = -1; }, "page 3: outline element -1"},
      {[](Book& b) { b.uDatabase[2].iLevel = -1; }, "database 2: its level is below 0"},
      {[](Book& b) { b.uJump[1].iPage = 4; }, "jump element 1: there is no page 4 of section 2"},
      {[](Book& b) { b.uJump[1].iSection = 3; }, "jump element 1: there is no page 1 of section 3"},
      {[](Book& b) { b.uJump[2].iPage = 4; }, "jump element 2: there is no page 4 of section 2"},
      {[](Book& b) { b.uScenarioElement[1].iNumScenarios = 5; }, "it lists 5 scenarios"},
      {[](Book& b) { b.uScenarioElement[1].iNumScenarios = 0; }, "it lists 0 scenarios"},
      {[](Book& b) { b.uScenarioElement[1].iFirstScenario = 3; }, "3 scenarios from 3 on"},
      {[](Book& b) { b.uScenarioElement[1].iSelected = 3; }, "selection 3 is not within 0 to 2"},
      {[](Book& b) { b.uScenarioElement[1].iSelected = -1; }, "selection -1"},
      {[](Book& b) { b.uOutline[1].uEntry[1].iNumDatabases = 6; }, "6 databases from 1 on"},
      {[](Book& b) { b.uOutline[1].uEntry[1].iNumDatabases = 0; }, "its list is empty"},
      {[](Book& b) { b.uOutline[1].uEntry[2].iFirstDatabase = 2; }, "5 databases from 2 on"},
      {[](Book& b) { b.uOutline[1].uEntry[2].iSelectedItem = 5; }, "selection 5"},
      {[](Book& b) { b.uCheck[1].iValue = 3; }, "check element 1: its value 3"},
      {[](Book& b) { b.uPageElement[1].iIndex = 2; }, "page element 1: element 2 is not there"},
      {[](Book& b) { b.uPageElement[1].iIndex = 0; }, "page element 1: element 0 is not there"},
  };
  for (const auto& one : cases) EXPECT_THAT(faultsAfter(one.change), HasSubstr(one.fault));
}

TEST(BookCheck, allowsTwentyOpenGroupsAndNotOneMore) {
  const auto groups = [](int count) {
    return faultsAfter([count](Book& b) {
      b.uDatabase.resize(count);
      for (int i = 1; i <= count; ++i) {
        b.uDatabase[i].tDataFileName = groupMark;
        b.uDatabase[i].bExpanded[2] = true;
      }
      b.uOutline[1].uEntry[1].iNumDatabases = static_cast<Int16>(count);
    });
  };
  EXPECT_EQ(groups(20), "");
  EXPECT_THAT(groups(21), HasSubstr("outline element 1: more than 20 of its groups"));
}

TEST(BookCheck, letsTheReaderNameLineAndFieldOfTheRecord) {
  Book book = test::sampleBook();
  book.uPage[2].iScenarioElement = 2;
  FieldReader fields("b.nbo", objectFileText(book));
  const auto read = readBook(fields);
  ASSERT_FALSE(read);
  // title, chapter, count and two sections take lines 1 to 5 and 9 fields, the count of pages
  // line 6 and the first page line 7 and five fields
  EXPECT_EQ(read.error().message(),
            "b.nbo:8: field 16: page 2: scenario element 2 is not there, the book has 1");
}

}  // namespace
}  // namespace tolmer
