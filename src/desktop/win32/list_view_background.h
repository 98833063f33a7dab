// The picture behind the rows of a list's window. It is painted, not given to the window: not every
// version of the platform's list takes a bitmap, or tiles it.
#pragma once

#include <string>

#include "desktop/win32/resources.h"
#include "platform/winapi.h"
#include "toolkit/list_view.h"
// It wants the platform's headers before it.
#include <commctrl.h>

namespace tidemark {

class ListViewBackground {
 public:
  ListViewBackground(const ListView& list, Resources& resources)
      : list_(list), resources_(resources) {}

  // Brings the window in line with the control.
  void Show(HWND window);
  void Forget() { shown_ = false; }
  // Paints when the window paints: the answer to NM_CUSTOMDRAW.
  LRESULT OnCustomDraw(const NMLVCUSTOMDRAW& drawing);

 private:
  int InWindow(LONG pixels) const;
  void Paint(HWND window, HDC context) const;

  const ListView& list_;
  Resources& resources_;
  std::string file_;
  int alignment_ = 0;
  HBITMAP picture_ = nullptr;  // owned by the resources
  SIZE size_ = {};
  bool paints_selection_ = false;
  bool shown_ = false;
};

}  // namespace tidemark
