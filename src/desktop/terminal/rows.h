// A list view or a tree view as rows, so that both are shown, found and ticked in one way.
#pragma once

#include <memory>
#include <vector>

#include "toolkit/list_view.h"

namespace tidemark {

// Rows are counted from 1 to Count(); every row that is asked for has to be one of them.
class Rows {
 public:
  Rows() = default;
  virtual ~Rows() = default;
  Rows(const Rows&) = delete;
  Rows& operator=(const Rows&) = delete;

  virtual const Control& Source() const = 0;
  // A tree has one column without a heading.
  virtual const std::vector<ColumnHeader>& Columns() const = 0;
  // Whether any column has a text in its heading.
  bool HasHeadings() const;
  virtual bool HasCheckBoxes() const = 0;
  virtual int Count() const = 0;

  virtual const Text& Key(int row) const = 0;
  // Columns from 0.
  virtual const Text& ColumnText(int row, int column) const = 0;
  virtual bool Checked(int row) const = 0;
  virtual bool HasIcon(int row) const = 0;
  // 0 when there is none.
  virtual int FindKey(std::string_view key) const = 0;

  // Tells rows apart from one moment to the next; null for none.
  virtual const void* Identity(int row) const = 0;
  virtual int RowOf(const void* identity) const = 0;  // 0 for none; walks the list
  virtual const void* SelectedIdentity() const = 0;
  virtual const void* VisibleIdentity() const = 0;  // the row that is to be scrolled into view

  // As a person does it; a row that has the tick already stays as it is.
  virtual void UserCheck(int row, bool checked) = 0;
  virtual void UserSelect(int row) = 0;
  // All rows from first to last, of which the current one has the focus; a list that can't have
  // several selects that one.
  virtual void UserSelectRange(int /*first*/, int /*last*/, int current) { UserSelect(current); }
  virtual void UserDoubleClick() {}
  virtual void UserContextMenu(int /*row*/) {}
  virtual void UserColumnClick(int /*column, from 1*/) {}
  // Whether anything comes of a double click, of a context menu.
  virtual bool CanBeOpened() const { return false; }
  virtual bool HasMenu() const { return false; }
  // How often it has been cleared: rows mean nothing beyond the next time.
  virtual unsigned TimesCleared() const = 0;
};

// Null when the control has no rows. Holds a reference to the control.
std::unique_ptr<Rows> RowsOf(Control& control);

}  // namespace tidemark
