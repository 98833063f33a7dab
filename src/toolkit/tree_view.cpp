#include "toolkit/tree_view.h"

#include <algorithm>

namespace tidemark {

TreeNode* TreeView::Node(int index) {
  if (index < 1 || index > Count()) return nullptr;
  return &nodes_[static_cast<std::size_t>(index) - 1];
}

TreeNode* TreeView::Add(Text key, Text caption, int image) {
  const bool taken = std::any_of(nodes_.begin(), nodes_.end(),
                                 [&key](const TreeNode& node) { return node.Key() == key; });
  if (taken) return nullptr;
  return &nodes_.emplace_back(std::move(key), std::move(caption), image);
}

void TreeView::Clear() {
  ++times_cleared_;
  selected_ = nullptr;
  nodes_.clear();
}

void TreeView::UserCheck(TreeNode& node, bool checked) {
  if (!Enabled()) return;
  node.SetChecked(checked);
  NodeChecked(node);
}

}  // namespace tidemark
