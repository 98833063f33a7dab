// The timers of the windows on the desk, by the PC's clock: which one is due, and how long it is to
// the next.
#pragma once

#include <map>
#include <vector>

#include "desktop/terminal/desk.h"
#include "platform/winapi.h"
#include "toolkit/timer.h"

namespace tidemark {

class DueTimers {
 public:
  // A timer that is due, its next tick put off by its interval; null when none is. A timer starts
  // at the first call that finds it enabled in one of the windows. `now` is a GetTickCount64.
  Timer* Take(const std::vector<Desk::ShownForm>& forms, ULONGLONG now);

  // Milliseconds to the next tick, as of the last call of Take; -1 when no timer runs.
  int Wait(ULONGLONG now) const;

 private:
  struct Running {
    int interval_ms = 0;
    ULONGLONG due = 0;
  };
  void Follow(const std::vector<Desk::ShownForm>& forms, ULONGLONG now);

  std::map<Timer*, Running> running_;
};

}  // namespace tidemark
