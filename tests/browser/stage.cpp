#include "mirrors/stage.h"

#include <sstream>

#include "browser/web_user.h"

namespace tolmer::test {
namespace {

const char* nameOf(StageKind kind) { return kind == StageKind::firefox ? "firefox" : "chromium"; }

// A browser takes seconds to start: one of each serves all tests.
BrowserPage& pageIn(StageKind kind) {
  static std::map<StageKind, std::unique_ptr<BrowserPage>> pages;
  auto& page = pages[kind];
  if (!page) page = std::make_unique<BrowserPage>(nameOf(kind));
  return *page;
}

class WebStage : public Stage {
 public:
  explicit WebStage(StageKind kind) : desktop_(pageIn(kind)) {}
  Desktop& desktop() override { return desktop_; }
  User& user() override { return user_; }
  Script& script() override { return script_; }
  void advance(int milliseconds) override { desktop_.advance(milliseconds); }

 private:
  ScriptedWebDesktop desktop_;
  WebUser user_{desktop_};
  Script script_{desktop_.onModal, desktop_.onMessageBox};
};

}  // namespace

std::vector<StageKind> stageKinds() { return {StageKind::chromium, StageKind::firefox}; }

std::unique_ptr<Stage> makeStage(StageKind kind) { return std::make_unique<WebStage>(kind); }

}  // namespace tolmer::test
