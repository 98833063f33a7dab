// The window of a tree view with check boxes.
#pragma once

#include <string>
#include <vector>

#include "desktop/win32/peer.h"
#include "platform/winapi.h"
#include "toolkit/tree_view.h"
// It wants the platform's headers before it.
#include <commctrl.h>

namespace tidemark {

class TreeViewPeer : public Peer {
 public:
  TreeViewPeer(TreeView& tree, Resources& resources, HWND parent);

  void Refresh() override;
  void Forget() override;
  Answer OnNotify(NMHDR& header) override;
  Answer OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  bool TakesFocus() const override { return true; }

 private:
  struct ShownNode {
    HTREEITEM item = nullptr;
    bool checked = false;
  };

  void ShowStyle();
  void MakeCheckBoxes();
  void ShowNodes();
  void ShowSelection();
  void AddNode(const TreeNode& node);
  void ShowTick(const ShownNode& shown);
  // Numbers of nodes count from 1; 0 is none.
  int NumberOf(HTREEITEM item) const;
  HTREEITEM ItemOf(const TreeNode* node) const;
  // The node whose check box is at the point.
  int CheckBoxAt(POINT point) const;
  void PostCheck(int number);
  void Check(int number, WPARAM times_cleared);

  TreeView& tree_;
  std::vector<ShownNode> nodes_;
  HTREEITEM selected_ = nullptr;  // in the window
  std::vector<std::string> images_;
  bool style_shown_ = false;
  unsigned times_cleared_ = 0;
  bool refreshing_ = false;
};

}  // namespace tidemark
