// The pages of the book on the screen: painted at once, and worked by the keyboard alone.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWindow>
#include <map>

#include "base/file_io.h"
#include "notebook/notebook_window.h"
#include "notebook/object_file.h"
#include "support/qt_user.h"
#include "support/sample_book.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace tolmer::test {
namespace {

using K = ElementKind;

// A page of jumps, one on which a list stands between a check and a jump, one with an outline.
Book bookOfThreePages() {
  Book book = sampleBook();
  book.uSection[1] = {"One", 1, 3};
  book.uSection[2] = {"Two", 3, 1};
  book.uJump[1] = {"To the second page", false, 0, 0, 2};
  book.uJump[2] = {"To the third page", false, 0, 1, 3};
  book.uOutline[1].iNumOutlines = 1;
  book.uPage.resize(0);
  book.uPageElement.resize(0);
  addPage(book, {PageType::plain, 0, 0, 0, 0}, {{K::text, 1, 0}, {K::jump, 1, 0}, {K::jump, 2, 0}});
  addPage(book, {PageType::scenario, 0, 0, 1, 0},
          {{K::text, 1, 0}, {K::check, 1, 0}, {K::scenario, 1, 0}, {K::jump, 2, 0}});
  addPage(book, {PageType::database, 0, 0, 0, 1}, {{K::text, 1, 0}, {K::outline, 1, 0}});
  return book;
}

class NotebookPages : public testing::Test {
 protected:
  NotebookPages() {
    const std::string file = folder.file("keys.nbo");
    EXPECT_FALSE(writeFileAtomically(file, objectFileText(bookOfThreePages())));
    noteBook.tProgramFolder = TOLMER_SOURCE_DIR "/course/art";
    noteBook.ReadObjectFile(file);
    window().goTo(1, 1);
    window().show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(widgetOf(window()).window()->windowHandle()));
    desktop.settle();
  }
  frmNotebook& window() { return noteBook.window(); }
  std::string focus() { return window().focus() ? window().focus()->name() : "nothing"; }
  void press(int code, bool control = false) {
    user.key("frmNotebook", {code, false, control});
    desktop.settle();
  }
  // Where Tab leads to from that control, around to it again.
  std::string stopsFrom(Control& first) {
    first.setFocus();
    std::string stops;
    do {
      stops += focus() + " ";
      press(keys::tab);
    } while (focus() != first.name() && stops.size() < 500);
    return stops;
  }

  TempFolder folder;
  ScriptedQtDesktop desktop;
  QtUser user{desktop};
  NoteBook noteBook{desktop};
};

// Counts the paints of a window's widgets and the frames that came to the screen. A widget is often
// painted in several pieces of one frame.
class Paints : public QObject {
 public:
  explicit Paints(const QWidget& window) : window_(window) { qApp->installEventFilter(this); }
  std::map<std::string, int> ofWidget;
  int frames = 0;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget || widget->window() != &window_) return false;
    if (event->type() == QEvent::Paint) ++ofWidget[widget->objectName().toStdString()];
    if (event->type() == QEvent::UpdateRequest) ++frames;
    return false;
  }

 private:
  const QWidget& window_;
};

TEST_F(NotebookPages, aTurnedPageComesInOneFrame) {
  Paints paints(*widgetOf(window()).window());
  window().goTo(1, 2);
  EXPECT_TRUE(paints.ofWidget.empty()) << "before it is complete";
  desktop.settle();
  EXPECT_EQ(paints.frames, 1);
  for (const char* control : {"picPageContainer", "lblText(1)", "chkCheck(1)", "fraScenarios",
                              "lblContentsEntry(1)", "lblPreviousPage", "optScenario(1)"})
    EXPECT_GT(paints.ofWidget[control], 0) << control;
  EXPECT_EQ(paints.ofWidget["lblContentsEntry(2)"], 0) << "of the page before";
}

TEST_F(NotebookPages, tabLeadsDownThePageWhateverWasMadeFirst) {
  EXPECT_EQ(stopsFrom(window().tbNoteBook),
            "tbNoteBook lblContentsEntry(1) lblContentsEntry(2) lblNextPage cmdOK cmdCancel "
            "cmdHelp cmdKeepBeside ");
  window().goTo(1, 2);
  EXPECT_EQ(stopsFrom(window().tbNoteBook),
            "tbNoteBook chkCheck(1) optScenario(1) lblContentsEntry(1) lblPreviousPage lblNextPage "
            "cmdOK cmdCancel cmdHelp cmdKeepBeside ");
  window().goTo(1, 3);
  EXPECT_EQ(stopsFrom(window().tbNoteBook),
            "tbNoteBook outOutline(1) lblPreviousPage cmdOK cmdCancel cmdHelp cmdKeepBeside ");
}

TEST_F(NotebookPages, theKeyboardAloneGoesEverywhere) {
  window().tbNoteBook.setFocus();
  press(keys::right);
  EXPECT_EQ(noteBook.LastSectionNumber(), 2);
  press(keys::left);
  press(keys::tab);
  press(keys::enter);  // the first jump
  EXPECT_EQ(noteBook.LastPageNumber(), 2);
  EXPECT_EQ(focus(), "lblContentsEntry(1)") << "the page has a jump of its own";
  window().scenarios.optScenario(1).setFocus();
  press(keys::up);
  EXPECT_EQ(noteBook.GetSelectedScenario(1, 2), 0);
  press(keys::pageDown, true);
  EXPECT_EQ(noteBook.LastPageNumber(), 3);
  EXPECT_EQ(focus(), "tbNoteBook");
  press(keys::tab);
  EXPECT_EQ(focus(), "outOutline(1)");
  press(keys::up);
  EXPECT_FALSE(window().cmdOK.enabled()) << "on the group";
  press(' ');
  EXPECT_FALSE(window().elements.outOutline(1).expanded(0));
  press(keys::right);
  press(keys::down);
  EXPECT_TRUE(window().cmdOK.enabled());
  press(keys::enter);
  EXPECT_EQ(noteBook.LastAction(), NoteBook::closedByOK);
}

}  // namespace
}  // namespace tolmer::test
