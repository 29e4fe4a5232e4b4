// Content and selections of the notebook object, without its window.
#include "notebook/notebook.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/headless/headless_desktop.h"
#include "support/sample_book.h"

namespace tolmer {
namespace {

class NoteBookContent : public testing::Test {
 protected:
  NoteBookContent() { noteBook.setBook(test::sampleBook()); }
  HeadlessDesktop desktop;
  NoteBook noteBook{desktop};
};

TEST_F(NoteBookContent, answersFromTheDefaultRecordsAndFromWhatWasLastSelected) {
  EXPECT_EQ(noteBook.DefaultScenarioName(), "standard");
  EXPECT_EQ(noteBook.DefaultScenarioParameter(0), "");
  EXPECT_EQ(noteBook.DefaultScenarioParameter(170), "last of standard");
  EXPECT_EQ(noteBook.DefaultDatabaseName(2), "Default 2");
  EXPECT_EQ(noteBook.DefaultDatabaseHeading(1), "Heading of Default 1");
  EXPECT_EQ(noteBook.DefaultDatabaseDesc(0), "");
  EXPECT_EQ(noteBook.LastScenarioName(), "");
  noteBook.iLastScenarioNumber = 3;
  EXPECT_EQ(noteBook.LastScenarioDesc(), "About gamma, told at length.");
  // A database by its outline's own start.
  noteBook.recordDatabase(1, 2, 4);
  EXPECT_EQ(noteBook.LastDatabaseDataFileName(2), "\\data\\third.csv");
  EXPECT_EQ(noteBook.LastDatabaseLabelFileName(2), "\\data\\Third.lab");
  EXPECT_EQ(noteBook.LastDatabaseShortName(0), "");
  EXPECT_EQ(noteBook.GetSelectedScenario(1, 1), 0) << "a page without a list";
  noteBook.SetSelectedDatabase(2, 2, 1, 3);
  EXPECT_EQ(noteBook.GetSelectedDatabase(2, 2, 1), 3);
  EXPECT_EQ(noteBook.GetSelectedDatabase(2, 2, 2), 4) << "the other outline";
}

TEST_F(NoteBookContent, countsChecksWithinThePage) {
  noteBook.SetCheck(2, 3, 2, 2);
  EXPECT_EQ(noteBook.GetCheck(2, 3, 2), 2);
  EXPECT_EQ(noteBook.GetCheck(2, 3, 1), 0);
  for (const Int16 wrong : {Int16{3}, Int16{-1}}) noteBook.SetCheck(2, 3, 2, wrong);
  EXPECT_EQ(noteBook.GetCheck(2, 3, 2), 2);
  noteBook.SetCheck(2, 3, 3, 1);
  noteBook.SetCheck(2, 3, 0, 1);
  EXPECT_EQ(noteBook.GetCheck(2, 3, 3), 0);
  EXPECT_EQ(noteBook.GetCheck(1, 1, 1), 0);
}

TEST_F(NoteBookContent, takesAnyVersionAndReadsTheFirst) {
  EXPECT_EQ(noteBook.GetVersion(2, 3), 7);
  noteBook.SetVersion(2, 3, 2, 500);
  EXPECT_EQ(noteBook.book().uVersion[2].iValue, 500);
  EXPECT_EQ(noteBook.GetVersion(2, 3), 7);
  noteBook.SetVersion(2, 3, 1, -1);
  EXPECT_EQ(noteBook.GetVersion(2, 3), -1);
  EXPECT_EQ(noteBook.GetVersion(1, 1), 0);
}

TEST_F(NoteBookContent, refusesWhatIsNotInTheBookAndKeepsWhatItHolds) {
  using Fault = std::out_of_range;
  for (const auto& [section, page] : {std::pair(0, 1), {3, 1}, {-1, 1}, {2, 0}, {2, 4}, {1, 2}}) {
    EXPECT_THROW(noteBook.GetSelectedScenario(section, page), Fault) << section << "." << page;
    EXPECT_THROW(noteBook.SetCheck(section, page, 1, 1), Fault);
    EXPECT_THROW(noteBook.GetVersion(section, page), Fault);
  }
  EXPECT_THROW(noteBook.SetSelectedScenario(2, 1, 3), Fault);
  EXPECT_THROW(noteBook.SetSelectedScenario(2, 1, -1), Fault);
  EXPECT_THROW(noteBook.SetSelectedScenario(1, 1, 0), Fault);
  EXPECT_THROW(noteBook.SetSelectedDatabase(2, 2, 1, 5), Fault);
  EXPECT_THROW(noteBook.SetSelectedDatabase(2, 2, 3, 0), Fault);
  EXPECT_THROW(noteBook.SetSelectedDatabase(1, 1, 1, 0), Fault);
  EXPECT_THROW(noteBook.DefaultScenarioParameter(171), Fault);
  EXPECT_THROW(noteBook.LastScenarioParameter(-1), Fault);
  EXPECT_THROW(noteBook.LastDatabaseName(3), Fault);
  EXPECT_EQ(noteBook.book(), test::sampleBook());
}

TEST(FormatCodes, areTakenOffTheFront) {
  const struct {
    std::string text, rest;
    bool indent, emphasis;
    Int16 style;
  } cases[] = {{"plain", "plain", false, false, 0},  {"\\Iin", "in", true, false, 0},
               {"\\E1bold", "bold", false, true, 1}, {"\\I\\E2x", "x", true, true, 2},
               {"\\E1\\Ix", "x", true, true, 1},     {"\\I\\I\\E1\\E0x", "x", true, true, 0},
               {"a\\I", "a\\I", false, false, 0},    {"\\E", "", false, true, 0},
               {"\\Exy", "y", false, true, 0},       {"", "", false, false, 0}};
  for (const auto& one : cases) {
    std::string text = one.text;
    bool indent = true, emphasis = true;
    Int16 style = 9;
    NoteBook::CheckStringFormatCodes(text, indent, emphasis, style);
    EXPECT_EQ(text, one.rest) << one.text;
    EXPECT_EQ(std::tuple(indent, emphasis, style), std::tuple(one.indent, one.emphasis, one.style))
        << one.text;
  }
}

}  // namespace
}  // namespace tolmer
