// The same user and script before real widgets.
#pragma once

#include <QWidget>
#include <functional>

#include "platform/qt/qt_desktop.h"
#include "support/user.h"

namespace tolmer::test {

// Lets functions stand in for the user, as the headless desktop does. Nothing hangs here either: a
// modal window or box that nobody closes is an exception that names it.
class ScriptedQtDesktop : public QtDesktop {
 public:
  // Unset, a modal window waits for its timers, and a box gets its first button.
  std::function<void(Window&)> onModal;
  std::function<Answer(const MessageBox&)> onMessageBox;
  // Unset, a file dialog is an exception that names it.
  std::function<std::optional<std::string>(const FileQuestion&)> onOpenFile;
  std::function<std::optional<std::string>(const FileQuestion&)> onSaveFile;

  std::optional<ChosenFile> openFileDialog(const FileQuestion& question) override;
  std::optional<ChosenFile> saveFileDialog(const FileQuestion& question) override;
  void modalLoop(Window& window) override;
  Answer messageBox(const MessageBox& box) override;
  // Handles what is pending, and throws what was thrown in it.
  void settle();
};

// Works with mouse and keyboard on the toolkit's own windows, where a modal window stands in the
// way as it does for anybody.
class QtUser : public User {
 public:
  explicit QtUser(ScriptedQtDesktop& desktop) : desktop_(desktop) {}

  // Alt and the letter marked in a caption.
  void alt(std::string_view window, char letter);

 protected:
  std::vector<Window*> windowsOnScreen() override;
  Window* modalWindow() override { return desktop_.modalWindow(); }
  void doClick(Control& control) override;
  void doDoubleClick(Control& control) override;
  void doRightClick(Control& control) override;
  void doType(Control& control, const std::string& text) override;
  void doChoose(Control& control, int index) override;
  void doMenu(Window& window, const std::vector<MenuItem*>& path) override;
  void doKey(Window& window, const KeyPress& press) override;
  void doClose(Window& window) override;
  void doState(Window& window, WindowState state) override;

 private:
  ScriptedQtDesktop& desktop_;
};

// The control's widget; fails where there is none.
QWidget& widgetOf(const Control& control);

}  // namespace tolmer::test
