#include "support/qt_user.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <stdexcept>

#include "platform/menu.h"
#include "platform/qt/control_peer.h"
#include "platform/qt/input_filter.h"
#include "platform/qt/theme.h"

namespace tolmer::test {
namespace {

constexpr int patience = 5000;  // milliseconds until a loop counts as forgotten

// One application serves all tests of the process.
class ToolkitEnvironment : public testing::Environment {
 public:
  void SetUp() override {
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    QCoreApplication::setApplicationName("Tolmer");
    theme::install();
    application_ = std::make_unique<QApplication>(argc, argv);
    theme::installFont();
  }
  void TearDown() override { application_.reset(); }

 private:
  std::unique_ptr<QApplication> application_;
};

const auto* const environment = testing::AddGlobalTestEnvironment(new ToolkitEnvironment);

// Calls `work` as soon as the loop that is about to start runs, and fails it by name when it never
// ends. Neither outlives the loop.
class DuringLoop {
 public:
  DuringLoop(Gate& gate, const std::string& what, std::function<void()> work) {
    QTimer::singleShot(0, &context_, [this, &gate, what, work = std::move(work)] {
      gate.enter(work);
      QTimer::singleShot(patience, &context_, [&gate, what] {
        gate.enter([&] { throw std::logic_error(what + " is still open and nothing closes it"); });
      });
    });
  }

