#include "notebook/book_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "notebook/object_file.h"
#include "support/sample_book.h"

namespace tolmer {
namespace {

using testing::HasSubstr;

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

TEST(BookCheck, leavesAloneWhatHasNoMeaning) {
  EXPECT_EQ(faultsAfter([](Book& b) {
              b.uPageElement[3].iIndex = -7;    // a space points to nothing
              b.uPageElement[1] = {10, 99, 0};  // nobody knows kind 10
              b.uOutline[1].uEntry[1].iControlIndex = 77;
              b.uPage[1].iPageType = -3;
              b.uVersion[1].iValue = -500;
            }),
            "");
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
