#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <cstdint>

#include "platform/qt/gate.h"
#include "platform/timer.h"

namespace tolmer {

// Drives the models' timers with one timer of the toolkit, set for whatever falls due next.
//
// Its clock leaves out the time in which nothing could be handled: after a long computation or a
// sleeping computer a flashing button must not catch up on all its ticks.
class Alarm {
 public:
  Alarm(TimerQueue& queue, Gate& gate);
  ~Alarm();
  Alarm(const Alarm&) = delete;
  Alarm& operator=(const Alarm&) = delete;

  // As if that many milliseconds had passed.
  void skip(int milliseconds);

 private:
  std::int64_t now() const { return elapsed_.elapsed() + ahead_; }
  void arm();
  void ring();

  TimerQueue& queue_;
  Gate& gate_;
  QElapsedTimer elapsed_;
  std::int64_t ahead_ = 0;  // negative where time was left out
  QTimer timer_;
};

}  // namespace tolmer
