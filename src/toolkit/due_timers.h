// The timers of the forms that a front end shows, by the PC's clock: which one is due, and how long
// it is to the next. Times are those of GetTickCount64.
#pragma once

#include <vector>

#include "platform/winapi.h"
#include "toolkit/timer.h"

namespace tidemark {

class DueTimers {
 public:
  // The timers among the form's controls run from now on until Remove, also while it is hidden.
  void Add(const Control& form);
  void Remove(const Control& form);

  // The timer that has been due for the longest, or null; its next tick is one interval after this
  // one was due. The caller raises the event.
  Timer* TakeDue(ULONGLONG now_ms);

  // Milliseconds to the next tick; -1 when no timer runs.
  int Wait(ULONGLONG now_ms);

 private:
  struct Clock {
    const Control* form;
    Timer* timer;
    int interval_ms;  // 0: it does not run
    ULONGLONG due_ms;
  };
  void Collect(const Control& form, const Control& container);
  // Takes note of timers that were switched on or off or given another interval.
  void Watch(ULONGLONG now_ms);
  // The one that is due first; null when none runs.
  Clock* Next(ULONGLONG now_ms);

  std::vector<Clock> clocks_;
};

}  // namespace tidemark
