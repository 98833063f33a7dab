// The column headings of a list's window. Columns of no width are not made at all: nobody can drag
// them open or hit their dividers.
#pragma once

#include <string>
#include <vector>

#include "desktop/win32/resources.h"
#include "toolkit/list_view.h"

namespace tidemark {

class ListViewColumns {
 public:
  ListViewColumns(const ListView& list, Resources& resources)
      : list_(list), resources_(resources) {}

  ~ListViewColumns();
  ListViewColumns(const ListViewColumns&) = delete;
  ListViewColumns& operator=(const ListViewColumns&) = delete;

  void Create(HWND list_window);
  // Brings the headings in line with the control: texts, widths, the arrow of the order. A width
  // that a person has dragged stays. True when there are other columns than before.
  bool Show();
  // For other dots per inch the widths are made anew; else a dragged one stays here too.
  void Forget() {
    if (shown_at_ != resources_.DotsPerInch()) shown_.clear();
  }
  // The control's column, from 0, that the window shows at this place; -1 for none.
  int ColumnAt(int place) const;
  int Count() const { return static_cast<int>(shown_.size()); }

 private:
  struct Shown {
    int column = -1;
    Text text;
    int width_twips = 0;
    int arrow = 0;
    bool operator==(const Shown&) const = default;
  };
  std::vector<Shown> Wanted() const;
  void SetArrow(int place, int arrow) const;
  int WidthOfHeading(const std::wstring& text) const;
  static LRESULT CALLBACK HeaderProcedure(HWND header, UINT message, WPARAM wparam, LPARAM lparam,
                                          UINT_PTR id, DWORD_PTR columns);
  void Change(int place, const Shown& from, const Shown& to) const;

  const ListView& list_;
  Resources& resources_;
  HWND window_ = nullptr;
  HWND header_ = nullptr;  // until it is destroyed
  std::vector<Shown> shown_;
  int shown_at_ = 0;  // dots per inch
};

}  // namespace tidemark
