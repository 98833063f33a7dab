// The message loop of the front end: yields, timers, repaints.
#include "desktop/win32/guarded.h"
#include "desktop/win32/win32_front_end.h"

namespace tidemark {
namespace {

// A walker yields for each item it meets; between two pumps a yield is a look at the system's tick.
constexpr ULONGLONG kPumpPause_ms = 10;
constexpr ULONGLONG kRefreshPause_ms = 50;

}  // namespace

void Win32FrontEnd::DoEvents() {
  if (GetTickCount64() - last_pump_ms_ >= kPumpPause_ms) Pump();
}

void Win32FrontEnd::WaitForEvents() {
  RethrowKept();
  Refresh();
  if (ProceduresRunning() == 0) closed_.clear();
  WaitForInput();
  Pump();
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
void Win32FrontEnd::WaitForInput() {
  MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(timers_.Wait(GetTickCount64())),
                              QS_ALLINPUT, MWMO_INPUTAVAILABLE);
}

}  // namespace tidemark
