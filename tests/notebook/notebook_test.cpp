// Selections of the notebook object without its window, and its start: cover, reading of the object
// file, opening message, first page.
#include <gtest/gtest.h>
#include <stdexcept>

#include "notebook/cover.h"
#include "notebook/notebook.h"
#include "notebook/notebook_fixture.h"
#include "platform/headless/headless_desktop.h"
#include "platform/text_metrics.h"
#include "support/sample_book.h"

namespace tolmer {
namespace {

// Content and selections of the notebook object, without its window.
class NoteBookContent : public testing::Test {
 protected:
  NoteBookContent() { noteBook.setBook(test::sampleBook()); }
  HeadlessDesktop desktop;
  NoteBook noteBook{desktop};
};

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

// Cover, reading of the object file, opening message, first page.
class NotebookStart : public testing::Test {
 protected:
  std::string file(std::string_view bytes) {
    const std::string name = folder.file("start.nbo");
    EXPECT_FALSE(writeFileAtomically(name, bytes));
    return name;
  }
  test::TempFolder folder;
  HeadlessDesktop desktop;
  test::HeadlessUser user{desktop};
  test::Script script{desktop};
  NoteBook noteBook{desktop};
};

TEST_F(NotebookStart, showsTheCoverTheMessageAndTheFirstPage) {
  std::string curtain;
  noteBook.loadHider = [&] { curtain += "down "; };
  noteBook.unloadHider = [&] { curtain += "up"; };
  noteBook.ModuleTitleLine = "Preparing Chapter 99";
  noteBook.LoadNotebook();
  EXPECT_TRUE(noteBook.bAppIsLoading);
  EXPECT_EQ(user.get<Panel>("frmNoteSplash", "pnlChapterName").caption(), "Preparing Chapter 99");
  noteBook.ReadObjectFile(file(objectFileText(test::sampleBook())));
  EXPECT_EQ(noteBook.window().tbNoteBook.tabCount(), 2);
  EXPECT_EQ(noteBook.window().tbNoteBook.tab(1).pageMax, 2);

  script.window("frmOpeningBook", [&] {
    EXPECT_FALSE(noteBook.cover()) << "gone by then";
    EXPECT_FALSE(noteBook.bAppIsLoading);
  });
  script.window("frmNotebook", [&] {
    EXPECT_EQ(curtain, "down ");
    EXPECT_EQ(desktop.timers().now(), 1000) << "the message stands for a second";
    EXPECT_EQ(noteBook.LastSectionNumber(), 1);
    EXPECT_EQ(noteBook.LastPageNumber(), 1);
    user.click("frmNotebook", "cmdOK");
  });
  noteBook.StartAndShowNotebook();
  EXPECT_EQ(curtain, "down up");
  EXPECT_EQ(noteBook.LastAction(), NoteBook::closedByOK);
}

TEST_F(NotebookStart, aMissingObjectFileEndsTheProgram) {
  script.box("Input Error", "Cannot read notebook object file.");
  EXPECT_THROW(noteBook.ReadObjectFile(folder.file("none.nbo")), ProgramEnded);
  EXPECT_EQ(desktop.boxes().front().box.icon, MessageIcon::critical);
  EXPECT_EQ(desktop.beeps(), 1);
}

TEST_F(NotebookStart, aDamagedObjectFileIsNamedWithLineAndField) {
  const std::string name = file("title\nchapter\nnine\n");
  script.box("Input Error",
             "Damaged notebook object file.\n" + name +
                 ":3: field 3: a whole number from -32768 to 32767 was expected, not \"nine\"");
  EXPECT_THROW(noteBook.ReadObjectFile(name), ProgramEnded);
}

TEST_F(NotebookStart, theStatusLineGrowsAndBlinksTwentyTimes) {
  noteBook.LoadNotebook();
  frmNoteSplash& cover = *noteBook.cover();
  desktop.advance(500);
  EXPECT_EQ(cover.pnlStatusMessage.caption(), "Loading . . .");
  EXPECT_EQ(cover.pnlStatusMessage.foreColour(), colours::red);
  cover.ShowAnotherLoadingDot();
  EXPECT_EQ(cover.pnlStatusMessage.caption(), "Loading . . . .");
  EXPECT_EQ(cover.pnlStatusMessage.foreColour(), colours::buttonText);
  desktop.advance(30 * 500);
  EXPECT_EQ(cover.pnlStatusMessage.caption().size(), std::string("Loading . .").size() + 40);
  EXPECT_LE(textWidth(cover.pnlStatusMessage.font(), cover.pnlStatusMessage.caption()) * 15,
            cover.pnlStatusMessage.width());
}

TEST_F(NotebookStart, aClickOnTheCoverCountsWhenTheLoadingIsOver) {
  noteBook.LoadNotebook();
  frmNoteSplash& cover = *noteBook.cover();
  const auto press = [&] { user.key("frmNoteSplash", {keys::enter}); };
  user.click("frmNoteSplash", "pnlStatusMessage");
  user.click("frmNoteSplash", "");
  press();
  EXPECT_FALSE(cover.bUserClickeCover);
  noteBook.bAppIsLoading = false;
  press();
  EXPECT_FALSE(cover.bUserClickeCover) << "the invitation to continue is not on the screen";
  cover.pnlContinueMessage.setVisible(true);
  press();
  EXPECT_TRUE(cover.bUserClickeCover);
  cover.bUserClickeCover = false;
  user.click("frmNoteSplash", "imgCoverBackground");
  EXPECT_TRUE(cover.bUserClickeCover);
}

}  // namespace
}  // namespace tolmer
