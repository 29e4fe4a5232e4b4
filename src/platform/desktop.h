// The one door for what models cannot do: screen, modal loops, clipboard, clock, help, other
// programs, the end of the program. It is handed to the windows; there is no global one.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/message_box.h"
#include "platform/file_question.h"
#include "platform/geometry.h"
#include "platform/input.h"
#include "platform/timer.h"
#include "platform/zoom.h"

namespace tolmer {

class Control;
class MenuItem;
class Window;
struct PrintedPages;

// One content in several forms; empty forms are left out.
struct ClipboardContent {
  std::string text{};   // cells divided by tabs, rows by line feeds
  std::string html{};   // the same as a table for word processors
  std::string svg{};    // a picture; a front end adds a bitmap of it
  std::string cells{};  // cells in the program's own form, which no other program sees
};

struct HelpRequest {
  enum class Kind { contents, topic, search, usingHelp, quit };
  std::string file;  // help file without folder or ending, in lower case
  Kind kind = Kind::topic;
  long context = 0;     // for a topic
  std::string entry{};  // of its page, to be in sight; empty for the beginning
};

// What endProgram throws through the models; front ends catch it where they called in.
struct ProgramEnded {
  int status = 0;
};

// Pages to read in beside the windows, as HTML of headings, paragraphs, lists and pictures.
struct KeptPages {
  struct Page {
    std::string title;
    std::string html;  // a link "page:2" leads to the third of them
  };
  std::vector<Page> pages{};
  std::size_t shown = 0;  // a place in it called "chosen" is the one to be in sight
  std::vector<std::string> pictureFolders{};  // where the pictures lie, which have plain names
};

class Desktop : public MessagePort, public Zoom {
 public:
  // Builds the window's mirror where there is none and brings it to the screen.
  virtual void present(Window& window) = 0;
  // Handles events until the window is hidden.
  virtual void modalLoop(Window& window) = 0;
  // Handles what is pending and returns.
  virtual void doEvents() = 0;

  virtual Size screenSize() const = 0;  // twips, less what the system keeps for itself
  virtual Twips scrollBarThickness() const = 0;
  // At the mouse where that is over the window, else (a key asked for it) in the window's middle.
  virtual void popupMenu(MenuItem& menu, Window& window) = 0;
  // Words beside a control that has no box to answer: they go by themselves. Empty: at once.
  virtual void tellAt(Control& control, const std::string& words) = 0;
  virtual void beep() = 0;
  virtual void setBusyPointer(bool busy) = 0;
  virtual void setClipboard(const ClipboardContent& content) = 0;
  // What a paste brings now: text, the same as HTML where another program gave it, and cells where
  // nothing else was copied since in whatever program. A front end that sees the clipboard only as
  // the user pastes keeps what came then and presses the key for it.
  virtual ClipboardContent pasted() const = 0;

  // Nothing on cancel. A name to save that has no extension gets that of its kind, and a file that
  // is there already is replaced only after a question.
  virtual std::optional<ChosenFile> openFileDialog(const FileQuestion& question) = 0;
  virtual std::optional<ChosenFile> saveFileDialog(const FileQuestion& question) = 0;

  // The way of all files out of the models: asks for a name, unless it is known, has the bytes made
  // and writes them whole or not at all. A file that may only be read is refused. A front end that
  // reaches no files of the user's hands the bytes over in its own way.
  virtual Saving saveFile(const FileToSave& file);

  // The bytes of a PDF: with text as text, title, author and bookmarks.
  virtual Result<std::string> pdfOf(const PrintedPages& pages) = 0;
  // Asks for the printer, or for a file in place of one. What fails is told in a box.
  virtual void print(const PrintedPages& pages) = 0;

  virtual void showHelp(const HelpRequest& request) = 0;
  // In a window that stays until it is closed, also while another window waits for its answer.
  virtual void keepBeside(const KeptPages& pages) = 0;
  // False where no such window stands.
  virtual bool activateProgram(const std::string& title) = 0;
  // Where no program opens it, calls `failed`: at once, or as soon as the host has found that out.
  virtual void openDocument(const std::string& path, std::function<void()> failed) = 0;

  // Throws ProgramEnded.
  [[noreturn]] virtual void endProgram(int status) = 0;

  TimerQueue& timers() { return timers_; }

 protected:
  // Says so in a box.
  Saving failed(const FileToSave& file, const Error& reason);

 private:
  TimerQueue timers_;
};

}  // namespace tolmer
