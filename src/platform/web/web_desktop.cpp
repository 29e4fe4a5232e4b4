#include "platform/web/web_desktop.h"

#include <algorithm>
#include <utility>

#include "base/file_io.h"
#include "platform/web/help_orders.h"
#include "platform/web/message_window.h"
#include "platform/web/page_input.h"
#include "platform/web/printed_html.h"
#include "platform/web/web_screen.h"
#include "platform/window.h"

namespace tolmer {
namespace {

NodePeer& peerOf(const Control& control) { return static_cast<NodePeer&>(*control.peer()); }

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

// In a text, `leavesText` leaves it the keys that edit text.
void writeChord(JsonWriter& json, const KeyChord& key, bool leavesText) {
  json.beginObject();
  json.members("code", key.code, "shift", static_cast<int>(key.shift), "control",
               static_cast<int>(key.control), "alt", static_cast<int>(key.alt), "leavesText",
               leavesText);
  json.endObject();
}

void writeShortcuts(JsonWriter& json, const MenuItem& menu) {
  const auto held = [](bool is) { return is ? Held::yes : Held::no; };
  for (const MenuItem* item : menu.items()) {
    const KeyPress& key = item->shortcut();
    if (key.code != 0 && item->enabled())
      writeChord(json, {key.code, held(key.shift), held(key.control), held(key.alt)}, true);
    writeShortcuts(json, *item);
  }
}

void writeTaken(JsonWriter& json, const Control& from) {
  for (const TakenKey& taken : from.takenKeys())
    if (!taken.when || taken.when()) writeChord(json, taken.key, false);
}

// An order that the page hears only where it reads otherwise than the last one of its kind.
template <class Members>
void writeNews(JsonWriter& json, std::string& known, const char* what, Members members) {
  const std::string news =
      jsonOf([&](JsonWriter& order) { writeOrder(order, what, [&] { members(order); }); });
  if (std::exchange(known, news) != news) json.token(news);
}

}  // namespace

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
    const PageMessage message = next();
    if (message.kind() == "visit")
      visits.push_back({message.text(0), message.whole(1),
                        line_.borrow(message.text(2)).value_or(std::string())});
    if (message.kind() != "size") continue;
    take(message);
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
    writeStack(json);
    writeKeys(json);
    writeFocus(json);
    json.endArray();
  });
  line_.post("{\"seen\":" + std::to_string(seen_) + ",\"orders\":" + orders + "}");
}

// Whether there is one, after that many milliseconds; less than none: however long it takes.
bool WebDesktop::fetch(double longest) {
  if (const auto text = line_.next(longest)) waiting_.emplace_back(*text);
  return !waiting_.empty();
}

// Waits for one; in its turn it is counted as seen.
PageMessage WebDesktop::next() {
  while (waiting_.empty()) fetch(-1);
  PageMessage message = std::move(waiting_.front());
  waiting_.pop_front();
  ++seen_;
  return message;
}

void WebDesktop::pump(double longest) {
  // What is pending already goes first: the page is told once of all that comes of it.
  if (waiting_.empty() && !fetch(0)) {
    flush();
    double wait = longest;
    if (const auto due = timers().nextDue()) {
      const double left = std::max(static_cast<double>(*due - timers().clock()), 0.0);
      wait = longest < 0 ? left : std::min(longest, left);
    }
    fetch(wait);
  }
  timers().advanceTo(timers().clock());
  if (!waiting_.empty()) take(next());
}

void WebDesktop::take(const PageMessage& message) {
  const std::string& kind = message.kind();
  if (kind == "chosen" || kind == "given-up") {
    chosen_ = message;
    return;
  }
  if (kind == "size")
    return screenIs({pixels(message.number(0)), pixels(message.number(1))},
                    pixels(message.number(2)));
  if (kind == "answer") return;  // who asked has it
  if (kind == "paste") {
    pasted_ = {.text = message.text(0), .html = message.text(1), .cells = message.text(2)};
    return;
  }
  if (kind == "drop" || kind == "address") return drop(message);
  if (kind.starts_with("help") || kind == "kept") return help_->take(message);
  PageInput(*this).take(message);
}

