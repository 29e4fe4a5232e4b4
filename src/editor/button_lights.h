// The colours of the editor's buttons: one follows the mouse and fades, and a flash acknowledges
// what a button has done.
#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "platform/buttons.h"
#include "platform/timer.h"

namespace tolmer {

// Takes the MouseMove of its buttons, which outlive it. Nothing waits: all runs on the timers.
class ButtonLights {
 public:
  ButtonLights(TimerQueue& timers, std::vector<Button*> buttons);

  // Lit for a second; while a flash runs, until its next half second.
  void light(Button& button);
  // Half a second lit and half a second quiet, behind the flashes that already wait. Then calls
  // `done`, which may destroy the lights.
  void flash(Button& button, std::function<void()> done = {});
  bool areFlashing() const { return !flashes_.empty(); }
  // All quiet at once. Flashes go on.
  void reset();

 private:
  struct Flash {
    Button* button;
    std::function<void()> done;
  };
  void lightUnderMouse(Button& button);
  void tmrFlash_Tick();

  std::vector<Button*> buttons_;
  Timer tmrButton_;
  Timer tmrFlash_;
  std::deque<Flash> flashes_;  // the first is lit, or quiet after it
  bool flashIsQuiet_ = false;
};

}  // namespace tolmer
