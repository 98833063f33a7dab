#include "desktop/win32/xpcmdbutton_peer.h"

#include <array>

// They want the platform's headers before them.
#include <oleacc.h>
#include <windowsx.h>

namespace tidemark {
namespace {

constexpr UINT_PTR kLeaveTimer = 1;
constexpr int kLeft = 1;
constexpr int kRight = 2;
constexpr int kMiddle = 4;
constexpr int kShift = 1;
constexpr int kCtrl = 2;
constexpr int kAlt = 4;

int ShiftState() {
  return (GetKeyState(VK_SHIFT) < 0 ? kShift : 0) | (GetKeyState(VK_CONTROL) < 0 ? kCtrl : 0) |
         (GetKeyState(VK_MENU) < 0 ? kAlt : 0);
}

int ButtonsDown(WPARAM keys) {
  return ((keys & MK_LBUTTON) != 0 ? kLeft : 0) | ((keys & MK_RBUTTON) != 0 ? kRight : 0) |
         ((keys & MK_MBUTTON) != 0 ? kMiddle : 0);
}

struct MouseMessage {
  UINT message;
  int button;
  bool down;
};
constexpr auto kMouseMessages = std::to_array<MouseMessage>({
    {WM_LBUTTONDOWN, kLeft, true},
    {WM_LBUTTONDBLCLK, kLeft, true},
    {WM_LBUTTONUP, kLeft, false},
    {WM_RBUTTONDOWN, kRight, true},
    {WM_RBUTTONDBLCLK, kRight, true},
    {WM_RBUTTONUP, kRight, false},
    {WM_MBUTTONDOWN, kMiddle, true},
    {WM_MBUTTONDBLCLK, kMiddle, true},
    {WM_MBUTTONUP, kMiddle, false},
});

}  // namespace

xpcmdbuttonPeer::xpcmdbuttonPeer(xpcmdbutton& button, Resources& resources, HWND parent)
    : CanvasPeer(button, resources, parent), button_(button) {}

void xpcmdbuttonPeer::Refresh() {
  CanvasPeer::Refresh();
  Timer& timer = button_.LeaveTimer();
  const bool timer_should_run = timer.Enabled() && timer.Interval() > 0;
  if (timer_runs_ == timer_should_run) return;
  timer_runs_ = timer_should_run;
  if (timer_runs_) {
    SetTimer(window_, kLeaveTimer, static_cast<UINT>(timer.Interval()), nullptr);
  } else {
    KillTimer(window_, kLeaveTimer);
  }
}

Answer xpcmdbuttonPeer::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_CHAR:
      return OnKey(message, wparam);
    case WM_TIMER:
      OnTimer();
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      button_.SetFocused(message == WM_SETFOCUS);
      return 0;
    default:
      break;
  }
  if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) {
    if (const Answer answer = OnMouse(message, wparam, lparam)) return answer;
  }
  return CanvasPeer::OnMessage(message, wparam, lparam);
}

Answer xpcmdbuttonPeer::OnMouse(UINT message, WPARAM wparam, LPARAM lparam) {
  const int x = GET_X_LPARAM(lparam);
  const int y = GET_Y_LPARAM(lparam);
  if (message == WM_MOUSEMOVE) {
    button_.UserMouseMove(ButtonsDown(wparam), ShiftState(), x, y);
    return 0;
  }
  for (const MouseMessage& entry : kMouseMessages) {
    if (entry.message != message) continue;
    if (entry.down) {
      SetFocus(window_);
      SetCapture(window_);
      button_.UserMouseDown(entry.button, ShiftState(), x, y);
    } else {
      if (ButtonsDown(wparam) == 0) ReleaseCapture();
      button_.UserMouseUp(entry.button, ShiftState(), x, y);
    }
    return 0;
  }
  return {};
}

Answer xpcmdbuttonPeer::OnKey(UINT message, WPARAM wparam) {
  const int code = static_cast<int>(wparam);
  switch (message) {
    case WM_KEYDOWN:
      button_.UserKeyDown(code, ShiftState());
      return 0;
    case WM_KEYUP:
      button_.UserKeyUp(code, ShiftState());
      return 0;
    default:
      button_.UserKeyPress(code);
      return 0;
  }
}

void xpcmdbuttonPeer::OnTimer() {
  POINT cursor{};
  GetCursorPos(&cursor);
  ScreenToClient(window_, &cursor);
  button_.SetCursor(cursor.x, cursor.y);
  button_.LeaveTimer().Tick();
}

Text xpcmdbuttonPeer::AccessKeyText() const {
  return button_.AccessibleName().empty() ? button_.Caption() : button_.AccessibleName();
}

void xpcmdbuttonPeer::OnAccessKey() {
  SetFocus(window_);
  button_.UserAccessKey();
}

bool xpcmdbuttonPeer::OnEnter() {
  button_.UserKeyPress(VK_RETURN);
  return true;
}

long xpcmdbuttonPeer::Role() const { return ROLE_SYSTEM_PUSHBUTTON; }

}  // namespace tidemark
