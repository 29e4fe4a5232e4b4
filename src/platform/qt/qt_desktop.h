// The desktop with a screen.
#pragma once

#include <QObject>
#include <memory>
#include <string>

#include "platform/desktop.h"
#include "platform/qt/alarm.h"
#include "platform/qt/drop_filter.h"
#include "platform/qt/mirror.h"
#include "platform/qt/session_end.h"

namespace tolmer {

class HelpWindow;
class KeptWindow;

// Stands after the application object and goes before it. Windows shown on it may go in any order
// before it.
class QtDesktop : public Desktop {
 public:
  QtDesktop();
  ~QtDesktop() override;

  // Handles events until the program ends; returns its exit status. What a model threw, other than
  // by endProgram, arrives here.
  int run();

  // Windows on the screen, the lowest first, and the one that takes input alone.
  std::vector<Window*> windows() const { return mirror_.windows.windows(); }
  Window* modalWindow() const { return mirror_.windows.modalWindow(); }
  // For whoever handles events himself: throws what models threw in them.
  void rethrow() { mirror_.gate.rethrow(); }
  // Where the pages of the help are, unless they lie in the program's folder.
  void setHelpFolder(std::string folder) { helpFolder_ = std::move(folder); }
  // Null until somebody has asked for help.
  HelpWindow* helpWindow() const { return help_.get(); }
  // Null until somebody has kept a page beside.
  KeptWindow* keptWindow() const { return kept_.get(); }
  // As if that many milliseconds had passed for the timers.
  void advance(int milliseconds) { alarm_.skip(milliseconds); }

  Answer messageBox(const MessageBox& box) override;
  void present(Window& window) override;
  void modalLoop(Window& window) override;
  void doEvents() override;
  Size screenSize() const override;
  Twips scrollBarThickness() const override;
  void popupMenu(MenuItem& menu, Window& window) override;
  void tellAt(Control& control, const std::string& words) override;
  void beep() override;
  void setBusyPointer(bool busy) override;
  void setClipboard(const ClipboardContent& content) override;
  ClipboardContent pasted() const override;
  std::optional<ChosenFile> openFileDialog(const FileQuestion& question) override;
  std::optional<ChosenFile> saveFileDialog(const FileQuestion& question) override;
  Result<std::string> pdfOf(const PrintedPages& pages) override;
  void print(const PrintedPages& pages) override;
  void showHelp(const HelpRequest& request) override;
  void keepBeside(const KeptPages& pages) override;
  bool activateProgram(const std::string& title) override;
  void openDocument(const std::string& path, std::function<void()> failed) override;
  [[noreturn]] void endProgram(int status) override;

 protected:
  Gate& gate() { return mirror_.gate; }

 private:
  void zoomChanged() override;
  void screenChanged();

  Mirror mirror_{*this};
  Alarm alarm_;
  DropFilter drops_{mirror_};
  SessionEnd session_{mirror_};
  bool busyPointer_ = false;
  std::string helpFolder_;
  std::unique_ptr<HelpWindow> help_;
  std::unique_ptr<KeptWindow> kept_;
  QObject screens_;  // listens as long as the windows stand
};

}  // namespace tolmer
