#include "desktop/terminal/screen/list_acts.h"

#include <algorithm>

#include "platform/letter_case.h"

namespace tidemark {
namespace {

bool HoldsText(const Rows& list, int row, const std::string& lower_case) {
  for (int column = 0; column < static_cast<int>(list.Columns().size()); ++column) {
    if (list.Columns()[static_cast<std::size_t>(column)].width_twips <= 0) continue;
    const std::string text = LowerCase(list.ColumnText(row, column).View());
    if (text.find(lower_case) != std::string::npos) return true;
  }
  return false;
}

}  // namespace

void ListRange::Begin(const Rows& list, int row) {
  list_ = list.Source().Name();
  times_cleared_ = list.TimesCleared();
  anchor_ = end_ = row;
}

bool ListRange::IsOf(const Rows& list) const {
  return anchor_ != 0 && list_ == list.Source().Name() && times_cleared_ == list.TimesCleared();
}

bool ListRange::Holds(const Rows& list, int row) const {
  return IsOf(list) && row >= First() && row <= Last();
}

int ListRange::First() const { return std::min(anchor_, end_); }
int ListRange::Last() const { return std::max(anchor_, end_); }

int SelectedRow(const Rows& list) { return list.RowOf(list.SelectedIdentity()); }

bool MoveInList(Rows& list, const ListShape& shape, ListRange& range, Key key) {
  const int here = SelectedRow(list);
  const int view = std::max(shape.rows_in_view, 1);
  int target = 0;
  switch (key) {
    case Key::kUp:
    case Key::kShiftUp:
      target = here - 1;
      break;
    case Key::kDown:
    case Key::kShiftDown:
      target = here + 1;
      break;
    case Key::kPageUp:
      target = here - view;
      break;
    case Key::kPageDown:
      target = here + view;
      break;
    case Key::kHome:
      target = 1;
      break;
    case Key::kEnd:
      target = list.Count();
      break;
    default:
      return false;
  }
  if (list.Count() == 0) return true;
  target = std::clamp(target, 1, list.Count());
  if (key != Key::kShiftUp && key != Key::kShiftDown) {
    range.Clear();
  } else {
    if (!range.IsOf(list)) range.Begin(list, std::max(here, 1));
    range.Extend(target);
  }
  if (range.IsOf(list)) {
    list.UserSelectRange(range.First(), range.Last(), target);
  } else if (target != here) {
    list.UserSelect(target);
  }
  return true;
}

void TickInList(Rows& list, const ListShape& shape, const ListRange& range) {
  if (!list.HasCheckBoxes() || list.Count() == 0) return;
  int row = SelectedRow(list);
  if (row == 0) list.UserSelect(row = shape.first_row);
  const bool checked = !list.Checked(row);
  const bool is_range = range.IsOf(list);
  const unsigned times_cleared = list.TimesCleared();
  const int last = is_range ? range.Last() : row;
  // A handler may change the list.
  for (int each = is_range ? range.First() : row;
       each <= std::min(last, list.Count()) && list.TimesCleared() == times_cleared; ++each) {
    list.UserCheck(each, checked);
  }
}

bool FindInList(Rows& list, std::string_view text, FindFrom from) {
  const std::string wanted = LowerCase(text);
  const int count = list.Count();
  const int here = std::max(SelectedRow(list), 1);
  const int step = from == FindFrom::kPrevious ? count - 1 : 1;
  int row = from == FindFrom::kHere ? here : (here - 1 + step) % std::max(count, 1) + 1;
  for (int tries = 0; tries < count; ++tries) {
    if (HoldsText(list, row, wanted)) {
      list.UserSelect(row);
      return true;
    }
    row = (row - 1 + step) % count + 1;
  }
  return false;
}

}  // namespace tidemark
