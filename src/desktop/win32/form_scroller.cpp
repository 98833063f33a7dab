#include "desktop/win32/form_scroller.h"

#include <algorithm>

#include "desktop/win32/window_metrics.h"

namespace tidemark {
namespace {

constexpr int kLineAt96 = 40;

SCROLLINFO InfoOf(HWND window, int bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof(info);
  info.fMask = SIF_ALL;
  GetScrollInfo(window, bar, &info);
  return info;
}

// Where the request of a bar leads.
int Target(const SCROLLINFO& info, WORD request, int line) {
  switch (request) {
    case SB_LINEUP:
      return info.nPos - line;
    case SB_LINEDOWN:
      return info.nPos + line;
    case SB_PAGEUP:
      return info.nPos - static_cast<int>(info.nPage);
    case SB_PAGEDOWN:
      return info.nPos + static_cast<int>(info.nPage);
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
      return info.nTrackPos;
    case SB_TOP:
      return info.nMin;
    case SB_BOTTOM:
      return info.nMax;
    default:
      return info.nPos;
  }
}

// The position nearest to `now` at which all from `first` to `last` is in view, the first at least.
int PositionThatShows(int now, int first, int last, int view) {
  return std::min(std::max(now, now + last - view), now + first);
}

}  // namespace

SIZE FormScroller::SizeWithin(const RECT& work_area, SIZE whole) {
  const SIZE room = {work_area.right - work_area.left, work_area.bottom - work_area.top};
  SIZE size = whole;
  if (whole.cy > room.cy) size.cx += GetSystemMetrics(SM_CXVSCROLL);
  if (whole.cx > room.cx) size.cy += GetSystemMetrics(SM_CYHSCROLL);
  return {std::min(size.cx, room.cx), std::min(size.cy, room.cy)};
}

void FormScroller::Fit(HWND window, SIZE form) {
  // A bar takes room from the other direction, which may then need one too.
  for (int time = 0; time < 2; ++time) {
    RECT client{};
    GetClientRect(window, &client);
    FitAlong(window, SB_HORZ, form.cx, client.right);
    GetClientRect(window, &client);
    FitAlong(window, SB_VERT, form.cy, client.bottom);
  }
}

void FormScroller::FitAlong(HWND window, int bar, int form, int client) {
  SCROLLINFO info{};
  info.cbSize = sizeof(info);
  info.fMask = SIF_RANGE | SIF_PAGE;
  info.nMax = std::max(form - 1, 0);
  info.nPage = static_cast<UINT>(client);
  SetScrollInfo(window, bar, &info, TRUE);
  ScrollTo(window, bar, InfoOf(window, bar).nPos);
}

bool FormScroller::Scroll(HWND window, UINT message, WPARAM wparam) {
  const int line = resources_.Scaled(kLineAt96);
  if (message == WM_MOUSEWHEEL) {
    const int notches = static_cast<short>(HIWORD(wparam)) / WHEEL_DELTA;
    return ScrollTo(window, SB_VERT, InfoOf(window, SB_VERT).nPos - 2 * line * notches);
  }
  const int bar = message == WM_HSCROLL ? SB_HORZ : SB_VERT;
  return ScrollTo(window, bar, Target(InfoOf(window, bar), LOWORD(wparam), line));
}

bool FormScroller::BringIntoView(HWND window, HWND child) {
  if (child == nullptr || IsChild(window, child) == FALSE) return false;
  RECT place = PlaceOnScreen(child);
  MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
  RECT client{};
  GetClientRect(window, &client);
  const POINT now = resources_.Scrolled();
  const bool across =
      ScrollTo(window, SB_HORZ, PositionThatShows(now.x, place.left, place.right, client.right));
  return ScrollTo(window, SB_VERT,
                  PositionThatShows(now.y, place.top, place.bottom, client.bottom)) ||
         across;
}

bool FormScroller::ScrollTo(HWND window, int bar, int position) {
  SCROLLINFO info = InfoOf(window, bar);
  const int last = std::max(info.nMax - static_cast<int>(info.nPage) + 1, 0);
  info.fMask = SIF_POS;
  info.nPos = std::clamp(position, 0, last);
  SetScrollInfo(window, bar, &info, TRUE);
  POINT scrolled = resources_.Scrolled();
  LONG& place = bar == SB_HORZ ? scrolled.x : scrolled.y;
  if (place == info.nPos) return false;
  place = info.nPos;
  resources_.SetScrolled(scrolled);
  return true;
}

}  // namespace tidemark
