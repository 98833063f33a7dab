#include "desktop/terminal/rows.h"

#include <algorithm>
#include <numeric>

#include "toolkit/tree_view.h"

namespace tidemark {
namespace {

class ListRows : public Rows {
 public:
  explicit ListRows(ListView& list) : list_(list) {}
  const Control& Source() const override { return list_; }
  const std::vector<ColumnHeader>& Columns() const override { return list_.columns; }
  bool HasCheckBoxes() const override { return list_.check_boxes; }
  int Count() const override { return list_.Count(); }
  const Text& Key(int row) const override { return list_.Item(row)->Key(); }
  const Text& ColumnText(int row, int column) const override {
    const ListItem& item = *list_.Item(row);
    return column == 0 ? item.Caption() : item.SubItem(column);
  }
  bool Checked(int row) const override { return list_.Item(row)->Checked(); }
  bool HasIcon(int row) const override { return list_.Item(row)->SmallIcon() != 0; }
  int FindKey(std::string_view key) const override { return list_.IndexOf(list_.Item(key)); }
  const void* Identity(int row) const override { return list_.Item(row); }
  int RowOf(const void* identity) const override {
    return list_.IndexOf(static_cast<const ListItem*>(identity));
  }
  const void* SelectedIdentity() const override { return list_.SelectedItem(); }
  const void* VisibleIdentity() const override { return list_.VisibleItem(); }
  void UserCheck(int row, bool checked) override { list_.UserCheck(*list_.Item(row), checked); }
  void UserSelect(int row) override { list_.UserSelect(*list_.Item(row)); }
  void UserSelectRange(int first, int last, int current) override {
    std::vector<int> rows(static_cast<std::size_t>(last - first + 1));
    std::iota(rows.begin(), rows.end(), first);
    list_.UserSelectRows(rows, current);
  }
  void UserDoubleClick() override { list_.UserDoubleClick(); }
  void UserContextMenu(int row) override { list_.UserContextMenu(list_.Item(row)); }
  void UserColumnClick(int column) override { list_.UserColumnClick(column); }
  bool CanBeOpened() const override { return list_.DoubleClicked.IsBound(); }
  bool HasMenu() const override { return list_.ContextMenu.IsBound(); }
  unsigned TimesCleared() const override { return list_.TimesCleared(); }

 private:
  ListView& list_;
};

class TreeRows : public Rows {
 public:
  explicit TreeRows(TreeView& tree) : tree_(tree) {}
  const Control& Source() const override { return tree_; }
  const std::vector<ColumnHeader>& Columns() const override {
    static const std::vector<ColumnHeader> kOneColumn = {{{}, 1, {}}};
    return kOneColumn;
  }
  bool HasCheckBoxes() const override { return tree_.check_boxes; }
  int Count() const override { return tree_.Count(); }
  const Text& Key(int row) const override { return tree_.Node(row)->Key(); }
  const Text& ColumnText(int row, int /*column*/) const override {
    return tree_.Node(row)->Caption();
  }
  bool Checked(int row) const override { return tree_.Node(row)->Checked(); }
  bool HasIcon(int row) const override { return tree_.Node(row)->Image() != 0; }
  int FindKey(std::string_view key) const override {
    int row = Count();
    while (row > 0 && !(tree_.Node(row)->Key() == key)) --row;
    return row;
  }
  const void* Identity(int row) const override { return tree_.Node(row); }
  int RowOf(const void* identity) const override {
    int row = identity == nullptr ? 0 : Count();
    while (row > 0 && tree_.Node(row) != identity) --row;
    return row;
  }
  const void* SelectedIdentity() const override { return tree_.SelectedItem(); }
  const void* VisibleIdentity() const override { return nullptr; }
  void UserCheck(int row, bool checked) override {
    TreeNode& node = *tree_.Node(row);
    if (node.Checked() != checked) tree_.UserCheck(node, checked);
  }
  void UserSelect(int row) override { tree_.Select(tree_.Node(row)); }
  unsigned TimesCleared() const override { return tree_.TimesCleared(); }

 private:
  TreeView& tree_;
};

}  // namespace

bool Rows::HasHeadings() const {
  return std::any_of(Columns().begin(), Columns().end(),
                     [](const ColumnHeader& header) { return !header.text.empty(); });
}

std::unique_ptr<Rows> RowsOf(Control& control) {
  if (auto* list = dynamic_cast<ListView*>(&control)) return std::make_unique<ListRows>(*list);
  if (auto* tree = dynamic_cast<TreeView*>(&control)) return std::make_unique<TreeRows>(*tree);
  return nullptr;
}

}  // namespace tidemark
