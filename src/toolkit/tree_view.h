// The platform's tree view with check boxes: nodes with a key, a text, a picture and a tick. The
// program's trees are one level deep.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "toolkit/control.h"

namespace tidemark {

class TreeNode {
 public:
  TreeNode(Text key, Text caption, int image)
      : key_(std::move(key)), caption_(std::move(caption)), image_(image) {}
  const Text& Key() const { return key_; }
  const Text& Caption() const { return caption_; }
  int Image() const { return image_; }  // number in the tree's image list, from 1; 0 is none
  bool Checked() const { return checked_; }
  void SetChecked(bool checked) { checked_ = checked; }

 private:
  Text key_;
  Text caption_;
  int image_ = 0;
  bool checked_ = false;
};

class TreeView : public Control {
 public:
  using Control::Control;

  bool check_boxes = false;
  // The image list: files below the program's folder, "\images\..."; number 1 first.
  std::vector<std::string> images;

  Event<TreeNode&> NodeChecked;

  int Count() const { return static_cast<int>(nodes_.size()); }
  // From 1 to Count(); null for another index.
  TreeNode* Node(int index);
  const TreeNode* Node(int index) const { return const_cast<TreeView*>(this)->Node(index); }
  // Adds a node at the end. Null, and nothing is added, when the key is taken.
  TreeNode* Add(Text key, Text caption, int image);
  void Clear();
  // How often the tree has been cleared. Nodes mean nothing beyond the next time.
  unsigned TimesCleared() const { return times_cleared_; }
  TreeNode* SelectedItem() const { return selected_; }
  void Select(TreeNode* node) { selected_ = node; }

  // As a person does it: changes the tree, then raises the event. A disabled tree does nothing.
  void UserCheck(TreeNode& node, bool checked);

 private:
  std::deque<TreeNode> nodes_;
  TreeNode* selected_ = nullptr;
  unsigned times_cleared_ = 0;
};

}  // namespace tidemark
