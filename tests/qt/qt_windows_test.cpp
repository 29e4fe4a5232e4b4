// Windows on the real desktop: frames, sizes, boxes, clipboard.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QStyle>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <QWindow>

#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/grid/grid.h"
#include "platform/labels.h"
#include "platform/menu.h"
#include "platform/qt/kept_window.h"
#include "support/qt_user.h"

namespace tolmer::test {
namespace {

class QtWindowsTest : public testing::Test {
 protected:
  ScriptedQtDesktop desktop;
  QtUser user{desktop};
};

struct OneChild : FrameWindow {
  explicit OneChild(ScriptedQtDesktop& desktop)
      : FrameWindow(desktop, "mdi", "Frame"),
        child(desktop, "frmChild", WindowStyle::child, "Child") {
    setMenuBar(&bar);  // it takes the buttons of a maximised child
    show();
    desktop.settle();
    adopt(child);
    child.setPlace({pixels(10), pixels(20), pixels(400), pixels(300)});
    child.show();
    desktop.settle();
  }
  QMdiSubWindow& sub() const { return dynamic_cast<QMdiSubWindow&>(widgetOf(child)); }
  MenuItem bar{nullptr, "bar"};
  MenuItem file{&bar, "mnuFile", "&File"};
  MenuItem copy{&file, "mnuFileCopy", "&Copy"};
  Window child;
};

TEST_F(QtWindowsTest, ModelsKnowWhatAChildsFrameTakes) {
  OneChild frame(desktop);
  const QRect inner = frame.sub().widget()->geometry();
  EXPECT_EQ(pixels(static_cast<float>(inner.left())), FrameWindow::childSide);
  EXPECT_EQ(pixels(static_cast<float>(inner.top())), FrameWindow::childTop);
  EXPECT_EQ(pixels(static_cast<float>(inner.width())), frame.child.innerWidth());
  EXPECT_EQ(pixels(static_cast<float>(inner.height())), frame.child.innerHeight());
  user.maximise("frmChild");
  EXPECT_EQ(pixels(static_cast<float>(frame.sub().widget()->width())), frame.child.innerWidth());
  EXPECT_EQ(pixels(static_cast<float>(frame.sub().widget()->height())), frame.child.innerHeight());
}

TEST_F(QtWindowsTest, ChildStaysWhereItIs) {
  OneChild frame(desktop);
  const QRect place = frame.sub().geometry();
  EXPECT_EQ(place, QRect(10, 20, 400, 300));
  QTest::mousePress(&frame.sub(), Qt::LeftButton, {}, {100, 10});
  QTest::mouseMove(&frame.sub(), {180, 60});
  QTest::mouseRelease(&frame.sub(), Qt::LeftButton, {}, {180, 60});
  EXPECT_EQ(frame.sub().geometry(), place);
  frame.sub().resize(200, 100);
  EXPECT_EQ(frame.sub().geometry(), place);
  QTest::keyClick(&frame.sub(), Qt::Key_F4, Qt::ControlModifier);
  EXPECT_TRUE(frame.child.visible());
  user.maximise("frmChild");
  user.restore("frmChild");
  EXPECT_EQ(frame.sub().geometry(), place);
  EXPECT_EQ(frame.sub().systemMenu(), nullptr) << "it would open on a right click";
}

TEST_F(QtWindowsTest, TitleBarMaximisesByItsButtonAndTellsRightClicks) {
  OneChild frame(desktop);
  std::string events;
  frame.child.MouseUp = [&](MouseButton button) {
    events += button == MouseButton::right ? 'r' : 'l';
  };
  frame.child.Click = [&] { events += 'c'; };
  QTest::mouseClick(&frame.sub(), Qt::RightButton, {}, {100, 10});
  EXPECT_EQ(events, "r");
  const QPoint button(frame.sub().width() - 15, 12);
  QTest::mouseMove(&frame.sub(), button);
  QTest::mouseClick(&frame.sub(), Qt::LeftButton, {}, button);
  desktop.settle();
  EXPECT_EQ(frame.child.state(), WindowState::maximised);
  EXPECT_EQ(events, "r") << "the frame is no part of the window's ground";
}

TEST_F(QtWindowsTest, PopupMenuOpensAndChooses) {
  OneChild frame(desktop);
  MenuItem menu(nullptr, "mnuMenuTop");
  MenuItem copy(&menu, "mnuHistoCopy", "&Copy");
  int copies = 0;
  copy.Click = [&] { ++copies; };
  frame.child.MouseUp = [&](MouseButton) { desktop.popupMenu(menu, frame.child); };
  for (int i = 0; i < 2; ++i) {
    user.rightClick("frmChild");
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    QTest::keyClick(popup, Qt::Key_C);
    desktop.settle();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  }
  EXPECT_EQ(copies, 2);
}

// A key asks for the menu while the mouse is anywhere.
TEST_F(QtWindowsTest, PopupMenuOpensInsideItsWindow) {
  OneChild frame(desktop);
  MenuItem menu(nullptr, "mnuMenuTop");
  MenuItem copy(&menu, "mnuHistoCopy", "&Copy");
  const QRect child(frame.sub().mapToGlobal(QPoint()), frame.sub().size());
  for (const QPoint& mouse : {child.bottomRight() + QPoint(90, 60), child.center()}) {
    QCursor::setPos(mouse);
    desktop.popupMenu(menu, frame.child);
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup->pos(), child.center());
    popup->close();
  }
}

TEST_F(QtWindowsTest, LetterOfAMenuIsTheActiveChildsWhereItTakesItAndAGreyButtonAnswers) {
  OneChild frame(desktop);
  Button stop(&frame.child, "cmdStop", "&Stop");
  stop.setPlace({0, pixels(40), pixels(90), pixels(30)});
  Button go(&frame.child, "cmdGo", "&Go");
  go.setPlace({0, 0, pixels(90), pixels(30)});
  frame.child.announceChildren();
  int pressed = 0;
  frame.child.takeKey({.code = 'F', .alt = Held::yes}, [&] { ++pressed; });
  go.setFocus();
  user.alt("mdi", 'F');
  EXPECT_EQ(pressed, 1);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  stop.setEnabled(false);
  user.alt("mdi", 'S');
  EXPECT_EQ(QToolTip::text(), "Stop cannot be used now.");
  QToolTip::hideText();
}

TEST_F(QtWindowsTest, CopyKeyTakesWhatIsMarkedAndElseTheEntrysWords) {
  OneChild frame(desktop);
  frame.copy.setShortcut({.code = 'C', .control = true});
  frame.copy.Click = [&] { desktop.setClipboard({.text = "all"}); };
  Window second(desktop, "frmSecond", WindowStyle::child, "Second");
  TextBox text(&second, "txt");
  text.setPlace({0, 0, pixels(200), pixels(80)});
  text.setMultiLine(true);
  text.setReadOnly(true);
  text.setText("one two");
  frame.adopt(second);
  second.setPlace({pixels(10), pixels(330), pixels(300), pixels(160)});
  second.show();
  text.setFocus();
  desktop.settle();
  auto& lines = dynamic_cast<QPlainTextEdit&>(widgetOf(text));
  const auto copied = [&] {
    user.key("mdi", {.code = 'C', .control = true});
    return desktop.pasted().text;
  };
  EXPECT_EQ(copied(), "all");
  lines.moveCursor(QTextCursor::Start);
  lines.moveCursor(QTextCursor::EndOfWord, QTextCursor::KeepAnchor);
  EXPECT_EQ(copied(), "one");
}

// Otherwise the two would part where the frame is minimised: the window manager is told the owner
// as a window comes to the screen.
TEST_F(QtWindowsTest, WindowThatWasThereBeforeTheFrameBelongsToItOnceShownAgain) {
  Window hider(desktop, "frmHider", WindowStyle::bare);
  hider.setPlace({0, 0, pixels(300), pixels(200)});
  hider.show();
  OneChild frame(desktop);
  hider.show();
  desktop.settle();
  EXPECT_EQ(widgetOf(hider).windowHandle()->transientParent(), widgetOf(frame).windowHandle());
  EXPECT_TRUE(widgetOf(hider).isVisible());
}

struct TallDialog : Window {
  explicit TallDialog(ScriptedQtDesktop& desktop)
      : Window(desktop, "frmTall", WindowStyle::dialog, "Tall") {
    setPlace({0, 0, pixels(300), pixels(900)});
    for (TextBox* box : {&txtFirst, &txtLast})
      box->setPlace({pixels(10), box == &txtFirst ? pixels(10) : pixels(820), pixels(200), 400});
    cmdOK.setPlace({pixels(200), pixels(860), pixels(90), pixels(30)});
  }
  TextBox txtFirst{this, "txtFirst"};
  TextBox txtLast{this, "txtLast"};
  Button cmdOK{this, "cmdOK", "OK"};
};

// The test's screen has 800 x 800 pixels.
TEST_F(QtWindowsTest, ButtonsOfADialogThatIsTooHighStayInViewAtAnyZoom) {
  TallDialog dialog(desktop);
  dialog.txtFirst.setFocus();
  dialog.show();
  const auto isSeen = [&](const Control& control) {
    const QWidget& widget = widgetOf(control);
    return widget.visibleRegion().boundingRect() == widget.rect();
  };
  for (const int zoom : {100, 150, 100}) {
    desktop.setZoom(zoom);
    desktop.settle();
    EXPECT_TRUE(isSeen(dialog.cmdOK)) << zoom;
    EXPECT_EQ(widgetOf(dialog.cmdOK).width(), 90 * zoom / 100);
    dialog.txtLast.setFocus();
    desktop.settle();
    EXPECT_TRUE(isSeen(dialog.txtLast)) << zoom;
    EXPECT_FALSE(isSeen(dialog.txtFirst)) << zoom;
    EXPECT_LE(widgetOf(dialog).height(), 800);
    dialog.txtFirst.setFocus();
  }
}

// Edges that fall between pixels, where the place and the size round apart.
TEST_F(QtWindowsTest, DialogThatHasRoomDoesNotScrollWhereverItStands) {
  Window dialog(desktop, "frm", WindowStyle::dialog, "Between");
  Button last(&dialog, "cmdOK", "OK");
  dialog.setPlace({6, 6, 4505, 2705});
  dialog.show();
  for (const int zoom : {100, 110, 125}) {
    desktop.setZoom(zoom);
    desktop.settle();
    EXPECT_EQ(widgetOf(dialog).findChild<QScrollArea*>(), nullptr) << zoom;
  }
}

TEST_F(QtWindowsTest, MenuOfADialogIsThereAtEveryZoomAndItsSizeComesBack) {
  Window dialog(desktop, "frm", WindowStyle::dialog, "Sheet");
  MenuItem bar{nullptr, "bar"};
  MenuItem file{&bar, "mnuFile", "&File"};
  MenuItem edit{&bar, "mnuEdit", "&Edit"};
  dialog.setMenuBar(&bar);
  dialog.setSizable(true);
  dialog.setPlace({0, 0, pixels(600), pixels(700)});
  dialog.show();
  const auto& menu = *widgetOf(dialog).findChild<QMenuBar*>();
  for (const int zoom : {100, 125, 150, 100}) {
    desktop.setZoom(zoom);
    desktop.settle();
    for (QAction* entry : menu.actions())
      EXPECT_TRUE(menu.rect().contains(menu.actionGeometry(entry))) << zoom;
  }
  EXPECT_EQ(dialog.innerWidth(), pixels(600)) << "it was cut while it was larger than the screen";
  EXPECT_EQ(widgetOf(dialog).width(), 600);
}

TEST_F(QtWindowsTest, FrameKeepsItsMaximisedState) {
  OneChild frame(desktop);
  EXPECT_EQ(frame.state(), WindowState::maximised);
  frame.Resize = [&] {
    if (frame.state() == WindowState::normal) frame.setState(WindowState::maximised);
  };
  widgetOf(frame).setWindowState(Qt::WindowNoState);
  widgetOf(frame).resize(500, 400);
  desktop.settle();
  EXPECT_EQ(frame.state(), WindowState::maximised);
  EXPECT_TRUE(widgetOf(frame).isMaximized());
}

TEST_F(QtWindowsTest, MinimisedFrameStaysSoAndComesBackMaximised) {
  OneChild frame(desktop);
  QWidget& main = *frame.sub().window();
  main.setWindowState(main.windowState() | Qt::WindowMinimized);
  desktop.settle();
  EXPECT_EQ(frame.state(), WindowState::minimised);
  EXPECT_TRUE(main.isMinimized() && main.isMaximized());
  main.setWindowState(main.windowState() & ~Qt::WindowMinimized);
  desktop.settle();
  EXPECT_EQ(frame.state(), WindowState::maximised);
}

TEST_F(QtWindowsTest, SizableWindowReportsItsSizeOnce) {
  Window window(desktop, "frm", WindowStyle::dialog, "Data");
  window.setSizable(true);
  window.setPlace({pixels(50), pixels(50), 4507, 3004});  // no whole pixels
  int resizes = 0;
  window.Resize = [&] { ++resizes; };
  window.show();
  desktop.settle();
  EXPECT_EQ(resizes, 0);
  EXPECT_EQ(window.innerWidth(), 4507);
  widgetOf(window).resize(400, 300);
  desktop.settle();
  EXPECT_EQ(resizes, 1);
  EXPECT_EQ(window.innerWidth(), pixels(400));
  widgetOf(window).move(120, 90);
  desktop.settle();
  EXPECT_EQ(window.left(), pixels(120));
}

TEST_F(QtWindowsTest, FixedWindowStaysOnAndWithinTheScreen) {
  Window window(desktop, "frm", WindowStyle::dialog, "Large");
  const Size screen = desktop.screenSize();
  window.setPlace({0, 0, screen.width, screen.height + pixels(200)});
  Button last(&window, "cmdLast", "Last");
  last.setPlace({pixels(10), window.height() - pixels(40), pixels(90), pixels(30)});
  window.show();
  desktop.settle();
  EXPECT_LE(widgetOf(window).height(), static_cast<int>(screen.height / twipsPerPixel));
  auto* scroller = widgetOf(window).findChild<QScrollArea*>();
  ASSERT_NE(scroller, nullptr);
  scroller->ensureWidgetVisible(&widgetOf(last));
  EXPECT_FALSE(widgetOf(last).visibleRegion().isEmpty());
}

TEST_F(QtWindowsTest, ZoomKeysReachEveryBoxWhateverHasTheFocus) {
  const auto press = [](QWidget* window, Qt::Key key) {
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    QTest::keyClick(window->windowHandle(), key, Qt::ControlModifier);
  };
  const auto pressSoon = [&] {
    QTimer::singleShot(0, qApp, [press] {
      QWidget* box = QApplication::activeModalWidget();
      press(box, Qt::Key_Plus);
      QTest::keyClick(box->windowHandle(), Qt::Key_Escape);
    });
  };
  pressSoon();
  desktop.QtDesktop::messageBox({"", "Text"});
  EXPECT_EQ(desktop.zoom(), 125);
  pressSoon();
  desktop.QtDesktop::saveFileDialog({"Save", {{"Texts", {"txt"}}}, "", "name"});
  EXPECT_EQ(desktop.zoom(), 150);
  desktop.keepBeside({.pages = {{"One", "<p>one</p>"}}});
  press(desktop.keptWindow(), Qt::Key_0);
  EXPECT_EQ(desktop.zoom(), 100);
}

TEST_F(QtWindowsTest, CoveredWindowIsPaintedWhenTheCoverGoes) {
  OneChild frame(desktop);
  widgetOf(frame).move(2, 2);  // and so beyond the screen, as before it is maximised
  Window cover(desktop, "frmHider", WindowStyle::bare);
  const Size screen = desktop.screenSize();
  cover.setPlace({0, 0, screen.width, screen.height});
  cover.show();
  EXPECT_FALSE(widgetOf(frame).updatesEnabled());
  {
    const UpdateLock lock(frame);
    cover.hide();
    EXPECT_FALSE(widgetOf(frame).updatesEnabled());
  }
  EXPECT_TRUE(widgetOf(frame).updatesEnabled());
  cover.setPlace({0, 0, pixels(100), pixels(100)});
  cover.show();
  EXPECT_TRUE(widgetOf(frame).updatesEnabled());
}

TEST_F(QtWindowsTest, BoxShowsTheProgramsNameAndEscapeMeansNoOrCancel) {
  QString title;
  const auto escape = [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    title = box->windowTitle();
    EXPECT_FALSE(box->iconPixmap().isNull());
    QTest::keyClick(box, Qt::Key_Escape);
  };
  for (const auto& [buttons, expected] : {std::pair{MessageButtons::yesNo, Answer::no},
                                          {MessageButtons::okCancel, Answer::cancel},
                                          {MessageButtons::saveDontSaveCancel, Answer::cancel},
                                          {MessageButtons::ok, Answer::ok}}) {
    QTimer::singleShot(0, qApp, escape);
    const MessageBox box{"", "a < b & c", MessageIcon::exclamation, buttons};
    EXPECT_EQ(desktop.QtDesktop::messageBox(box), expected);
    EXPECT_EQ(title, "Tolmer");
  }
}

TEST_F(QtWindowsTest, SaveAndDontSaveHaveLettersAndSaveIsReturn) {
  for (const auto& [key, held, expected] : {std::tuple{Qt::Key_S, Qt::AltModifier, Answer::yes},
                                            {Qt::Key_D, Qt::AltModifier, Answer::no},
                                            {Qt::Key_C, Qt::AltModifier, Answer::cancel},
                                            {Qt::Key_Return, Qt::NoModifier, Answer::yes}}) {
    QTimer::singleShot(0, qApp, [key = key, held = held] {
      QWidget* box = QApplication::activeModalWidget();
      EXPECT_TRUE(QTest::qWaitForWindowActive(box));
      QTest::keyClick(box->windowHandle(), key, held);
    });
    EXPECT_EQ(desktop.QtDesktop::messageBox(
                  {.title = "", .text = "?", .buttons = MessageButtons::saveDontSaveCancel}),
              expected);
  }
}

TEST_F(QtWindowsTest, WhereNoLosesWorkOnlyAButtonAnswers) {
  QTimer::singleShot(0, qApp, [] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    QTest::keyClick(static_cast<QWidget*>(box->button(QMessageBox::Yes)), Qt::Key_Escape);
    box->close();
    ASSERT_TRUE(box->isVisible());
    QTest::keyClick(static_cast<QWidget*>(box->button(QMessageBox::Yes)), Qt::Key_Return);
  });
  const MessageBox box{"", "Save?", MessageIcon::question, MessageButtons::yesNo, true};
  EXPECT_EQ(desktop.QtDesktop::messageBox(box), Answer::yes);
}

