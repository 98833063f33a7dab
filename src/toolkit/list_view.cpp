#include "toolkit/list_view.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <optional>
#include <utility>

#include "platform/letter_case.h"
#include "platform/locale_texts.h"

namespace tidemark {
namespace {

// A number for the order of numbers or dates; 0 for a text that is none.
std::uint64_t Rank(const Text& text, SortAs as) {
  if (as == SortAs::kNumber) {
    std::uint64_t number = 0;
    const std::string_view digits = text.View();
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number + (digits.empty() ? 0 : 1);
  }
  const std::optional<SYSTEMTIME> date = ParseDate(text.String());
  if (!date) return 0;
  std::uint64_t rank = date->wYear;
  for (const WORD part : {date->wMonth, date->wDay, date->wHour, date->wMinute, date->wSecond}) {
    rank = rank * 100 + part;
  }
  return rank;
}

}  // namespace

const Text& ListItem::SubItem(int index) const {
  static const Text kEmpty;
  if (index < 1 || index > kMaxSubItems) return kEmpty;
  return texts_[static_cast<std::size_t>(index)];
}

void ListItem::SetSubItem(int index, Text text) {
  if (index >= 1 && index <= kMaxSubItems) {
    texts_[static_cast<std::size_t>(index)] = std::move(text);
  }
}

ListItem* ListView::Item(int index) {
  if (index < 1 || index > Count()) return nullptr;
  return order_[static_cast<std::size_t>(index) - 1];
}

int ListView::IndexOf(const ListItem* item) const {
  const auto found = std::find(order_.begin(), order_.end(), item);
  return item == nullptr || found == order_.end() ? 0
                                                  : static_cast<int>(found - order_.begin()) + 1;
}

ListItem* ListView::Item(std::string_view key) {
  if (key.empty() || index_.empty()) return nullptr;
  const std::uint32_t row = index_[FindSlot(key, HashOf(key))].row;
  return row == 0 ? nullptr : &rows_[row - 1];
}

ListItem* ListView::Add(Text key, Text caption) {
  if (!key.empty()) {
    if ((rows_.size() + 1) * 2 > index_.size()) GrowIndex();
    const std::uint32_t hash = HashOf(key.View());
    Slot& slot = index_[FindSlot(key.View(), hash)];
    if (slot.row != 0) return nullptr;
    slot = {hash, static_cast<std::uint32_t>(rows_.size() + 1)};
  }
  ListItem& row = rows_.emplace_back();
  row.key_ = std::move(key);
  row.texts_[0] = std::move(caption);
  Insert(&row);
  return &row;
}

void ListView::Insert(ListItem* row) {
  const auto before = [this](const ListItem* left, const ListItem* right) {
    return Before(*left, *right);
  };
  const auto place =
      sorted_ ? std::upper_bound(order_.begin(), order_.end(), row, before) : order_.end();
  order_.insert(place, row);
}

void ListView::PutInOrder(ListItem* row) {
  const auto place = sorted_ ? std::find(order_.begin(), order_.end(), row) : order_.end();
  if (place == order_.end()) return;
  order_.erase(place);
  Insert(row);
}

// In the index the row stays behind as one whose key nobody can ask for.
void ListView::Remove(int index) {
  ListItem* row = Item(index);
  if (row == nullptr) return;
  if (selected_ == row) selected_ = nullptr;
  std::erase(selected_rows_, row);
  if (ensure_visible_ == row) ensure_visible_ = nullptr;
  order_.erase(order_.begin() + (index - 1));
  *row = ListItem();
}

// The index keeps its size: a list is often filled again with as many rows.
void ListView::Clear() {
  ++times_cleared_;
  selected_ = nullptr;
  selected_rows_.clear();
  ensure_visible_ = nullptr;
  order_.clear();
  rows_.clear();
  std::fill(index_.begin(), index_.end(), Slot{});
}

std::uint32_t ListView::HashOf(std::string_view key) {
  return static_cast<std::uint32_t>(std::hash<std::string_view>()(key));
}

std::size_t ListView::FindSlot(std::string_view key, std::uint32_t hash) const {
  const std::size_t mask = index_.size() - 1;
  std::size_t place = hash & mask;
  while (index_[place].row != 0 &&
         (index_[place].hash != hash || !(rows_[index_[place].row - 1].key_ == key))) {
    place = (place + 1) & mask;
  }
  return place;
}

void ListView::GrowIndex() {
  const std::vector<Slot> former =
      std::exchange(index_, std::vector<Slot>(std::max<std::size_t>(64, index_.size() * 2)));
  const std::size_t mask = index_.size() - 1;
  for (const Slot& slot : former) {
    if (slot.row == 0) continue;
    std::size_t place = slot.hash & mask;
    while (index_[place].row != 0) place = (place + 1) & mask;
    index_[place] = slot;
  }
}

SortAs ListView::SortsAs() const {
  const auto column = static_cast<std::size_t>(sort_key_);
  return column < columns.size() ? columns[column].sort_as : SortAs::kText;
}

bool ListView::Before(const ListItem& left, const ListItem& right) const {
  const auto column = static_cast<std::size_t>(std::clamp(sort_key_, 0, ListItem::kMaxSubItems));
  if (const SortAs as = SortsAs(); as != SortAs::kText) {
    const std::uint64_t first = Rank(left.texts_[column], as);
    const std::uint64_t second = Rank(right.texts_[column], as);
    return sort_order_ == SortOrder::kAscending ? first < second : first > second;
  }
  const int order = CompareIgnoringCase(left.texts_[column].View(), right.texts_[column].View());
  return sort_order_ == SortOrder::kAscending ? order < 0 : order > 0;
}

void ListView::SortRows() {
  if (const SortAs as = SortsAs(); as != SortAs::kText) {
    // A text is read once, not at each comparison.
    std::vector<std::pair<std::uint64_t, ListItem*>> ranked;
    for (ListItem* row : order_) {
      ranked.emplace_back(Rank(row->texts_[static_cast<std::size_t>(sort_key_)], as), row);
    }
    const bool ascending = sort_order_ == SortOrder::kAscending;
    std::stable_sort(ranked.begin(), ranked.end(),
                     [ascending](const auto& left, const auto& right) {
                       return ascending ? left.first < right.first : left.first > right.first;
                     });
    std::transform(ranked.begin(), ranked.end(), order_.begin(),
                   [](const auto& row) { return row.second; });
    return;
  }
  std::stable_sort(
      order_.begin(), order_.end(),
      [this](const ListItem* left, const ListItem* right) { return Before(*left, *right); });
}

void ListView::SortBy(int sort_key, SortOrder order) {
  sort_key_ = sort_key;
  sort_order_ = order;
  if (sorted_) SortRows();
}

void ListView::SetSorted(bool sorted) {
  if (sorted && !sorted_) SortRows();
  sorted_ = sorted;
}

void ListView::SortInTurns(int column) {
  if (column < 1 || column > static_cast<int>(columns.size())) return;
  ColumnHeader& header = columns[static_cast<std::size_t>(column) - 1];
  const bool descending = header.tag == "A";
  header.tag = descending ? "D" : "A";
  SortBy(column - 1, descending ? SortOrder::kDescending : SortOrder::kAscending);
  SetSorted(true);
}

void ListView::Select(ListItem* item) {
  for (ListItem* row : selected_rows_) row->selected_ = false;
  selected_rows_.clear();
  selected_ = item;
  if (item == nullptr) return;
  item->selected_ = true;
  selected_rows_.push_back(item);
}

std::string ListView::SelectedText() const {
  std::string text;
  for (const ListItem* row : order_) {
    if (!row->selected_) continue;
    bool first = true;
    for (std::size_t column = 0; column < columns.size(); ++column) {
      if (columns[column].width_twips <= 0) continue;
      if (!std::exchange(first, false)) text += '\t';
      for (const char character : row->texts_[column].View()) {
        text += character == '\t' || character == '\r' || character == '\n' ? ' ' : character;
      }
    }
    text += "\r\n";
  }
  return text;
}

void ListView::UserSelect(ListItem& item) {
  if (!Enabled()) return;
  Select(&item);
  Clicked();
  MouseUp();
}

void ListView::UserSelectRows(const std::vector<int>& rows, int current) {
  if (!Enabled()) return;
  ListItem* focused = Item(current);
  if (!multi_select) return focused == nullptr ? void() : UserSelect(*focused);
  std::vector<ListItem*> wanted;
  for (const int row : rows) {
    if (ListItem* item = Item(row)) wanted.push_back(item);
  }
  if (wanted == selected_rows_ && focused == selected_) return;
  Select(nullptr);
  for (ListItem* row : wanted) row->selected_ = true;
  selected_rows_ = std::move(wanted);
  selected_ = focused;
  Clicked();
  MouseUp();
}

void ListView::UserCheck(ListItem& item, bool checked) {
  if (!Enabled() || !check_boxes || item.Checked() == checked) return;
  item.SetChecked(checked);
  ItemChecked(item);
}

void ListView::UserToggle(ListItem& item) {
  const bool checked = !item.Checked();
  if (!item.selected_) return UserCheck(item, checked);
  const unsigned times_cleared = times_cleared_;
  // A handler may change the list.
  for (const std::vector<ListItem*> rows = selected_rows_; ListItem * row : rows) {
    if (times_cleared == times_cleared_) UserCheck(*row, checked);
  }
}

void ListView::UserColumnClick(int column) {
  if (Enabled()) ColumnClicked(column);
}

void ListView::UserDoubleClick() {
  if (Enabled()) DoubleClicked();
}

void ListView::UserContextMenu(ListItem* item) {
  if (!Enabled()) return;
  if (item != nullptr && item->selected_ && selected_rows_.size() > 1) {
    // The menu of one of several selected rows is theirs.
    selected_ = item;
    Clicked();
    MouseUp();
  } else if (item != nullptr) {
    UserSelect(*item);
  }
  ContextMenu();
}

}  // namespace tidemark
