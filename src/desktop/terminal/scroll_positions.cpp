#include "desktop/terminal/scroll_positions.h"

#include <algorithm>

namespace tidemark {

int ScrollPositions::FirstRow(const Rows& list, int rows_in_view) {
  Position& position = positions_[list.Source().Name()];
  position.rows_in_view = std::max(rows_in_view, 1);
  const void* follow = nullptr;
  if (list.VisibleIdentity() != position.followed)
    follow = position.followed = list.VisibleIdentity();
  if (list.SelectedIdentity() != position.selected)
    follow = position.selected = list.SelectedIdentity();
  if (follow != nullptr) {
    const int row = list.RowOf(follow);
    if (row >= position.first + position.rows_in_view) {
      position.first = row - position.rows_in_view + 1;
    } else if (row > 0 && row < position.first) {
      position.first = row;
    }
  }
  const int last_first = std::max(1, list.Count() - position.rows_in_view + 1);
  position.first = std::clamp(position.first, 1, last_first);
  return position.first;
}

void ScrollPositions::ScrollBy(const Rows& list, int views) {
  ScrollByRows(list, views * positions_[list.Source().Name()].rows_in_view);
}

void ScrollPositions::ScrollByRows(const Rows& list, int rows) {
  ScrollTo(list, positions_[list.Source().Name()].first + rows);
}

void ScrollPositions::ScrollTo(const Rows& list, int row) {
  positions_[list.Source().Name()].first = std::clamp(row, 1, std::max(1, list.Count()));
}

}  // namespace tidemark
