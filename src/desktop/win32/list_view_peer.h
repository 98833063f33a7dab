// The window of a list view: the platform's list of virtual rows, which asks for the rows in view
// and holds none. A hundred thousand rows are a number to it.
#pragma once

#include <string>
#include <vector>

#include "desktop/win32/list_view_background.h"
#include "desktop/win32/list_view_columns.h"
#include "desktop/win32/list_view_snapshot.h"
#include "desktop/win32/list_view_tool_tip.h"
#include "desktop/win32/peer.h"
#include "platform/winapi.h"
#include "toolkit/list_view.h"
// It wants the platform's headers before it.
#include <commctrl.h>

namespace tidemark {

class ListViewPeer : public Peer {
 public:
  ListViewPeer(ListView& list, Resources& resources, HWND parent);

  void Refresh() override;
  void Forget() override;
  Answer OnNotify(NMHDR& header) override;
  Answer OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  bool TakesFocus() const override { return true; }
  bool OnEnter() override;

 protected:
  void ShowToolTip(const Text& /*text*/) override {}

 private:
  // What a person has done. It is posted to the window and becomes an event of the control when the
  // platform's list is through with the message behind it: a handler may clear the list, show a box
  // or close the form, none of which that list bears amidst its own work.
  enum class Act : WORD {
    kSelect,
    kSelectRows,  // those that the window has selected
    kCheck,
    kClickColumn,
    kDoubleClick,
    kContextMenu,
    kKeyboardMenu
  };

  // Refreshing: list_view_peer.cpp.
  void ShowStyle();
  HIMAGELIST MakeIcons();
  void ShowRowCount();
  void ShowSelection();
  void ShowChangedRows();
  void SelectInWindow(int row);
  // Several rows.
  void ShowSelectedRows();
  // A list that has the focus shows where: its first row bears the focus until another one does.
  void ShowFocus();

  // What the window asks for: list_view_rows.cpp.
  void TellRow(LVITEMW& item);
  void TellText(const ListItem* row, LVITEMW& item);
  // As a cell shows it: of a path, whose end tells the most, the middle is left out.
  std::wstring Shortened(std::wstring text, int place) const;
  int FindRow(const NMLVFINDITEMW& search) const;
  LRESULT OnCustomDraw(const NMLVCUSTOMDRAW& drawing);

  // What a person does: list_view_acts.cpp.
  void OnItemChanged(const NMLISTVIEW& change);
  void OnDoubleClick(int row);
  Answer OnPress(UINT message, WPARAM wparam, LPARAM lparam);
  Answer OnKey(UINT message, WPARAM key, LPARAM lparam);
  void OnContextMenu(LPARAM lparam);
  int KeyboardRow() const;
  void NoteSelection();
  void TakeSelection();
  void Copy() const;
  // Where the menu of a row that the keyboard asks for opens, on the screen; row 0 is none.
  POINT MenuPlaceOf(int row) const;
  void Post(Act act, int number);
  void Perform(Act act, WORD times_cleared, int number);

  ListView& list_;
  ListViewColumns columns_;
  ListViewSnapshot snapshot_;
  ListViewBackground background_;
  ListViewToolTip tool_tip_;

  std::wstring long_text_;  // the last one that the window has no room for; it reads it at once
  std::vector<std::string> small_icons_;
  bool style_shown_ = false;
  bool check_boxes_ = false;
  unsigned times_cleared_ = 0;
  int row_count_ = 0;
  int selected_row_ = 0;  // in the window; rows count from 1, 0 is none
  // The same where several can be, as they were shown last.
  std::vector<ListItem*> selected_rows_;
  bool selection_noted_ = false;  // kSelectRows is posted
  HDC painting_ = nullptr;        // while it is painted
  const ListItem* followed_ = nullptr;
  ListViewSnapshot::Range in_view_;
  bool view_known_ = false;  // rows move when the window is painted
  int acts_posted_ = 0;
  bool refreshing_ = false;
  bool press_selected_ = false;  // the press of the mouse button has selected a row
};

}  // namespace tidemark
