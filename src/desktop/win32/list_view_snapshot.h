// What a list's window shows in the rows in view, so that only rows that have changed are painted
// again. A row is a few counted texts: nothing is copied.
#pragma once

#include <array>
#include <vector>

#include "toolkit/list_view.h"

namespace tidemark {

class ListViewSnapshot {
 public:
  // Rows from first to last, counted from 1; none when last is smaller.
  struct Range {
    int first = 1;
    int last = 0;
    bool Empty() const { return last < first; }
  };

  // Takes the rows in view as they are now; the answer spans those that differ from what was shown,
  // or were not in view.
  Range Take(const ListView& list, Range in_view);
  // The window asks for a row, probably to paint it. A row that is not as in the snapshot is
  // painted anew at the next Take, wholly.
  void NoteAsked(const ListItem& item, int number);
  void Clear() { rows_.clear(); }

 private:
  struct Row {
    std::array<Text, ListItem::kMaxSubItems + 1> texts;
    int icon = 0;
    bool checked = false;
    bool known = false;
    bool Shows(const ListItem& item) const;
    void Take(const ListItem& item);
  };

  void Scroll(Range in_view);

  int first_ = 1;
  std::vector<Row> rows_;  // from row first_ on
};

}  // namespace tidemark
