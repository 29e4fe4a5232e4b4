#include "platform/qt/alarm.h"

#include <algorithm>

namespace tolmer {
namespace {

constexpr std::int64_t longestDelay = 1000;  // milliseconds; anything beyond is left out

}  // namespace

Alarm::Alarm(TimerQueue& queue, Gate& gate) : queue_(queue), gate_(gate) {
  elapsed_.start();
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { ring(); });
  queue_.clock = [this] { return now(); };
  // The queue calls it before each tick's handler too, so that other timers go on while the handler
  // waits in a modal window.
  queue_.rescheduled = [this] { arm(); };
  arm();
}

Alarm::~Alarm() {
  queue_.clock = nullptr;
  queue_.rescheduled = nullptr;
}

void Alarm::skip(int milliseconds) {
  ahead_ += milliseconds;
  gate_.enter([this] { queue_.advanceTo(now()); });
  arm();
}

void Alarm::arm() {
  const auto due = queue_.nextDue();
  if (!due) return timer_.stop();
  constexpr std::int64_t longest = 1'000'000;
  timer_.start(static_cast<int>(std::clamp<std::int64_t>(*due - now(), 0, longest)));
}

void Alarm::ring() {
  const auto due = queue_.nextDue();
  if (!due) return;
  const std::int64_t late = now() - *due;
  if (late > longestDelay) ahead_ -= late;
  gate_.enter([this] { queue_.advanceTo(now()); });
  arm();
}

}  // namespace tolmer
