// No exception may cross a procedure that the platform calls. What such a procedure throws is kept,
// and thrown again where the program's own code runs: in the message pump, behind a modal box.
#pragma once

#include <exception>

#include "platform/winapi.h"

namespace tidemark {

// Keeps the first one until RethrowKept, ends modal loops and wakes the message pump.
void KeepException(const std::exception_ptr& exception);
// Throws what has been kept, if anything. Not to be called from within a procedure of a window.
void RethrowKept();
// How many guarded procedures are running on top of each other.
int ProceduresRunning();

// Counts one procedure for as long as it runs.
class RunningProcedure {
 public:
  RunningProcedure();
  ~RunningProcedure();
  RunningProcedure(const RunningProcedure&) = delete;
  RunningProcedure& operator=(const RunningProcedure&) = delete;
};

// Does the work of a procedure; its answer, or 0 when it has thrown.
template <class Work>
LRESULT Guarded(Work work) noexcept {
  const RunningProcedure running;
  try {
    return work();
  } catch (...) {
    KeepException(std::current_exception());
    return 0;
  }
}

}  // namespace tidemark
