#include "toolkit/list_view.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "platform/letter_case.h"

namespace tidemark {

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

ListItem* ListView::Item(std::string_view key) {
  if (key.empty() || index_.empty()) return nullptr;
  const std::uint32_t row = index_[FindSlot(key)];
  return row == 0 ? nullptr : &rows_[row - 1];
}

ListItem* ListView::Add(Text key, Text caption) {
  if (!key.empty()) {
    if (Item(key.View()) != nullptr) return nullptr;
    if ((rows_.size() + 1) * 2 > index_.size()) GrowIndex();
  }
  ListItem& row = rows_.emplace_back();
  row.key_ = std::move(key);
  row.texts_[0] = std::move(caption);
  if (!row.key_.empty()) {
    index_[FindSlot(row.key_.View())] = static_cast<std::uint32_t>(rows_.size());
  }
  const auto place = sorted_
                         ? std::upper_bound(order_.begin(), order_.end(), &row,
                                            [this](const ListItem* left, const ListItem* right) {
                                              return Before(*left, *right);
                                            })
                         : order_.end();
  order_.insert(place, &row);
  return &row;
}

void ListView::Clear() {
  selected_ = nullptr;
  ensure_visible_ = nullptr;
  order_.clear();
  rows_.clear();
  index_.clear();
}

// The slot that holds the key's row, or the free slot where it would go.
std::size_t ListView::FindSlot(std::string_view key) const {
  const std::size_t mask = index_.size() - 1;
  std::size_t slot = std::hash<std::string_view>()(key) & mask;
  while (index_[slot] != 0 && !(rows_[index_[slot] - 1].key_ == key)) slot = (slot + 1) & mask;
  return slot;
}

void ListView::GrowIndex() {
  index_.assign(std::max<std::size_t>(64, index_.size() * 2), 0);
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (rows_[row].key_.empty()) continue;
    index_[FindSlot(rows_[row].key_.View())] = static_cast<std::uint32_t>(row + 1);
  }
}

bool ListView::Before(const ListItem& left, const ListItem& right) const {
  const auto column = static_cast<std::size_t>(std::clamp(sort_key_, 0, ListItem::kMaxSubItems));
  const int order = CompareIgnoringCase(left.texts_[column].View(), right.texts_[column].View());
  return sort_order_ == SortOrder::kAscending ? order < 0 : order > 0;
}

void ListView::SortRows() {
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

void ListView::UserSelect(ListItem& item) {
  if (!Enabled()) return;
  selected_ = &item;
  Clicked();
  MouseUp();
}

void ListView::UserCheck(ListItem& item, bool checked) {
  if (!Enabled() || !check_boxes || item.Checked() == checked) return;
  item.SetChecked(checked);
  ItemChecked(item);
}

void ListView::UserColumnClick(int column) {
  if (Enabled()) ColumnClicked(column);
}

void ListView::UserDoubleClick() {
  if (Enabled()) DoubleClicked();
}

}  // namespace tidemark
