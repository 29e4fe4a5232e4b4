#include "support/script.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

namespace tolmer::test {

Script::Script(OnModal& onModal, OnMessageBox& onMessageBox)
    : onModal_(onModal), onMessageBox_(onMessageBox) {
  onModal_ = [this](Window& window) {
    const Step step = take(false, window.name(), window.caption());
    if (step.actions) step.actions();
  };
  onMessageBox_ = [this](const MessageBox& box) {
    const Step step = take(true, box.title, box.text);
    EXPECT_EQ(box.text, step.text) << "in the box \"" << box.title << "\"";
    if (step.whole) {
      EXPECT_EQ(box.icon, step.whole->icon) << box.text;
      EXPECT_EQ(box.buttons, step.whole->buttons) << box.text;
    }
    return step.answer;
  };
}

Script::~Script() {
  onModal_ = nullptr;
  onMessageBox_ = nullptr;
  if (std::uncaught_exceptions() == 0) finish();
}

void Script::window(std::string name, std::function<void()> actions) {
  steps_.push_back({false, std::move(name), {}, Answer::ok, std::move(actions)});
}

void Script::box(std::string title, std::string text, Answer answer) {
  steps_.push_back({true, std::move(title), std::move(text), answer, {}});
}

void Script::box(const MessageBox& expected, Answer answer) {
  box(expected.title, expected.text, answer);
  steps_.back().whole = expected;
}

void Script::finish() {
  for (const Step& step : steps_)
    ADD_FAILURE() << (step.isBox ? "the box \"" : "the window ") << step.name
                  << (step.isBox ? "\" saying \"" + step.text + "\"" : "") << " never came";
  steps_.clear();
}

Script::Step Script::take(bool isBox, const std::string& name, const std::string& text) {
  const std::string what = isBox ? "box \"" + name + "\" saying \"" + text + "\""
                                 : "modal window " + name + " (\"" + text + "\")";
  if (steps_.empty()) throw std::runtime_error("unexpected " + what);
  Step step = std::move(steps_.front());
  steps_.pop_front();
  if (step.isBox != isBox || step.name != name)
    throw std::runtime_error("unexpected " + what + ", expected " +
                             (step.isBox ? "the box \"" : "the window \"") + step.name + "\"");
  return step;
}

}  // namespace tolmer::test
