#include "desktop/win32/form_peers.h"

#include <algorithm>
#include <utility>

#include "desktop/win32/peer_factory.h"
#include "desktop/win32/window_metrics.h"
#include "toolkit/covering.h"

namespace tidemark {
namespace {

// Tops that differ by less stand on one line.
constexpr int kSameLine_px = 10;

}  // namespace

struct FormPeers::Node {
  Control* control = nullptr;
  std::unique_ptr<Peer> peer;  // null for the form itself
  std::vector<Node> inner;
  std::vector<Control*> order;  // the inner controls as their windows lie, from back to front
};

FormPeers::FormPeers(Form& form, Resources& resources, HWND window)
    : root_(std::make_unique<Node>()) {
  root_->control = &form;
  Grow(*root_, resources, window);
}

FormPeers::~FormPeers() = default;

void FormPeers::Grow(Node& node, Resources& resources, HWND window) {
  for (Control* control : node.control->Controls()) {
    if (LiesOutside(*control)) continue;
    auto peer = MakePeer(*control, resources, window);
    if (!peer) continue;
    const HWND peer_window = peer->Window();
    node.inner.push_back({.control = control, .peer = std::move(peer), .inner = {}, .order = {}});
    Grow(node.inner.back(), resources, peer_window);
  }
}

template <class Act>
void FormPeers::ForAll(Node& node, Act act) {
  for (Node& inner : node.inner) {
    act(*inner.peer);
    ForAll(inner, act);
  }
}

void FormPeers::Forget() {
  ForAll(*root_, [](Peer& peer) { peer.Forget(); });
}

void FormPeers::Abandon() {
  ForAll(*root_, [](Peer& peer) { peer.Abandon(); });
}

HWND FormPeers::WindowOf(const Control& control) const {
  HWND window = nullptr;
  ForAll(*root_, [&](const Peer& peer) {
    if (&peer.GetControl() == &control) window = peer.Window();
  });
  return window;
}

void FormPeers::Refresh() { RefreshNode(*root_); }

// What disappears goes first, and a panel appears with its controls in place.
void FormPeers::RefreshNode(Node& node) {
  for (Node& inner : node.inner) {
    if (!inner.peer->IsInSight()) inner.peer->Refresh();
  }
  RefreshOrder(node);
  for (Node& inner : node.inner) {
    if (!inner.peer->IsInSight()) continue;
    RefreshNode(inner);
    inner.peer->Refresh();
  }
}

void FormPeers::RefreshOrder(Node& node) {
  const auto& controls = node.control->Controls();
  if (node.order == controls) return;
  node.order = controls;
  HWND in_front = HWND_TOP;
  for (auto control = controls.rbegin(); control != controls.rend(); ++control) {
    const auto inner =
        std::find_if(node.inner.begin(), node.inner.end(),
                     [control](const Node& other) { return other.control == *control; });
    if (inner == node.inner.end()) continue;
    SetWindowPos(inner->peer->Window(), in_front, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    in_front = inner->peer->Window();
  }
}

bool FormPeers::IsReachable(const Peer& peer) {
  return peer.TakesFocus() && CanBeReached(peer.GetControl());
}

std::vector<Peer*> FormPeers::Reachable() const {
  std::vector<Peer*> peers;
  ForAll(*root_, [&peers](Peer& peer) {
    if (IsReachable(peer)) peers.push_back(&peer);
  });
  std::stable_sort(peers.begin(), peers.end(), [](const Peer* left, const Peer* right) {
    return PlaceOnScreen(left->Window()).top < PlaceOnScreen(right->Window()).top;
  });
  for (auto line = peers.begin(); line != peers.end();) {
    const LONG top = PlaceOnScreen((*line)->Window()).top;
    const auto end = std::find_if(line, peers.end(), [top](const Peer* peer) {
      return PlaceOnScreen(peer->Window()).top >= top + kSameLine_px;
    });
    std::stable_sort(line, end, [](const Peer* left, const Peer* right) {
      return PlaceOnScreen(left->Window()).left < PlaceOnScreen(right->Window()).left;
    });
    line = end;
  }
  return peers;
}

}  // namespace tidemark
