#include "platform/web/web_desktop.h"

#include <algorithm>
#include <utility>

#include "base/file_io.h"
#include "platform/web/help_orders.h"
#include "platform/web/page_input.h"
#include "platform/web/printed_html.h"
#include "platform/web/web_screen.h"
#include "platform/window.h"

namespace tolmer {
namespace {

std::string folderAbove(const std::string& folder) { return folder.substr(0, folder.rfind('/')); }

std::string fileName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

void writeKinds(JsonWriter& json, const FileQuestion& question) {
  json.member("title", question.title);
  json.list("kinds", question.kinds, [&](const FileKind& kind) {
    json.beginObject();
    json.member("name", kind.name);
    json.list("extensions", kind.extensions);
    json.endObject();
  });
}

constexpr std::string_view nameOf(MessageIcon icon) {
  constexpr std::string_view names[] = {"none", "critical", "question", "exclamation",
                                        "information"};
  return names[static_cast<int>(icon)];
}

void writeChord(JsonWriter& json, const KeyChord& key) {
  json.beginObject();
  json.members("code", key.code, "shift", static_cast<int>(key.shift), "control",
               static_cast<int>(key.control), "alt", static_cast<int>(key.alt));
  json.endObject();
}

void writeBox(JsonWriter& json, const MessageBox& box) {
  const auto escape = answerToEscape(box);
  json.members("title", box.title.empty() ? std::string("Tolmer") : box.title, "text", box.text,
               "icon", nameOf(box.icon), "enter", static_cast<int>(answerToReturn(box)), "escape",
               escape ? static_cast<int>(*escape) : -1);
  json.list("buttons", answerButtons(box.buttons), [&](const AnswerButton& button) {
    json.beginObject();
    json.members("answer", static_cast<int>(button.answer), "caption", captionHtml(button.caption));
    json.endObject();
  });
}

}  // namespace

// Keeps the list of modal windows right when an exception leaves the loop.
class WebDesktop::Waiting {
 public:
  Waiting(std::vector<Window*>& windows, Window& window) : windows_(windows) {
    windows_.push_back(&window);
  }
  ~Waiting() { windows_.pop_back(); }
  Waiting(const Waiting&) = delete;
  Waiting& operator=(const Waiting&) = delete;

 private:
  std::vector<Window*>& windows_;
};

WebDesktop::WebDesktop(PageLine& line, const std::string& programFolder, std::string filesFolder)
    : line_(line),
      help_(std::make_unique<HelpOrders>(nodes_, programFolder + "/help")),
      ownFolder_(folderAbove(programFolder)),
      filesFolder_(std::move(filesFolder)) {
  nodes_.whenGone = [this](const Control& control) { mouse_.forget(control); };
  timers().clock = [this] {
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                 start_)
        .count();
  };
}

WebDesktop::~WebDesktop() = default;

std::vector<KeptVisit> WebDesktop::meet() {
  std::vector<KeptVisit> visits;
  for (;;) {
    const auto message = next(-1);
    if (!message) continue;
    ++seen_;
    if (message->kind() == "visit")
      visits.push_back({message->text(0), message->whole(1),
                        line_.borrow(message->text(2)).value_or(std::string())});
    if (message->kind() != "size") continue;
    take(*message);
    return visits;
  }
}

void WebDesktop::run() {
  for (;;) pump();
}

// --- the loop

void WebDesktop::flush() {
  for (Window* window : windows())
    if (window->style() == WindowStyle::frame) settleFrame(static_cast<FrameWindow&>(*window));
  settleFocus();
  const std::string orders = jsonOf([this](JsonWriter& json) {
    json.beginArray();
    nodes_.write(json);
    writeKeys(json);
    writeFocus(json);
    json.endArray();
  });
  line_.post("{\"seen\":" + std::to_string(seen_) + ",\"orders\":" + orders + "}");
}

std::optional<PageMessage> WebDesktop::next(double longest) {
  const auto text = line_.next(longest);
  if (!text) return std::nullopt;
  return PageMessage(*text);
}

void WebDesktop::pump(double longest) {
  if (waiting_.empty()) {
    // What is pending already goes first: the page is told once of all that comes of it.
    auto message = next(0);
    if (!message) {
      flush();
      double wait = longest;
      if (const auto due = timers().nextDue()) {
        const double left = std::max(static_cast<double>(*due - timers().clock()), 0.0);
        wait = longest < 0 ? left : std::min(longest, left);
      }
      message = next(wait);
    }
    if (message) waiting_.push_back(std::move(*message));
  }
  timers().advanceTo(timers().clock());
  if (waiting_.empty()) return;
  const PageMessage message = std::move(waiting_.front());
  waiting_.pop_front();
  ++seen_;
  take(message);
}

void WebDesktop::take(const PageMessage& message) {
  const std::string& kind = message.kind();
  if (kind == "answer" || kind == "chosen" || kind == "given-up") return takeAnswer(message);
  if (kind == "size")
    return screenIs({pixels(message.number(0)), pixels(message.number(1))},
                    pixels(message.number(2)));
  if (kind == "paste") {
    pasted_ = {.text = message.text(0), .html = message.text(1), .cells = message.text(2)};
    return;
  }
  if (kind == "drop" || kind == "address") return drop(message);
  if (kind.starts_with("help") || kind == "kept") return help_->take(message);
  PageInput(*this).take(message);
}

