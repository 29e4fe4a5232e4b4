// Cover, reading of the object file, opening message, first page.
#include "notebook/cover.h"
#include "notebook/notebook_fixture.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

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

TEST_F(NotebookStart, needsNoCurtain) {
  int calls = 0;
  noteBook.loadHider = noteBook.unloadHider = [&] { ++calls; };
  noteBook.ShowHider = false;
  noteBook.LoadNotebook();
  noteBook.ReadObjectFile(file(objectFileText(test::sampleBook())));
  script.window("frmOpeningBook");
  script.window("frmNotebook", [&] { user.click("frmNotebook", "cmdCancel"); });
  noteBook.StartAndShowNotebook();
  EXPECT_EQ(calls, 0);
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
