#include "editor/button_lights.h"

#include <utility>

namespace tolmer {
namespace {

constexpr Colour litGround = Colour::rgb(255, 255, 128);
constexpr int fadeTime = 1000;  // milliseconds
constexpr int flashTime = 500;

}  // namespace

ButtonLights::ButtonLights(TimerQueue& timers, std::vector<Button*> buttons)
    : buttons_(std::move(buttons)),
      tmrButton_(timers, "tmrButton", fadeTime),
      tmrFlash_(timers, "tmrFlash", flashTime) {
  for (Button* button : buttons_) button->MouseMove = [this, button] { lightUnderMouse(*button); };
  tmrButton_.Tick = [this] { reset(); };
  tmrFlash_.Tick = [this] { tmrFlash_Tick(); };
}

void ButtonLights::lightUnderMouse(Button& button) {
  if (areFlashing()) return;
  if (button.backColour() != litGround) reset();
  light(button);
}

void ButtonLights::light(Button& button) {
  button.setBackColour(litGround);
  button.setForeColour(colours::black);
  tmrButton_.setEnabled(!areFlashing());
}

void ButtonLights::reset() {
  for (Button* button : buttons_) {
    button->setBackColour(colours::buttonFace);
    button->setForeColour(colours::buttonText);
  }
  tmrButton_.setEnabled(false);
}

void ButtonLights::flash(Button& button, std::function<void()> done) {
  flashes_.push_back({&button, std::move(done)});
  if (flashes_.size() > 1) return;
  reset();
  light(button);
  flashIsQuiet_ = false;
  tmrFlash_.setEnabled(true);
}

void ButtonLights::tmrFlash_Tick() {
  reset();
  flashIsQuiet_ = !flashIsQuiet_;
  if (flashIsQuiet_) return;
  const auto done = std::move(flashes_.front().done);
  flashes_.pop_front();
  if (areFlashing())
    light(*flashes_.front().button);
  else
    tmrFlash_.setEnabled(false);
  raise(done);
}

}  // namespace tolmer
