// Timers of windows, and the queue that a desktop's clock drives.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/observed.h"

namespace tolmer {

class Timer;

// All running timers. Time is in milliseconds and moves only by advanceTo: the desktop calls it
// with its clock, a test with whatever it likes.
class TimerQueue {
 public:
  std::int64_t now() const { return now_; }
  std::optional<std::int64_t> nextDue() const;  // none while no timer runs
  // Raises what falls due up to then, in order of time; each tick happens at its own due time.
  void advanceTo(std::int64_t time);

  // Called whenever nextDue may have become earlier, so that the desktop can set its alarm.
  std::function<void()> rescheduled;
  // A running clock, on the scale of advanceTo: where there is one, a started timer counts from its
  // time, since the last advance may be long past. Unset, it counts from the last advance.
  std::function<std::int64_t()> clock;

 private:
  friend class Timer;
  struct Entry {
    Timer* timer;
    std::int64_t due;
  };
  void start(Timer& timer);
  void stop(Timer& timer);

  std::vector<Entry> entries_;
  std::int64_t now_ = 0;
};

class Timer {
 public:
  Timer(TimerQueue& queue, std::string name, int interval, bool enabled = false);
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  const std::string& name() const { return name_; }
  int interval() const { return interval_; }
  bool enabled() const { return enabled_; }
  // Starting begins a whole interval; starting a running timer changes nothing.
  void setEnabled(bool enabled);

  Event<> Tick;

 private:
  TimerQueue& queue_;
  std::string name_;
  int interval_;
  bool enabled_ = false;
};

}  // namespace tolmer