TEST_F(QtWindowsTest, FilesThatFallOnAnyWindowGoToTheOneThatListens) {
  OneChild frame(desktop);
  Window dialog(desktop, "dialog", WindowStyle::dialog, "Dialog");
  TextBox box(&dialog, "txtBox");
  std::vector<std::string> fallen;
  frame.Dropped = [&](const DroppedItems& items) {
    fallen = items.files;
    fallen.push_back(items.addresses.at(0));
  };
  const auto drop = [&](const Window& on) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/a b.csv"), QUrl("https://example.org/x")});
    QWindow* target = widgetOf(on).windowHandle();
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(target, &enter);
    QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    if (enter.isAccepted()) QCoreApplication::sendEvent(target, &event);
    desktop.settle();
    return enter.isAccepted();
  };
  dialog.show();
  EXPECT_TRUE(drop(dialog));
  EXPECT_EQ(fallen, (std::vector<std::string>{"/a b.csv", "https://example.org/x"}));
  EXPECT_EQ(box.text(), "");
  dialog.hide();
  desktop.onModal = [&](Window&) {
    EXPECT_FALSE(drop(frame)) << "a modal window that does not listen";
    dialog.hide();
  };
  dialog.showModal();
}

// As a session manager tells it at the end: no window is asked, so that none holds the end up.
TEST_F(QtWindowsTest, ToldToGoTheProgramEndsWithoutAQuestion) {
  Window asking(desktop, "frm", WindowStyle::dialog, "Asks");
  asking.QueryUnload = [](bool& cancel) {
    ADD_FAILURE() << "asked";
    cancel = true;
  };
  desktop.onModal = [](Window&) {
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
  };
  EXPECT_THROW(asking.showModal(), ProgramEnded);
}

