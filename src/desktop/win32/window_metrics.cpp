#include "desktop/win32/window_metrics.h"

#include <algorithm>

#include "desktop/win32/late_call.h"

namespace tidemark {

RECT PlaceOnScreen(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return place;
}

int DotsPerInchOf(HWND window) {
  static const auto dpi_for_window = LateCall<UINT(WINAPI*)(HWND)>("user32.dll", "GetDpiForWindow");
  if (dpi_for_window != nullptr) {
    if (const UINT dots = dpi_for_window(window); dots != 0) return static_cast<int>(dots);
  }
  const HDC screen = GetDC(nullptr);
  const int dots = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dots;
}

SIZE OuterSizeOf(SIZE client, DWORD style, DWORD extended_style, int dots_per_inch) {
  static const auto adjust_for_dpi = LateCall<BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT)>(
      "user32.dll", "AdjustWindowRectExForDpi");
  RECT area{0, 0, client.cx, client.cy};
  if (adjust_for_dpi == nullptr || adjust_for_dpi(&area, style, FALSE, extended_style,
                                                  static_cast<UINT>(dots_per_inch)) == FALSE) {
    AdjustWindowRectEx(&area, style, FALSE, extended_style);
  }
  return {area.right - area.left, area.bottom - area.top};
}

POINT MiddleOf(const RECT& area, SIZE size) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof(monitor);
  GetMonitorInfoA(MonitorFromRect(&area, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& work = monitor.rcWork;
  const LONG left = (area.left + area.right - size.cx) / 2;
  const LONG top = (area.top + area.bottom - size.cy) / 2;
  // The caption stays within reach.
  return {std::max(std::min(left, work.right - size.cx), work.left),
          std::max(std::min(top, work.bottom - size.cy), work.top)};
}

RECT WorkAreaOf(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof(monitor);
  GetMonitorInfoA(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
  return monitor.rcWork;
}

}  // namespace tidemark