void WebDesktop::takeAnswer(const PageMessage& message) {
  if (const auto question = answers_.find(message.whole(0)); question != answers_.end())
    question->second = message;
}

PageMessage WebDesktop::ask(const char* question, const Write& members) {
  const int number = ++lastAsked_;
  answers_.emplace(number, std::nullopt);
  nodes_.order(question, [members, number](JsonWriter& json) {
    json.member("ask", number);
    members(json);
  });
  while (!answers_.at(number)) pump();
  PageMessage answer = std::move(*answers_.at(number));
  answers_.erase(number);
  return answer;
}

// The work goes on meanwhile: what the user does before the answer is there waits.
std::optional<Error> WebDesktop::keepVisit(const std::string& name, std::string_view bytes) {
  const int number = ++lastAsked_;
  nodes_.order("visit", "ask", number, "visit", name, "address",
               bytes.empty() ? std::string() : line_.lend(bytes));
  flush();
  for (;;) {
    auto message = next(-1);
    if (!message) continue;
    if (message->kind() == "answer" && message->whole(0) == number) {
      waiting_.emplace_back("");  // it is counted in its turn
      if (message->flag(1)) return std::nullopt;
      return Error{"", message->text(2)};
    }
    waiting_.push_back(std::move(*message));
  }
}

void WebDesktop::modalLoop(Window& window) {
  const Waiting waiting(modal_, window);
  while (window.visible()) pump();
}

void WebDesktop::doEvents() {
  flush();
  timers().advanceTo(timers().clock());
  for (;;) {
    if (waiting_.empty()) {
      auto message = next(0);
      if (!message) return flush();
      waiting_.push_back(std::move(*message));
    }
    pump(0);
  }
}

void WebDesktop::present(Window& window) {
  nodes_.follow(window);
  if (!window.frame()) bringToFront(window);
  if (auto* frame = dynamic_cast<FrameWindow*>(&window)) {
    frame->reportState(WindowState::maximised);
    for (Window* child : frame->childWindows())
      if (child->visible()) nodes_.follow(*child);
    settleFrame(*frame);
  }
}

// It fills the page, whatever its model says: of any other size it would cut its quadrants.
void WebDesktop::settleFrame(FrameWindow& frame) {
  const Twips menu = frame.menuBar() ? webMenuBar : 0;
  frame.reportInnerSize({screen_.width, screen_.height - menu - frame.footHeight()});
}

void WebDesktop::screenIs(Size screen, Twips bar) {
  bar_ = bar;
  if (screen_ == screen) return;
  screen_ = screen;
  for (Window* window : nodes_.shownWindows()) {
    if (window->style() == WindowStyle::frame) present(*window);
    window->reportScreen();
  }
  nodes_.touchAll(Change::place);
}

// --- the keyboard

Window* WebDesktop::inputWindow() const {
  if (!modal_.empty() && modal_.back()->visible()) return modal_.back();
  const auto shown = nodes_.shownWindows();
  auto front = std::find(shown.rbegin(), shown.rend(), inFront_);
  if (front == shown.rend())
    front = std::find_if(shown.rbegin(), shown.rend(),
                         [](const Window* window) { return !window->frame(); });
  if (front == shown.rend()) return nullptr;
  auto* frame = dynamic_cast<FrameWindow*>(*front);
  return frame && !frame->focus() && frame->activeChild() ? frame->activeChild() : *front;
}

void WebDesktop::bringToFront(const Window& window) {
  inFront_ = window.frame() ? window.frame() : &window;
}

Control* WebDesktop::focus() const {
  const Window* window = inputWindow();
  return window ? window->focus() : nullptr;
}

// A window that never had the focus gives it to the first control that the Tab key reaches.
void WebDesktop::settleFocus() {
  Window* window = inputWindow();
  if (window && window->visible() && !window->focus()) window->moveFocus();
}

void WebDesktop::writeFocus(JsonWriter& json) {
  Control* control = focus();
  const int id = NodePeer::idOf(control);
  auto* node = control ? static_cast<NodePeer*>(control->peer()) : nullptr;
  const bool marks = node && std::exchange(node->marksAll, false);
  if (std::exchange(knownFocus_, id) == id && !marks) return;
  writeOrder(json, "focus", [&] { json.members("id", id, "marks", marks); });
}

// Those that mean the same everywhere are the browser's own here.
void WebDesktop::writeKeys(JsonWriter& json) {
  const Window* window = inputWindow();
  const Window* frame = window ? window->frame() : nullptr;
  std::vector<const TakenKey*> taken;
  for (const Control* from :
       {static_cast<const Control*>(focus()), static_cast<const Control*>(window),
        static_cast<const Control*>(frame)})
    if (from)
      for (const TakenKey& key : from->takenKeys())
        if (!key.when || key.when()) taken.push_back(&key);
  const std::string keys = jsonOf([&](JsonWriter& list) {
    list.beginArray();
    for (const TakenKey* key : taken) writeChord(list, key->key);
    list.endArray();
  });
  if (std::exchange(knownKeys_, keys) == keys) return;
  writeOrder(json, "keys", [&] {
    json.key("keys");
    json.token(keys);
  });
}

