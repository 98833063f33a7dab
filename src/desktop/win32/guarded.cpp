#include "desktop/win32/guarded.h"

#include <utility>

#include "desktop/win32/modal_loops.h"

namespace tidemark {
namespace {

// The windows and their procedures belong to the one user-interface thread.
std::exception_ptr kept;
int procedures = 0;

}  // namespace

RunningProcedure::RunningProcedure() { ++procedures; }
RunningProcedure::~RunningProcedure() { --procedures; }

int ProceduresRunning() { return procedures; }

void KeepException(const std::exception_ptr& exception) {
  if (!kept) kept = exception;
  EndModalLoops();
  PostThreadMessageA(GetCurrentThreadId(), WM_NULL, 0, 0);
}

void RethrowKept() {
  if (kept) std::rethrow_exception(std::exchange(kept, nullptr));
}

}  // namespace tidemark
