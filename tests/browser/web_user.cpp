#include "browser/web_user.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

#include "platform/text_metrics.h"
#include "support/tree.h"

extern char** environ;

namespace tolmer::test {
namespace {

constexpr double patience = 5000;  // milliseconds until a loop counts as forgotten

void writeAll(int to, std::string_view text) {
  while (!text.empty()) {
    const auto count = ::write(to, text.data(), text.size());
    if (count <= 0) throw std::runtime_error("the browser's driver is gone");
    text.remove_prefix(static_cast<std::size_t>(count));
  }
}

// "LENGTH\n" and so many bytes.
std::string readFrame(std::FILE* from) {
  unsigned long length = 0;
  if (std::fscanf(from, "%lu", &length) != 1 || std::fgetc(from) != '\n')
    throw std::runtime_error("the browser's driver is gone");
  std::string text(length, '\0');
  if (std::fread(text.data(), 1, length, from) != length)
    throw std::runtime_error("the browser's driver is gone");
  return text;
}

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : "\x1f") + word;
  return text;
}

}  // namespace

BrowserPage::BrowserPage(const std::string& browser) {
  std::array<int, 2> down{};
  std::array<int, 2> up{};
  if (pipe(down.data()) != 0 || pipe(up.data()) != 0) throw std::runtime_error("no pipes");
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, down[0], STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, up[1], STDOUT_FILENO);
  for (const int end : {down[0], down[1], up[0], up[1]})
    posix_spawn_file_actions_addclose(&actions, end);
  std::string node = "node";
  std::string driver = TOLMER_BROWSER_DRIVER;
  std::string name = browser;
  std::array<char*, 4> words{node.data(), driver.data(), name.data(), nullptr};
  const int failed = posix_spawnp(&process_, "node", &actions, nullptr, words.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(down[0]);
  close(up[1]);
  toDriver_ = down[1];
  fromDriver_ = fdopen(up[0], "r");
  if (failed != 0) throw std::runtime_error("node does not start");
  readFrame(fromDriver_);  // it is ready
}

BrowserPage::~BrowserPage() {
  close(toDriver_);
  std::fclose(fromDriver_);
  waitpid(process_, nullptr, 0);
}

// Several messages are parted by U+001E.
void BrowserPage::request(const std::vector<std::string>& words) {
  const std::string text = joined(words);
  writeAll(toDriver_, std::to_string(text.size()) + '\n' + text);
  std::string answer = readFrame(fromDriver_);
  if (answer.starts_with('!')) throw std::runtime_error(answer.substr(1));
  for (std::size_t at = 0; at < answer.size();) {
    const auto end = std::min(answer.find('\x1e', at), answer.size());
    told_.push_back(answer.substr(at, end - at));
    at = end + 1;
  }
}

std::optional<std::string> BrowserPage::next(double milliseconds) {
  if (told_.empty() && milliseconds != 0 && !whenWaiting.empty()) {
    const auto act = std::move(whenWaiting.back());
    whenWaiting.pop_back();
    act();
    return std::nullopt;
  }
  if (told_.empty() && milliseconds != 0)
    request(
        {"wait", std::to_string(milliseconds < 0 ? patience : std::min(milliseconds, patience))});
  if (told_.empty() && milliseconds < 0)
    throw std::logic_error("a window or box is still open and nothing closes it");
  if (told_.empty()) return std::nullopt;
  std::string message = std::move(told_.front());
  told_.pop_front();
  return message;
}

void BrowserPage::startAnew() {
  told_.clear();
  whenWaiting.clear();
  request({"reload"});
}

ScriptedWebDesktop::ScriptedWebDesktop(BrowserPage& page)
    : WebDesktop(page, TOLMER_PROGRAM_FOLDER, testing::TempDir()), page_(page) {
  page_.startAnew();
  timers().clock = [this, real = timers().clock] { return real() + ahead_; };
  meet();
}

void ScriptedWebDesktop::modalLoop(Window& window) {
  if (window.name() == "messagebox") return WebDesktop::modalLoop(window);
  const std::size_t before = page_.whenWaiting.size();
  if (onModal) page_.whenWaiting.emplace_back([this, &window] { onModal(window); });
  WebDesktop::modalLoop(window);
  // Timers that were due at once may have closed it before anybody could act.
  if (page_.whenWaiting.size() == before) return;
  const auto act = std::move(page_.whenWaiting.back());
  page_.whenWaiting.pop_back();
  act();
}

Answer ScriptedWebDesktop::messageBox(const MessageBox& box) {
  page_.whenWaiting.emplace_back([this, box] {
    const Answer answer =
        onMessageBox ? onMessageBox(box) : answerButtons(box.buttons).front().answer;
    for (const AnswerButton& button : answerButtons(box.buttons))
      if (button.answer == answer)
        page_.request({"answer", box.text, withoutMnemonic(button.caption)});
  });
  return WebDesktop::messageBox(box);
}

void ScriptedWebDesktop::advance(int milliseconds) {
  ahead_ += milliseconds;
  doEvents();
}

void ScriptedWebDesktop::does(const std::vector<std::string>& words) {
  doEvents();
  page_.request(words);
  doEvents();
}

void WebUser::act(const char* what, const Control& control, std::vector<std::string> more) {
  more.insert(more.begin(), {what, std::to_string(NodePeer::idOf(&control))});
  desktop_.does(more);
}

void WebUser::doMenu(Window& window, const std::vector<MenuItem*>& path) {
  for (const MenuItem* item : path) act("entry", window, {withoutMnemonic(item->caption())});
}

void WebUser::doKey(Window& window, const KeyPress& key) {
  act("key", window,
      {std::to_string(key.code), key.shift ? "1" : "0", key.control ? "1" : "0",
       key.alt ? "1" : "0"});
}

void WebUser::doState(Window& window, WindowState state) {
  if (window.state() != state) act("maximise", window);
}

}  // namespace tolmer::test
