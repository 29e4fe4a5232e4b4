// The desktop in a browser's page.
#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop.h"
#include "platform/user_input.h"
#include "platform/web/nodes.h"
#include "platform/web/page_line.h"

namespace tolmer {

class FrameWindow;
class HelpOrders;

// Work of earlier visits that the page has found in its storage.
struct KeptVisit {
  std::string name;
  std::int64_t written = 0;  // seconds since 1970
  std::string bytes;
};

// All waiting goes through the line to the page: before it blocks, what has changed goes out in one
// batch. What a message raises may wait in turn, and what it throws leaves all of these loops.
class WebDesktop : public Desktop {
 public:
  // The folder above the program's is one of the page's, too; files that come from the user are put
  // into the last one.
  WebDesktop(PageLine& line, const std::string& programFolder, std::string filesFolder);
  ~WebDesktop() override;
  WebDesktop(const WebDesktop&) = delete;
  WebDesktop& operator=(const WebDesktop&) = delete;

  // Waits until the page has told how large it is, and which work it has found.
  std::vector<KeptVisit> meet();
  // Handles messages until the program is ended by what one of them raises.
  [[noreturn]] void run();
  // The window that takes input while it waits for its end; null outside modal loops.
  Window* modalWindow() const;
  std::vector<Window*> windows() const { return nodes_.shownWindows(); }

  // Work of a visit into the page's storage, without bytes out of it; the reason where that fails.
  std::optional<Error> keepVisit(const std::string& name, std::string_view bytes);
  // The user gets a file with them.
  void handOver(const std::string& name, std::string_view bytes);

  Answer messageBox(const MessageBox& box) override;
  void present(Window& window) override;
  void modalLoop(Window& window) override;
  void doEvents() override;
  Size screenSize() const override { return screen_; }
  Twips scrollBarThickness() const override { return bar_; }
  void popupMenu(MenuItem& menu, Window& window) override;
  void tellAt(Control& control, const std::string& words) override;
  void beep() override;
  void setBusyPointer(bool busy) override;
  void setClipboard(const ClipboardContent& content) override;
  ClipboardContent pasted() const override { return pasted_; }
  std::optional<ChosenFile> openFileDialog(const FileQuestion& question) override;
  std::optional<ChosenFile> saveFileDialog(const FileQuestion& question) override;
  Saving saveFile(const FileToSave& file) override;
  Result<std::string> pdfOf(const PrintedPages& pages) override;
  void print(const PrintedPages& pages) override;
  void showHelp(const HelpRequest& request) override;
  void keepBeside(const KeptPages& pages) override;
  bool activateProgram(const std::string&) override { return false; }
  void openDocument(const std::string& path, std::function<void()> failed) override;
  [[noreturn]] void endProgram(int status) override { throw ProgramEnded{status}; }

 private:
  friend class PageInput;
  using Write = std::function<void(JsonWriter&)>;

  void flush();
  // The next message, or a timer's tick, and what comes of it.
  void pump(double longest = -1);
  bool fetch(double longest);
  PageMessage next();
  void take(const PageMessage& message);
  // Puts a question for a file, and waits for the answer while all else goes on.
  PageMessage ask(const char* question, const Write& members);
  void screenIs(Size screen, Twips bar);
  void drop(const PageMessage& message);
  // The path of a file of that name with what lies at the address; empty where that fails.
  std::string putFile(const std::string& name, const std::string& address);

  void settleFrame(FrameWindow& frame);
  void settleFocus();
  std::vector<Window*> stack() const;
  Window* inputWindow() const;
  void bringToFront(const Window& window);
  void activate(Window& window);
  Control* focus() const;
  MenuItem* menuBar() const;
  void writeStack(JsonWriter& json);
  void writeFocus(JsonWriter& json);
  void writeKeys(JsonWriter& json);

  PageLine& line_;
  Nodes nodes_;
  MouseRoute mouse_;
  std::unique_ptr<HelpOrders> help_;
  std::string ownFolder_;  // which the page has below its address, too, under the same name
  std::string filesFolder_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  Size screen_{pixels(1280), pixels(800)};
  Twips bar_ = pixels(14);
  std::deque<PageMessage> waiting_;
  std::optional<PageMessage> chosen_;
  ClipboardContent pasted_;
  std::string knownStack_;
  std::string knownKeys_;
  int lastInFront_ = 0;
  int knownFocus_ = 0;
  int seen_ = 0;
  int lastAsked_ = 0;
  bool busy_ = false;
};

}  // namespace tolmer