TEST_F(QtWindowsTest, ClipboardHasEveryForm) {
  desktop.setClipboard({.text = "1\t2", .html = "<table></table>"});
  EXPECT_EQ(desktop.pasted().text, "1\t2");
  EXPECT_THAT(desktop.pasted().html, testing::HasSubstr("<table>"));
  EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->hasHtml());
  EXPECT_FALSE(QGuiApplication::clipboard()->mimeData()->hasImage());
  desktop.setClipboard(
      {.svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"40\" height=\"20\" "
              "viewBox=\"0 0 40 20\"><rect width=\"40\" height=\"20\" fill=\"red\"/></svg>"});
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  EXPECT_TRUE(data->hasFormat("image/svg+xml"));
  const QImage image = QGuiApplication::clipboard()->image();
  EXPECT_EQ(image.size(), QSize(80, 40)) << "needs the toolkit's SVG module";
  EXPECT_EQ(image.pixelColor(40, 20), QColor(255, 0, 0));
  EXPECT_FALSE(data->hasText());
}

TEST_F(QtWindowsTest, TimersLeaveOutTheTimeNobodyCouldHandle) {
  int ticks = 0;
  Timer timer(desktop.timers(), "tmr", 20, true);
  timer.Tick = [&] { ++ticks; };
  QTest::qSleep(1300);
  desktop.settle();
  EXPECT_LE(ticks, 2) << "65 ticks to catch up on";
  QTest::qWait(100);
  EXPECT_GE(ticks, 2);
}

TEST_F(QtWindowsTest, ModelThatGoesTakesItsWidgetsAlong) {
  const auto before = QApplication::topLevelWidgets().size();
  {
    Window window(desktop, "frm", WindowStyle::dialog, "Short");
    Label label(&window, "lbl", "Text");
    Grid list(&window, "grd");
    list.setSelectionMode(SelectionMode::rows);
    window.show();
    desktop.settle();
    list.setFocus();  // what follows from that comes when the list is gone
  }
  desktop.settle();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(QApplication::topLevelWidgets().size(), before);
  EXPECT_TRUE(desktop.windows().empty());
}

}  // namespace
}  // namespace tolmer::test