 private:
  QObject context_;
};

QMessageBox::StandardButton buttonOf(Answer answer) {
  switch (answer) {
    case Answer::ok:
      return QMessageBox::Ok;
    case Answer::cancel:
      return QMessageBox::Cancel;
    case Answer::yes:
      return QMessageBox::Yes;
    case Answer::no:
      break;
  }
  return QMessageBox::No;
}

void answer(const MessageBox& expected, Answer answer) {
  auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (!box) throw std::logic_error("no box came to the screen for \"" + expected.text + "\"");
  EXPECT_EQ(box->text().toStdString(), expected.text);
  QAbstractButton* button = box->button(buttonOf(answer));
  if (!button) throw std::logic_error("the box \"" + expected.text + "\" has no such button");
  QTest::mouseClick(button, Qt::LeftButton);
}

using OnFile = std::function<std::optional<std::string>(const FileQuestion&)>;

void chooseFile(const FileQuestion& question, const OnFile& choose) {
  auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
  if (!dialog || !choose)
    throw std::logic_error("unexpected file dialog \"" + question.title + '"');
  const auto path = choose(question);
  if (!path) return dialog->reject();
  auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
  name->setText(QString::fromStdString(*path));
  QTest::keyClick(name, Qt::Key_Return);
}

// Where a click means the control: the sign of a check box is at its left.
QPoint targetIn(const Control& control, const QWidget& widget) {
  const bool hasSign =
      control.kind() == ControlKind::checkBox || control.kind() == ControlKind::optionButton;
  return hasSign ? QPoint(8, widget.height() / 2) : widget.rect().center();
}

// The event goes to the native window, so that modal windows and covering widgets count.
void press(const Control& control, Qt::MouseButton button, bool twice = false) {
  QWidget& widget = widgetOf(control);
  QWindow* window = widget.window()->windowHandle();
  const QPoint place = widget.mapTo(widget.window(), targetIn(control, widget));
  QTest::mouseClick(window, button, {}, place);
  if (twice) QTest::mouseDClick(window, button, {}, place);
}

QWindow* nativeWindow(const Window& window) { return widgetOf(window).window()->windowHandle(); }

// Nobody types into a window that has only just come up; a window manager takes its time.
void waitUntilActive(const Window& window) {
  if (!QTest::qWaitForWindowActive(nativeWindow(window), patience))
    throw std::runtime_error("the window " + window.name() + " never became active");
}

QAction* findAction(const QWidget& menu, const MenuItem& item) {
  for (QAction* action : menu.actions())
    if (action->text().toStdString() == item.caption()) return action;
  throw std::runtime_error("the entry \"" + item.caption() + "\" is not on the screen");
}

}  // namespace

QWidget& widgetOf(const Control& control) {
  QWidget* widget = ControlPeer::widgetOf(control);
  if (!widget) throw std::runtime_error("no widget for " + control.name());
  return *widget;
}

void ScriptedQtDesktop::modalLoop(Window& window) {
  const DuringLoop during(gate(), "modal window " + window.name(), [this, &window] {
    if (onModal) onModal(window);
  });
  QtDesktop::modalLoop(window);
}

Answer ScriptedQtDesktop::messageBox(const MessageBox& box) {
  const DuringLoop during(gate(), "the box \"" + box.text + "\"", [this, &box] {
    answer(box, onMessageBox ? onMessageBox(box) : answerButtons(box.buttons).front().answer);
  });
  return QtDesktop::messageBox(box);
}

std::optional<ChosenFile> ScriptedQtDesktop::openFileDialog(const FileQuestion& question) {
  const DuringLoop during(gate(), "the file dialog \"" + question.title + "\"",
                          [&] { chooseFile(question, onOpenFile); });
  return QtDesktop::openFileDialog(question);
}

std::optional<ChosenFile> ScriptedQtDesktop::saveFileDialog(const FileQuestion& question) {
  const DuringLoop during(gate(), "the file dialog \"" + question.title + "\"",
                          [&] { chooseFile(question, onSaveFile); });
  return QtDesktop::saveFileDialog(question);
}

void ScriptedQtDesktop::settle() {
  QCoreApplication::processEvents();
  rethrow();
}

std::vector<Window*> QtUser::windowsOnScreen() {
  std::vector<Window*> windows;
  for (Window* window : desktop_.windows()) {
    windows.push_back(window);
    if (window->style() != WindowStyle::frame) continue;
    for (Window* child : static_cast<FrameWindow*>(window)->childWindows())
      if (child->peer()) windows.push_back(child);
  }
  return windows;
}

void QtUser::doClick(Control& control) {
  press(control, Qt::LeftButton);
  desktop_.settle();
}

void QtUser::doDoubleClick(Control& control) {
  press(control, Qt::LeftButton, true);
  desktop_.settle();
}

void QtUser::doRightClick(Control& control) {
  press(control, Qt::RightButton);
  desktop_.settle();
}

void QtUser::doType(Control& control, const std::string& text) {
  QWindow* window = widgetOf(control).window()->windowHandle();
  // In a grid the cell is the one that is active already.
  const bool isGrid = control.kind() == ControlKind::grid;
  if (isGrid) {
    if (!widgetOf(control).isAncestorOf(QApplication::focusWidget())) widgetOf(control).setFocus();
  } else {
    press(control, Qt::LeftButton);
    QTest::keyClick(window, Qt::Key_A, Qt::ControlModifier);
  }
  if (text.empty()) QTest::keyClick(window, Qt::Key_Delete);
  for (const QChar letter : QString::fromStdString(text)) {
    const char ascii = letter.unicode() < 128 ? letter.toLatin1() : '\0';
    const Qt::Key key = ascii ? QTest::asciiToKey(ascii) : Qt::Key_unknown;
    QTest::sendKeyEvent(QTest::Click, window, key, QString(letter), Qt::NoModifier);
  }
  desktop_.settle();
}

void QtUser::doChoose(Control& control, int index) {
  auto& box = dynamic_cast<QComboBox&>(widgetOf(control));
  box.setFocus();
  box.showPopup();
  box.view()->setCurrentIndex(box.model()->index(index, 0));
  QTest::keyClick(box.view(), Qt::Key_Return);
  desktop_.settle();
}

void QtUser::doMenu(Window& window, const std::vector<MenuItem*>& path) {
  QWidget* menu = widgetOf(window).findChild<QMenuBar*>(QString(), Qt::FindDirectChildrenOnly);
  if (!menu) throw std::runtime_error("no menu bar in " + window.name());
  for (MenuItem* item : path) {
    QAction* action = findAction(*menu, *item);
    const auto* bar = qobject_cast<QMenuBar*>(menu);
    const QRect place =
        bar ? bar->actionGeometry(action) : static_cast<QMenu*>(menu)->actionGeometry(action);
    QTest::mouseClick(menu, Qt::LeftButton, {}, place.center());
    desktop_.settle();
    if (!action->menu()) continue;
    menu = action->menu();
    // One in a menu takes a moment to open.
    if (!QTest::qWaitFor([menu] { return menu->isVisible(); }))
      throw std::runtime_error("the menu " + item->name() + " does not open");
  }
}

void QtUser::doKey(Window& window, const KeyPress& key) {
  waitUntilActive(window);
  desktop_.settle();
  Qt::KeyboardModifiers modifiers;
  modifiers.setFlag(Qt::ShiftModifier, key.shift);
  modifiers.setFlag(Qt::ControlModifier, key.control);
  modifiers.setFlag(Qt::AltModifier, key.alt);
  QTest::keyClick(nativeWindow(window), toolkitKey(key.code), modifiers);
  desktop_.settle();
}

void QtUser::alt(std::string_view name, char letter) {
  waitUntilActive(window(name));
  QTest::keyClick(nativeWindow(window(name)), letter, Qt::AltModifier);
  // The toolkit shows the button pressed for a tenth of a second before it clicks.
  QTest::qWait(150);
  desktop_.settle();
}

void QtUser::doClose(Window& window) {
  widgetOf(window).close();
  desktop_.settle();
}

void QtUser::doState(Window& window, WindowState state) {
  QWidget& widget = widgetOf(window);
  state == WindowState::maximised ? widget.showMaximized() : widget.showNormal();
  desktop_.settle();
}

}  // namespace tolmer::test
