#include "desktop/win32/tree_view_peer.h"

#include <uxtheme.h>
#include <windowsx.h>

#include "platform/windows/wide_text.h"

namespace tidemark {
namespace {

// A tick is posted and becomes an event when the platform's tree is through with the message behind
// it: a handler may do anything to the tree.
constexpr UINT kCheckNode = WM_APP + 0x40;
constexpr int kRowHeightAt96 = 20;
constexpr LPARAM kRepeated = LPARAM{1} << 30;  // in WM_KEYDOWN: the key has been down before

}  // namespace

TreeViewPeer::TreeViewPeer(TreeView& tree, Resources& resources, HWND parent)
    : Peer(tree, resources), tree_(tree) {
  constexpr DWORD kStyle = WS_TABSTOP | TVS_SHOWSELALWAYS | TVS_FULLROWSELECT | TVS_DISABLEDRAGDROP;
  CreateWindowOf(WC_TREEVIEWA, kStyle, WS_EX_CLIENTEDGE, parent);
  TreeView_SetUnicodeFormat(window_, TRUE);
  SetWindowTheme(window_, L"Explorer", nullptr);
}

void TreeViewPeer::Forget() {
  Peer::Forget();
  // The resources may have dropped it.
  TreeView_SetImageList(window_, nullptr, TVSIL_NORMAL);
  style_shown_ = false;
  SendMessageW(window_, WM_SYSCOLORCHANGE, 0, 0);
}

void TreeViewPeer::Refresh() {
  Peer::Refresh();
  if (window_ == nullptr) return;
  refreshing_ = true;
  ShowStyle();
  ShowNodes();
  ShowSelection();
  refreshing_ = false;
}

void TreeViewPeer::ShowStyle() {
  if (style_shown_ && images_ == tree_.images) return;
  images_ = tree_.images;
  style_shown_ = true;
  TreeView_SetImageList(window_, images_.empty() ? nullptr : resources_.IconsOf(images_),
                        TVSIL_NORMAL);
  if (tree_.check_boxes) MakeCheckBoxes();
  TreeView_SetItemHeight(window_, resources_.Scaled(kRowHeightAt96));
}

// The platform draws them, in the size of the icons, when the window gets the style; all nodes are
// clear then. A window that is made with it may show the first ticks it is given as clear.
void TreeViewPeer::MakeCheckBoxes() {
  const HIMAGELIST former = TreeView_SetImageList(window_, nullptr, TVSIL_STATE);
  if (former != nullptr) ImageList_Destroy(former);
  const LONG_PTR style = GetWindowLongPtrW(window_, GWL_STYLE) & ~LONG_PTR{TVS_CHECKBOXES};
  SetWindowLongPtrW(window_, GWL_STYLE, style);
  SetWindowLongPtrW(window_, GWL_STYLE, style | TVS_CHECKBOXES);
  for (const ShownNode& shown : nodes_) ShowTick(shown);
}

// Of the platform's pictures 1 is clear, 2 ticked.
void TreeViewPeer::ShowTick(const ShownNode& shown) {
  TreeView_SetItemState(window_, shown.item, INDEXTOSTATEIMAGEMASK(shown.checked ? 2U : 1U),
                        TVIS_STATEIMAGEMASK);
}

void TreeViewPeer::ShowNodes() {
  if (times_cleared_ != tree_.TimesCleared()) {
    times_cleared_ = tree_.TimesCleared();
    nodes_.clear();
    selected_ = nullptr;
    TreeView_DeleteAllItems(window_);
  }
  for (int number = 1; number <= tree_.Count(); ++number) {
    const TreeNode& node = *tree_.Node(number);
    if (number > static_cast<int>(nodes_.size())) AddNode(node);
    ShownNode& shown = nodes_[static_cast<std::size_t>(number) - 1];
    if (shown.checked == node.Checked()) continue;
    shown.checked = node.Checked();
    ShowTick(shown);
  }
}

void TreeViewPeer::AddNode(const TreeNode& node) {
  std::wstring caption = Wide(node.Caption().View());
  TVINSERTSTRUCTW insert = {};
  insert.hParent = TVI_ROOT;
  insert.hInsertAfter = TVI_LAST;
  insert.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM;
  insert.item.pszText = caption.data();
  insert.item.iImage = node.Image() > 0 ? node.Image() - 1 : I_IMAGENONE;
  insert.item.iSelectedImage = insert.item.iImage;
  insert.item.lParam = static_cast<LPARAM>(nodes_.size()) + 1;
  ShownNode shown;
  shown.item = reinterpret_cast<HTREEITEM>(  // NOLINT(performance-no-int-to-ptr)
      SendMessageW(window_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
  if (tree_.check_boxes) ShowTick(shown);
  nodes_.push_back(shown);
}

void TreeViewPeer::ShowSelection() {
  const HTREEITEM item = ItemOf(tree_.SelectedItem());
  if (item == selected_) return;
  selected_ = item;
  TreeView_SelectItem(window_, item);
}

HTREEITEM TreeViewPeer::ItemOf(const TreeNode* node) const {
  for (int number = 1; node != nullptr && number <= static_cast<int>(nodes_.size()); ++number) {
    if (tree_.Node(number) == node) return nodes_[static_cast<std::size_t>(number) - 1].item;
  }
  return nullptr;
}

int TreeViewPeer::NumberOf(HTREEITEM item) const {
  TVITEMW asked = {};
  asked.mask = TVIF_HANDLE | TVIF_PARAM;
  asked.hItem = item;
  if (item == nullptr) return 0;
  SendMessageW(window_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&asked));
  return static_cast<int>(asked.lParam);
}

int TreeViewPeer::CheckBoxAt(POINT point) const {
  TVHITTESTINFO hit = {};
  hit.pt = point;
  const HTREEITEM item = TreeView_HitTest(window_, &hit);
  return (hit.flags & TVHT_ONITEMSTATEICON) != 0 ? NumberOf(item) : 0;
}

Answer TreeViewPeer::OnNotify(NMHDR& header) {
  if (header.code != TVN_SELCHANGEDW || refreshing_) return {};
  selected_ = reinterpret_cast<const NMTREEVIEWW&>(header).itemNew.hItem;
  tree_.Select(tree_.Node(NumberOf(selected_)));
  return 0;
}

Answer TreeViewPeer::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case kCheckNode:
      Check(static_cast<int>(lparam), wparam);
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
      const int number = CheckBoxAt({GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)});
      if (number == 0) return {};
      SetFocus(window_);
      PostCheck(number);
      return 0;
    }
    case WM_KEYDOWN:
    case WM_CHAR:
      if (wparam != VK_SPACE || !tree_.check_boxes) return {};
      if (message == WM_KEYDOWN && (lparam & kRepeated) == 0) {
        PostCheck(NumberOf(selected_));
      }
      return 0;
    default:
      return {};
  }
}

void TreeViewPeer::PostCheck(int number) {
  if (number != 0) PostMessageW(window_, kCheckNode, tree_.TimesCleared(), number);
}

void TreeViewPeer::Check(int number, WPARAM times_cleared) {
  // A box that a handler has shown meanwhile keeps everything behind it still.
  if (IsWindowVisible(window_) == FALSE ||
      IsWindowEnabled(GetAncestor(window_, GA_ROOT)) == FALSE) {
    return;
  }
  TreeNode* node = times_cleared == tree_.TimesCleared() ? tree_.Node(number) : nullptr;
  if (node != nullptr) tree_.UserCheck(*node, !node->Checked());
}

}  // namespace tidemark
