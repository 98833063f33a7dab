// The message loop of the front end: yields, timers, repaints.
#include <algorithm>

#include "desktop/win32/guarded.h"
#include "desktop/win32/win32_front_end.h"

namespace tidemark {
namespace {

// A walker yields for each item it meets; between two pumps a yield is a look at the system's tick.
constexpr ULONGLONG kPumpPause_ms = 10;
constexpr ULONGLONG kRefreshPause_ms = 50;
// Whoever yields so often, and in so short a time each, has nothing to do but to wait.
constexpr int kManyYields = 4096;
constexpr long long kIdleYield_ns = 150;
constexpr long long kNanosecondsPerSecond = 1'000'000'000;

}  // namespace

void Win32FrontEnd::DoEvents() {
  const ULONGLONG now = GetTickCount64();
  if (now - last_pump_ms_ < kPumpPause_ms) {
    if (++yields_ < kManyYields || !OnlyWaits()) return;
    WaitForInput(kPumpPause_ms);
  }
  Pump();
}

bool Win32FrontEnd::OnlyWaits() {
  LARGE_INTEGER now{};
  LARGE_INTEGER frequency{};
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&frequency);
  const long long passed =
      (now.QuadPart - first_yield_.QuadPart) * kNanosecondsPerSecond / frequency.QuadPart;
  yields_ = 0;
  first_yield_ = now;
  return passed < kManyYields * kIdleYield_ns;
}

void Win32FrontEnd::Pump() {
  RethrowKept();
  // First, so that what is new is painted with the messages.
  if (GetTickCount64() - last_refresh_ms_ >= kRefreshPause_ms) Refresh();
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    Handle(message);
    RethrowKept();
  }
  RunTimer();
  last_pump_ms_ = GetTickCount64();
  yields_ = 0;
  QueryPerformanceCounter(&first_yield_);
}

void Win32FrontEnd::Handle(const MSG& message) {
  if (message.message == WM_QUIT) End();
  FormWindow* window = FindWindowOf(message.hwnd);
  if (window != nullptr && window->TakesKey(message)) return;
  TranslateMessage(&message);
  DispatchMessageA(&message);
}

bool Win32FrontEnd::RunTimer() {
  Timer* const timer = timers_.TakeDue(GetTickCount64());
  if (timer == nullptr) return false;
  timer->Tick();
  return true;
}

void Win32FrontEnd::RunTimerModally() {
  if (RunTimer()) Refresh();
}

void Win32FrontEnd::Refresh() {
  for (std::size_t index = 0; index < windows_.size(); ++index) windows_[index]->Refresh();
  last_refresh_ms_ = GetTickCount64();
}

// When no timer runs, -1 is INFINITE.
void Win32FrontEnd::WaitForInput(DWORD longest_ms) {
  const auto next_tick = static_cast<DWORD>(timers_.Wait(GetTickCount64()));
  MsgWaitForMultipleObjectsEx(0, nullptr, std::min(longest_ms, next_tick), QS_ALLINPUT,
                              MWMO_INPUTAVAILABLE);
}

void Win32FrontEnd::IdleLoop() {
  while (true) {
    Refresh();
    if (ProceduresRunning() == 0) closed_.clear();
    WaitForInput(INFINITE);
    Pump();
  }
}

}  // namespace tidemark
