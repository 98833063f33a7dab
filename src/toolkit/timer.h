// A timer: while it is enabled, a front end raises Tick once each interval, at a yield or while the
// program is idle. Ticks that were missed in a long step are not made up for.
#pragma once

#include "toolkit/control.h"

namespace tidemark {

class Timer : public Control {
 public:
  using Control::Control;
  Event<> Tick;

  int Interval() const { return interval_ms_; }  // in milliseconds; 0 never ticks
  void SetInterval(int interval_ms) { interval_ms_ = interval_ms; }

 private:
  int interval_ms_ = 0;
};

}  // namespace tidemark