// --- small orders

Answer WebDesktop::messageBox(const MessageBox& box) {
  const PageMessage answer = ask("box", [box](JsonWriter& json) { writeBox(json, box); });
  for (const AnswerButton& button : answerButtons(box.buttons))
    if (static_cast<int>(button.answer) == answer.whole(1)) return button.answer;
  return answerToEscape(box).value_or(answerButtons(box.buttons).back().answer);
}

void WebDesktop::popupMenu(MenuItem& menu, Window& window) {
  nodes_.order("popup", [this, &menu, id = NodePeer::idOf(&window)](JsonWriter& json) {
    json.member("window", id);
    writeEntries(json, nodes_, menu);
  });
}

void WebDesktop::tellAt(Control& control, const std::string& words) {
  nodes_.order("tell", "id", NodePeer::idOf(&control), "words", words);
}

void WebDesktop::beep() {
  nodes_.order("beep", [](JsonWriter&) {});
}

void WebDesktop::setBusyPointer(bool busy) {
  if (std::exchange(busy_, busy) != busy) nodes_.order("busy", "on", busy);
}

void WebDesktop::setClipboard(const ClipboardContent& content) {
  pasted_ = {.text = content.text, .html = content.html, .cells = content.cells};
  nodes_.order("clipboard", "text", content.text, "html", content.html, "svg", content.svg, "cells",
               content.cells);
}

void WebDesktop::openDocument(const std::string& path, std::function<void()> failed) {
  if (!path.starts_with(ownFolder_ + '/') || !isRegularFile(path)) return failed();
  nodes_.order("document", "address", path.substr(ownFolder_.rfind('/') + 1));
}

void WebDesktop::showHelp(const HelpRequest& request) { help_->answer(request); }

void WebDesktop::keepBeside(const KeptPages& pages) { help_->keep(pages); }

// --- files

std::string WebDesktop::putFile(const std::string& name, const std::string& address) {
  const std::string path = filesFolder_ + "/" + fileName(name);
  const auto bytes = line_.borrow(address);
  return !bytes || writeFileAtomically(path, *bytes) ? std::string() : path;
}

std::optional<ChosenFile> WebDesktop::openFileDialog(const FileQuestion& question) {
  const PageMessage answer =
      ask("open", [question](JsonWriter& json) { writeKinds(json, question); });
  const std::string path = putFile(answer.text(2), answer.text(3));
  if (answer.kind() != "chosen" || path.empty()) return std::nullopt;
  return ChosenFile{path, kindOf(question, path, answer.count(1))};
}

std::optional<ChosenFile> WebDesktop::saveFileDialog(const FileQuestion& question) {
  const PageMessage answer = ask("save", [question](JsonWriter& json) {
    writeKinds(json, question);
    json.member("name", question.name);
  });
  const std::size_t kind = std::min(answer.count(1), question.kinds.size() - 1);
  const std::string name = fileName(answer.text(2));
  if (answer.kind() != "chosen" || name.empty()) return std::nullopt;
  const std::string path = withExtension(filesFolder_ + "/" + name, question.kinds[kind]);
  return ChosenFile{path, kindOf(question, path, kind)};
}

// The file goes to the user as a download; a copy stays, so that it can be saved again under its
// name.
Saving WebDesktop::saveFile(const FileToSave& file) {
  FileToSave copy = file;
  std::string written;
  copy.bytes = [&](const ChosenFile& chosen) {
    auto bytes = file.bytes(chosen);
    if (bytes) written = *bytes;
    return bytes;
  };
  const Saving saving = Desktop::saveFile(copy);
  if (saving.end == Saving::End::saved) handOver(fileName(saving.path), written);
  return saving;
}

void WebDesktop::handOver(const std::string& name, std::string_view bytes) {
  nodes_.order("download", "name", name, "address", line_.lend(bytes));
}

Result<std::string> WebDesktop::pdfOf(const PrintedPages&) {
  return Error{"", "In a browser choose Print, and there to save as PDF."};
}

void WebDesktop::print(const PrintedPages& pages) {
  nodes_.order("print", "title", pages.title, "html", printedHtml(pages));
}

void WebDesktop::drop(const PageMessage& message) {
  Window* taker = takerOfDrops(modalWindow(), windows());
  if (!taker) return;
  DroppedItems items;
  if (message.kind() == "address") items.addresses.push_back(message.text(0));
  for (std::size_t i = 1; i + 1 < message.size() && message.kind() == "drop"; i += 2) {
    const std::string path = putFile(message.text(i), message.text(i + 1));
    if (!path.empty()) items.files.push_back(path);
  }
  raise(taker->Dropped, items);
}

}  // namespace tolmer
