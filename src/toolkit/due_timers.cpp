#include "toolkit/due_timers.h"

#include <algorithm>
#include <limits>

namespace tidemark {

void DueTimers::Add(const Control& form) { Collect(form, form); }

void DueTimers::Remove(const Control& form) {
  std::erase_if(clocks_, [&form](const Clock& clock) { return clock.form == &form; });
}

void DueTimers::Collect(const Control& form, const Control& container) {
  for (Control* control : container.Controls()) {
    Collect(form, *control);
    if (auto* timer = dynamic_cast<Timer*>(control)) clocks_.push_back({&form, timer, 0, 0});
  }
}

void DueTimers::Watch(ULONGLONG now_ms) {
  for (Clock& clock : clocks_) {
    const int interval_ms = clock.timer->Enabled() ? std::max(clock.timer->Interval(), 0) : 0;
    if (interval_ms == clock.interval_ms) continue;
    clock.interval_ms = interval_ms;
    clock.due_ms = now_ms + static_cast<ULONGLONG>(interval_ms);
  }
}

DueTimers::Clock* DueTimers::Next(ULONGLONG now_ms) {
  Watch(now_ms);
  Clock* next = nullptr;
  for (Clock& clock : clocks_) {
    if (clock.interval_ms == 0) continue;
    if (next == nullptr || clock.due_ms < next->due_ms) next = &clock;
  }
  return next;
}

Timer* DueTimers::TakeDue(ULONGLONG now_ms) {
  Clock* const clock = Next(now_ms);
  if (clock == nullptr || clock->due_ms > now_ms) return nullptr;
  const auto interval_ms = static_cast<ULONGLONG>(clock->interval_ms);
  clock->due_ms += interval_ms;
  if (clock->due_ms <= now_ms) clock->due_ms = now_ms + interval_ms;  // no tick is made up for
  return clock->timer;
}

int DueTimers::Wait(ULONGLONG now_ms) {
  const Clock* const clock = Next(now_ms);
  if (clock == nullptr) return -1;
  constexpr ULONGLONG kLongest_ms = std::numeric_limits<int>::max();
  return clock->due_ms > now_ms ? static_cast<int>(std::min(clock->due_ms - now_ms, kLongest_ms))
                                : 0;
}

}  // namespace tidemark
