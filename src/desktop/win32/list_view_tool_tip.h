// The tool tip of a list: over the selected row the list's own, over another cell the text that
// does not fit into it. The platform's list has such tips for the first column alone.
#pragma once

#include <string>
#include <string_view>

#include "desktop/win32/list_view_columns.h"
#include "desktop/win32/resources.h"
#include "toolkit/list_view.h"

namespace tidemark {

class ListViewToolTip {
 public:
  ListViewToolTip(const ListView& list, const ListViewColumns& columns, Resources& resources)
      : list_(list), columns_(columns), resources_(resources) {}

  void Create(HWND list_window);
  // For every mouse message of the list's window.
  void OnMouse(UINT message, WPARAM wparam, LPARAM lparam);
  // The rows move beneath the mouse.
  void Hide();

 private:
  // What is to be shown while the mouse stays in an area of the window.
  struct Tip {
    RECT area = {};
    std::string_view text;  // empty for none
  };
  Tip TipAt(POINT point) const;
  bool Fits(std::string_view text, const RECT& cell) const;
  void Show(const Tip& tip);

  const ListView& list_;
  const ListViewColumns& columns_;
  Resources& resources_;
  HWND list_window_ = nullptr;
  HWND window_ = nullptr;
  RECT area_ = {};
  std::string text_;
};

}  // namespace tidemark
