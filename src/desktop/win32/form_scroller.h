// A form that is larger than the display's work area: its window is as large as that, with scroll
// bars, and the form is scrolled in it. Sizes and places are pixels.
#pragma once

#include "desktop/win32/resources.h"
#include "platform/winapi.h"

namespace tidemark {

class FormScroller {
 public:
  explicit FormScroller(Resources& resources) : resources_(resources) {}

  // The size of a window with its frame that would be of this size, cut to the work area; a bar at
  // one side has room at the other, where there is some.
  static SIZE SizeWithin(const RECT& work_area, SIZE whole);

  // Shows the bars that the window needs for a form of this size. A form that fits is not scrolled.
  void Fit(HWND window, SIZE form);
  // For WM_HSCROLL, WM_VSCROLL and WM_MOUSEWHEEL. Both this and the next tell whether the form was
  // scrolled.
  bool Scroll(HWND window, UINT message, WPARAM wparam);
  bool BringIntoView(HWND window, HWND child);

 private:
  // Along one bar, SB_HORZ or SB_VERT.
  void FitAlong(HWND window, int bar, int form, int client);
  bool ScrollTo(HWND window, int bar, int position);

  Resources& resources_;
};

}  // namespace tidemark
