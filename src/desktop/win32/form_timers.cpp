#include "desktop/win32/form_timers.h"

#include <algorithm>

namespace tidemark {

FormTimers::FormTimers(Control& form) { Collect(form); }

void FormTimers::Collect(Control& control) {
  if (auto* timer = dynamic_cast<Timer*>(&control)) clocks_.push_back({timer, 0, 0});
  for (Control* inner : control.Controls()) Collect(*inner);
}

void FormTimers::Watch(ULONGLONG now_ms) {
  for (Clock& clock : clocks_) {
    const int interval = clock.timer->Enabled() ? std::max(clock.timer->Interval(), 0) : 0;
    if (interval == clock.interval_ms) continue;
    clock.interval_ms = interval;
    clock.due = now_ms + static_cast<ULONGLONG>(interval);
  }
}

Timer* FormTimers::TakeDue(ULONGLONG now_ms) {
  Watch(now_ms);
  for (Clock& clock : clocks_) {
    if (clock.interval_ms == 0 || clock.due > now_ms) continue;
    clock.due = now_ms + static_cast<ULONGLONG>(clock.interval_ms);
    return clock.timer;
  }
  return nullptr;
}

std::optional<ULONGLONG> FormTimers::NextDue(ULONGLONG now_ms) {
  Watch(now_ms);
  std::optional<ULONGLONG> next;
  for (const Clock& clock : clocks_) {
    if (clock.interval_ms != 0) next = std::min(next.value_or(clock.due), clock.due);
  }
  return next;
}

}  // namespace tidemark