PageMessage WebDesktop::ask(const char* question, const Write& members) {
  nodes_.order(question, [members, number = ++lastAsked_](JsonWriter& json) {
    json.member("ask", number);
    members(json);
  });
  while (!chosen_) pump();
  return *std::exchange(chosen_, std::nullopt);
}

// The work goes on meanwhile: what the user does before the answer is there waits.
std::optional<Error> WebDesktop::keepVisit(const std::string& name, std::string_view bytes) {
  const int number = ++lastAsked_;
  nodes_.order("visit", "ask", number, "visit", name, "address",
               bytes.empty() ? std::string() : line_.lend(bytes));
  flush();
  for (;;) {
    const auto text = line_.next(-1);
    if (!text) continue;
    const PageMessage& message = waiting_.emplace_back(*text);
    if (message.kind() != "answer" || message.whole(0) != number) continue;
    if (message.flag(1)) return std::nullopt;
    return Error{"", message.text(2)};
  }
}

void WebDesktop::modalLoop(Window& window) {
  while (window.visible()) pump();
}

void WebDesktop::doEvents() {
  flush();
  timers().advanceTo(timers().clock());
  while (!waiting_.empty() || fetch(0)) pump(0);
  flush();
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

// --- who has the keyboard

// The windows that are no children, in the order in which they came to the front.
std::vector<Window*> WebDesktop::stack() const {
  std::vector<Window*> stack = windows();
  std::erase_if(stack, [](const Window* window) { return window->frame(); });
  std::ranges::sort(stack, {}, [](const Window* window) { return peerOf(*window).inFront; });
  return stack;
}

Window* WebDesktop::modalWindow() const {
  const auto all = stack();
  const auto modal = std::find_if(all.rbegin(), all.rend(), std::mem_fn(&Window::isModal));
  return modal == all.rend() ? nullptr : *modal;
}

Window* WebDesktop::inputWindow() const {
  if (Window* modal = modalWindow()) return modal;
  const auto all = stack();
  if (all.empty()) return nullptr;
  auto* frame = dynamic_cast<FrameWindow*>(all.back());
  return frame && !frame->focus() && frame->activeChild() ? frame->activeChild() : all.back();
}

// Of a child it is the frame's.
MenuItem* WebDesktop::menuBar() const {
  const Window* window = inputWindow();
  if (window && window->frame() && !window->menuBar()) window = window->frame();
  return window ? window->menuBar() : nullptr;
}

void WebDesktop::bringToFront(const Window& window) {
  peerOf(window.frame() ? *window.frame() : window).inFront = ++lastInFront_;
}

void WebDesktop::activate(Window& window) {
  bringToFront(window);
  if (window.frame()) window.frame()->activate(window);
}

// The frame is the ground of all others.
void WebDesktop::writeStack(JsonWriter& json) {
  auto shown = stack();
  const auto isFrame = [](const Window* window) { return window->style() == WindowStyle::frame; };
  std::stable_partition(shown.begin(), shown.end(), isFrame);
  const auto lowest = std::find(shown.begin(), shown.end(), modalWindow());
  writeNews(json, knownStack_, "stack", [&](JsonWriter& order) {
    order.list("windows", shown,
               [&](const Window* window) { order.value(NodePeer::idOf(window)); });
    order.members("open", lowest == shown.end() ? 0 : lowest - shown.begin(), "active",
                  NodePeer::idOf(inputWindow()));
  });
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
  const bool marks = control && std::exchange(peerOf(*control).marksAll, false);
  if (std::exchange(knownFocus_, id) == id && !marks) return;
  writeOrder(json, "focus", [&] { json.members("id", id, "marks", marks); });
}

// Those that mean the same everywhere are the browser's own here.
void WebDesktop::writeKeys(JsonWriter& json) {
  const Window* window = inputWindow();
  const Window* frame = window ? window->frame() : nullptr;
  const Control* focused = focus();
  writeNews(json, knownKeys_, "keys", [&](JsonWriter& order) {
    order.key("keys");
    order.beginArray();
    for (const Control* from : std::initializer_list<const Control*>{focused, window, frame})
      if (from) writeTaken(order, *from);
    if (const MenuItem* bar = menuBar()) writeShortcuts(order, *bar);
    order.endArray();
  });
}

// --- small orders

Answer WebDesktop::messageBox(const MessageBox& box) {
  MessageWindow window(*this, box);
  window.showModal();
  return window.answer();
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
