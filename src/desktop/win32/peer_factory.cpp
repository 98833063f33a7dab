#include "desktop/win32/peer_factory.h"

#include <array>

#include "controls/GetFolder.h"
#include "desktop/win32/animation_peer.h"
#include "desktop/win32/button_peer.h"
#include "desktop/win32/image_peer.h"
#include "desktop/win32/label_peer.h"
#include "desktop/win32/list_view_peer.h"
#include "desktop/win32/panel_peer.h"
#include "desktop/win32/progress_bar_peer.h"
#include "desktop/win32/text_box_peer.h"
#include "desktop/win32/tree_view_peer.h"
#include "desktop/win32/xpcmdbutton_peer.h"

namespace tidemark {
namespace {

template <class ControlType, class PeerType>
std::unique_ptr<Peer> MakeIf(Control& control, Resources& resources, HWND parent) {
  auto* matching = dynamic_cast<ControlType*>(&control);
  if (matching == nullptr) return nullptr;
  return std::make_unique<PeerType>(*matching, resources, parent);
}

// A derived class stands before its base.
constexpr std::array kMakers = {
    MakeIf<CommandButton, ButtonPeer>, MakeIf<Label, LabelPeer>,
    MakeIf<PictureBox, PanelPeer>,     MakeIf<Animation, AnimationPeer>,
    MakeIf<ImageBox, ImagePeer>,       MakeIf<xpcmdbutton, xpcmdbuttonPeer>,
    MakeIf<CanvasControl, CanvasPeer>, MakeIf<ListView, ListViewPeer>,
    MakeIf<TreeView, TreeViewPeer>,    MakeIf<ProgressBar, ProgressBarPeer>,
    MakeIf<TextBox, TextBoxPeer>,      MakeIf<GetFolder, PanelPeer>,
};

}  // namespace

std::unique_ptr<Peer> MakePeer(Control& control, Resources& resources, HWND parent) {
  for (const auto& make : kMakers) {
    if (auto peer = make(control, resources, parent)) return peer;
  }
  return nullptr;
}

}  // namespace tidemark
