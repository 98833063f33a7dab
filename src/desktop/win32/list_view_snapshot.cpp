#include "desktop/win32/list_view_snapshot.h"

#include <algorithm>

namespace tidemark {

bool ListViewSnapshot::Row::Shows(const ListItem& item) const {
  if (!known || icon != item.SmallIcon() || checked != item.Checked() ||
      !(texts[0] == item.Caption())) {
    return false;
  }
  for (int column = 1; column <= ListItem::kMaxSubItems; ++column) {
    if (!(texts[static_cast<std::size_t>(column)] == item.SubItem(column))) return false;
  }
  return true;
}

void ListViewSnapshot::Row::Take(const ListItem& item) {
  texts[0] = item.Caption();
  for (int column = 1; column <= ListItem::kMaxSubItems; ++column) {
    texts[static_cast<std::size_t>(column)] = item.SubItem(column);
  }
  icon = item.SmallIcon();
  checked = item.Checked();
  known = true;
}

ListViewSnapshot::Range ListViewSnapshot::Take(const ListView& list, Range in_view) {
  in_view.last = std::min(in_view.last, list.Count());
  in_view.first = std::max(in_view.first, 1);
  Scroll(in_view);
  Range changed = {in_view.last + 1, in_view.first - 1};
  for (int number = in_view.first; number <= in_view.last; ++number) {
    const ListItem& item = *list.Item(number);
    Row& row = rows_[static_cast<std::size_t>(number - in_view.first)];
    if (row.Shows(item)) continue;
    row.Take(item);
    changed.first = std::min(changed.first, number);
    changed.last = number;
  }
  return changed;
}

void ListViewSnapshot::Scroll(Range in_view) {
  const auto size = static_cast<std::size_t>(std::max(0, in_view.last - in_view.first + 1));
  if (in_view.first == first_ && size == rows_.size()) return;
  std::vector<Row> rows(size);
  for (std::size_t place = 0; place < rows_.size(); ++place) {
    const int number = first_ + static_cast<int>(place);
    if (number < in_view.first || number > in_view.last) continue;
    rows[static_cast<std::size_t>(number - in_view.first)] = std::move(rows_[place]);
  }
  first_ = in_view.first;
  rows_ = std::move(rows);
}

void ListViewSnapshot::NoteAsked(const ListItem& item, int number) {
  const int place = number - first_;
  if (place < 0 || place >= static_cast<int>(rows_.size())) return;
  Row& row = rows_[static_cast<std::size_t>(place)];
  if (!row.Shows(item)) row.known = false;
}

}  // namespace tidemark
