// A desktop without a screen: for tests.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/desktop.h"

namespace tolmer {

// Its clock is virtual: time passes in modal loops, where nothing else is left to do, and when
// advance is called. Nothing ever hangs: a modal window that nobody closes is an exception that
// names it.
class HeadlessDesktop : public Desktop {
 public:
  explicit HeadlessDesktop(Size screen = {pixels(1280), pixels(800)}) : screen_(screen) {}

  // What stands in for the user. Without onMessageBox every box gets its first button; a modal
  // window without onModal waits for its timers alone.
  std::function<Answer(const MessageBox&)> onMessageBox;
  std::function<void(Window&)> onModal;
  // Whether some program opens the document; none does without it.
  std::function<bool(const std::string&)> onOpenDocument;
  std::function<void(MenuItem&, Window&)> onPopupMenu;
  // The path that is chosen, or nothing. Unset, a dialog is an exception that names it.
  std::function<std::optional<std::string>(const FileQuestion&)> onOpenFile;
  std::function<std::optional<std::string>(const FileQuestion&)> onSaveFile;

  // What stands for the PDF; unset, a few bytes do.
  std::function<Result<std::string>(const PrintedPages&)> onPdf;
  // Unset, printing is an exception.
  std::function<void(const PrintedPages&)> onPrint;

  // Windows that have been shown and are still loaded, the oldest first.
  const std::vector<Window*>& windows() const { return windows_; }
  // The window that takes input: the innermost modal one; null outside modal loops.
  Window* modalWindow() const { return modal_.empty() ? nullptr : modal_.back(); }
  // As if another screen had been plugged in.
  void setScreen(Size screen);
  void advance(int milliseconds) { timers().advanceTo(timers().now() + milliseconds); }

  // What happened, in order.
  const std::vector<AnsweredBox>& boxes() const { return boxes_; }
  const std::vector<HelpRequest>& helpRequests() const { return helpRequests_; }
  const KeptPages& keptPages() const { return kept_; }
  const ClipboardContent& clipboard() const { return clipboard_; }
  int beeps() const { return beeps_; }
  const std::string& lastTold() const { return lastTold_; }  // beside a control
  bool ended() const { return ended_; }

  Answer messageBox(const MessageBox& box) override;
  void present(Window& window) override;
  void modalLoop(Window& window) override;
  void doEvents() override {}
  Size screenSize() const override {
    const float share = static_cast<float>(usualZoom) / static_cast<float>(zoom());
    return {screen_.width * share, screen_.height * share};
  }
  Twips scrollBarThickness() const override { return pixels(14); }
  void popupMenu(MenuItem& menu, Window& window) override;
  void tellAt(Control&, const std::string& words) override { lastTold_ = words; }
  void beep() override { ++beeps_; }
  void setBusyPointer(bool) override {}
  void setClipboard(const ClipboardContent& content) override { clipboard_ = content; }
  ClipboardContent pasted() const override {
    return {.text = clipboard_.text, .html = clipboard_.html, .cells = clipboard_.cells};
  }
  std::optional<ChosenFile> openFileDialog(const FileQuestion& question) override;
  std::optional<ChosenFile> saveFileDialog(const FileQuestion& question) override;
  Result<std::string> pdfOf(const PrintedPages& pages) override;
  void print(const PrintedPages& pages) override;
  void showHelp(const HelpRequest& request) override { helpRequests_.push_back(request); }
  void keepBeside(const KeptPages& pages) override { kept_ = pages; }
  bool activateProgram(const std::string&) override { return false; }
  void openDocument(const std::string& path, std::function<void()> failed) override {
    if (!onOpenDocument || !onOpenDocument(path)) failed();
  }
  [[noreturn]] void endProgram(int status) override;

 private:
  friend class HeadlessPeer;
  void zoomChanged() override;
  void waitForTimers(Window& window);

  Size screen_;
  std::vector<Window*> windows_;
  std::vector<Window*> modal_;
  std::vector<AnsweredBox> boxes_;
  std::vector<HelpRequest> helpRequests_;
  KeptPages kept_;
  ClipboardContent clipboard_;
  std::string lastTold_;
  int beeps_ = 0;
  bool ended_ = false;
};

}  // namespace tolmer
