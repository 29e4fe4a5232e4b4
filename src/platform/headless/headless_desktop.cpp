#include "platform/headless/headless_desktop.h"

#include <memory>
#include <stdexcept>

#include "platform/window.h"

namespace tolmer {

// Takes a window off the desktop's list when it is unloaded.
class HeadlessPeer : public Peer {
 public:
  HeadlessPeer(HeadlessDesktop& desktop, Window& window) : desktop_(desktop), window_(window) {
    desktop_.windows_.push_back(&window_);
  }
  ~HeadlessPeer() override { std::erase(desktop_.windows_, &window_); }
  void changed(Change) override {}

 private:
  HeadlessDesktop& desktop_;
  Window& window_;
};

namespace {

// A menu bar takes this much of the frame, as on the screen.
constexpr Twips menuBarHeight = pixels(22);

// Keeps the list of modal windows right when an exception leaves the loop.
class ModalEntry {
 public:
  ModalEntry(std::vector<Window*>& windows, Window& window) : windows_(windows) {
    windows_.push_back(&window);
  }
  ~ModalEntry() { windows_.pop_back(); }
  ModalEntry(const ModalEntry&) = delete;
  ModalEntry& operator=(const ModalEntry&) = delete;

 private:
  std::vector<Window*>& windows_;
};

}  // namespace

Answer HeadlessDesktop::messageBox(const MessageBox& box) {
  const Answer answer =
      onMessageBox ? onMessageBox(box) : answerButtons(box.buttons).front().answer;
  boxes_.push_back({box, answer});
  return answer;
}

void HeadlessDesktop::present(Window& window) {
  if (!window.peer()) window.setPeer(std::make_unique<HeadlessPeer>(*this, window));
  const auto* frame = dynamic_cast<const FrameWindow*>(&window);
  if (!frame) return;
  const Size screen = screenSize();
  window.reportInnerSize({screen.width, screen.height - menuBarHeight - frame->footHeight()});
}

void HeadlessDesktop::setScreen(Size screen) {
  screen_ = screen;
  zoomChanged();
}

void HeadlessDesktop::zoomChanged() {
  for (Window* window : std::vector<Window*>(windows_)) {
    present(*window);
    window->reportScreen();
  }
}

void HeadlessDesktop::modalLoop(Window& window) {
  const ModalEntry entry(modal_, window);
  if (onModal) onModal(window);
  waitForTimers(window);
  if (window.visible())
    throw std::logic_error("modal window " + window.name() +
                           " is still open and nothing closes it");
}

void HeadlessDesktop::waitForTimers(Window& window) {
  constexpr int longestWait = 60000;
  const auto limit = timers().now() + longestWait;
  while (window.visible()) {
    const auto due = timers().nextDue();
    if (!due || *due > limit) return;
    timers().advanceTo(*due);
  }
}

void HeadlessDesktop::popupMenu(MenuItem& menu, Window& window) {
  if (onPopupMenu) onPopupMenu(menu, window);
}

std::optional<ChosenFile> HeadlessDesktop::openFileDialog(const FileQuestion& question) {
  if (!onOpenFile) throw std::logic_error("unexpected file dialog \"" + question.title + "\"");
  const auto path = onOpenFile(question);
  if (!path) return std::nullopt;
  return ChosenFile{*path, kindOf(question, *path, 0)};
}

std::optional<ChosenFile> HeadlessDesktop::saveFileDialog(const FileQuestion& question) {
  if (!onSaveFile) throw std::logic_error("unexpected file dialog \"" + question.title + "\"");
  const auto path = onSaveFile(question);
  if (!path) return std::nullopt;
  return ChosenFile{withExtension(*path, question.kinds.at(0)), kindOf(question, *path, 0)};
}

Result<std::string> HeadlessDesktop::pdfOf(const PrintedPages& pages) {
  return onPdf ? onPdf(pages) : Result<std::string>("%PDF-1.4\n");
}

void HeadlessDesktop::print(const PrintedPages& pages) {
  if (!onPrint) throw std::logic_error("unexpected printing");
  onPrint(pages);
}

void HeadlessDesktop::endProgram(int status) {
  ended_ = true;
  throw ProgramEnded{status};
}

}  // namespace tolmer
