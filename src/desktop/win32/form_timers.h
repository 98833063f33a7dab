// The timers among a form's controls. They run as long as the form is loaded, shown or not.
#pragma once

#include <optional>
#include <vector>

#include "platform/winapi.h"
#include "toolkit/timer.h"

namespace tidemark {

class FormTimers {
 public:
  explicit FormTimers(Control& form);

  // One timer that is due, or null; its next tick is one interval from now. The caller raises the
  // event, after which the form and this object may be gone.
  Timer* TakeDue(ULONGLONG now_ms);
  // When the next tick is due; no value when no timer runs.
  std::optional<ULONGLONG> NextDue(ULONGLONG now_ms);

 private:
  struct Clock {
    Timer* timer;
    int interval_ms;  // 0: it does not run
    ULONGLONG due;
  };
  void Collect(Control& control);
  // Takes note of timers that were switched on or off or given another interval.
  void Watch(ULONGLONG now_ms);

  std::vector<Clock> clocks_;
};

}  // namespace tidemark
