#include "platform/timer.h"

#include <algorithm>

namespace tolmer {

std::optional<std::int64_t> TimerQueue::nextDue() const {
  std::optional<std::int64_t> next;
  for (const Entry& entry : entries_)
    if (!next || entry.due < *next) next = entry.due;
  return next;
}

void TimerQueue::advanceTo(std::int64_t time) {
  for (auto due = nextDue(); due && *due <= time; due = nextDue()) {
    const auto entry = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& e) { return e.due == *due; });
    now_ = std::max(now_, *due);
    // Before the handler: it may stop or destroy its timer, or open a window whose own loop
    // advances this queue.
    entry->due = now_ + std::max(entry->timer->interval(), 1);
    if (rescheduled) rescheduled();
    raise(entry->timer->Tick);
  }
  now_ = std::max(now_, time);
}

void TimerQueue::start(Timer& timer) {
  const std::int64_t from = clock ? std::max(now_, clock()) : now_;
  entries_.push_back({&timer, from + std::max(timer.interval(), 1)});
  if (rescheduled) rescheduled();
}

void TimerQueue::stop(Timer& timer) {
  std::erase_if(entries_, [&](const Entry& entry) { return entry.timer == &timer; });
}

Timer::Timer(TimerQueue& queue, std::string name, int interval, bool enabled)
    : queue_(queue), name_(std::move(name)), interval_(interval) {
  setEnabled(enabled);
}

Timer::~Timer() { setEnabled(false); }

void Timer::setEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  if (enabled)
    queue_.start(*this);
  else
    queue_.stop(*this);
}

}  // namespace tolmer
