// What a person does in a list, by keys.
#pragma once

#include <string>

#include "desktop/terminal/rows.h"
#include "desktop/terminal/screen/curses_screen.h"
#include "desktop/terminal/screen/list_shape.h"

namespace tidemark {

// Rows that are marked together, from where the marking began to the selected row. It is gone when
// the list is another one, or has been cleared.
class ListRange {
 public:
  void Clear() { anchor_ = 0; }
  void Begin(const Rows& list, int row);
  void Extend(int row) { end_ = row; }
  bool IsOf(const Rows& list) const;
  bool Holds(const Rows& list, int row) const;
  int First() const;
  int Last() const;

 private:
  std::string list_;
  unsigned times_cleared_ = 0;
  int anchor_ = 0;  // 0: nothing is marked
  int end_ = 0;
};

// From 1; 0 when no row is selected. Walks the list.
int SelectedRow(const Rows& list);

// A key that moves the selection, alone or with a range behind it. False: it is none of those.
bool MoveInList(Rows& list, const ListShape& shape, ListRange& range, Key key);

// Space: turns the selected row's tick over; the rows of a range all become as it is then.
void TickInList(Rows& list, const ListShape& shape, const ListRange& range);

// Selects the next row in which a shown column holds the text, letter case ignored: from the
// selected one on, or behind or before it; round the end. False: there is none.
enum class FindFrom { kHere, kNext, kPrevious };
bool FindInList(Rows& list, std::string_view text, FindFrom from);

}  // namespace tidemark
