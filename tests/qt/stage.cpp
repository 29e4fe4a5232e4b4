#include "mirrors/stage.h"

#include "support/headless_user.h"
#include "support/qt_user.h"

namespace tolmer::test {
namespace {

template <class SomeDesktop, class SomeUser>
class StageOf : public Stage {
 public:
  Desktop& desktop() override { return desktop_; }
  User& user() override { return user_; }
  Script& script() override { return script_; }
  void advance(int milliseconds) override { desktop_.advance(milliseconds); }

 private:
  SomeDesktop desktop_;
  SomeUser user_{desktop_};
  Script script_{desktop_.onModal, desktop_.onMessageBox};
};

}  // namespace

std::vector<StageKind> stageKinds() { return {StageKind::headless, StageKind::toolkit}; }

std::unique_ptr<Stage> makeStage(StageKind kind) {
  if (kind == StageKind::headless)
    return std::make_unique<StageOf<HeadlessDesktop, HeadlessUser>>();
  return std::make_unique<StageOf<ScriptedQtDesktop, QtUser>>();
}

}  // namespace tolmer::test
