#include "desktop/win32/form_keyboard.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "desktop/win32/window_metrics.h"
#include "platform/letter_case.h"
#include "toolkit/access_key.h"
#include "toolkit/focus.h"
#include "toolkit/option_button.h"

namespace tidemark {
namespace {

constexpr LPARAM kRepeated = LPARAM{1} << 30;  // in WM_KEYDOWN: the key has been down before

// A part of a list, as its header, counts as the list.
Peer* FocusedPeer() {
  const HWND focus = GetFocus();
  if (Peer* peer = Peer::Of(focus)) return peer;
  return focus == nullptr ? nullptr : Peer::Of(GetParent(focus));
}

// How far apart two areas are; 0 when they touch.
long long DistanceOf(const RECT& left, const RECT& right) {
  const long long across = std::max({0L, left.left - right.right, right.left - left.right});
  const long long down = std::max({0L, left.top - right.bottom, right.top - left.bottom});
  return across * across + down * down;
}

// Some controls want keys for themselves.
bool WantsKey(HWND window, const MSG& message) {
  const auto wants =
      SendMessageA(window, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
  return (wants & (DLGC_WANTALLKEYS | DLGC_WANTMESSAGE)) != 0;
}

}  // namespace

char FormKeyboard::AccessKeyOf(std::string_view text) {
  const std::string key = ShowCaption(text).Key();
  return key.empty() ? '\0' : LowerCase(key)[0];
}

bool FormKeyboard::Takes(const MSG& message) {
  if (message.message == WM_SYSCHAR || (message.message == WM_CHAR && form_.IsQuestion())) {
    return OnAccessKey(message.wParam);
  }
  if (message.message != WM_KEYDOWN) return false;
  // Held down it would press the button that takes the place of the first one.
  if (message.wParam == VK_RETURN && (message.lParam & kRepeated) != 0) return true;
  Peer* focused = FocusedPeer();
  if (focused != nullptr && WantsKey(focused->Window(), message)) return false;
  return OnKey(message.wParam, focused);
}

bool FormKeyboard::OnKey(WPARAM key, Peer* focused) {
  switch (key) {
    case VK_TAB:
      return GetKeyState(VK_CONTROL) >= 0 && MoveByTab(GetKeyState(VK_SHIFT) < 0);
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
      return focused != nullptr && MoveByArrow(key, *focused);
    case VK_RETURN:
      return (focused != nullptr && focused->OnEnter()) || ClickCommand(&CommandButton::Default);
    case VK_ESCAPE:
      return ClickCommand(&CommandButton::Cancel);
    default:
      return false;
  }
}

bool FormKeyboard::MoveByTab(bool back) const {
  std::vector<Peer*> stops = peers_.Reachable();
  std::erase_if(stops, [](const Peer* peer) {
    return !IsTabStop(peer->GetControl()) && peer != FocusedPeer();
  });
  if (stops.empty()) return true;
  if (back) std::reverse(stops.begin(), stops.end());
  const auto here = std::find(stops.begin(), stops.end(), FocusedPeer());
  const bool at_end = here == stops.end() || here + 1 == stops.end();
  MoveFocusTo(at_end ? *stops.front() : **(here + 1));
  return true;
}

bool FormKeyboard::MoveByArrow(WPARAM key, const Peer& focused) const {
  std::vector<Peer*> group;
  for (Peer* peer : peers_.Reachable()) {
    if (InOneGroup(peer->GetControl(), focused.GetControl())) group.push_back(peer);
  }
  if (group.empty()) return false;
  if (key == VK_LEFT || key == VK_UP) std::reverse(group.begin(), group.end());
  const auto here = std::find(group.begin(), group.end(), &focused);
  const bool at_end = here == group.end() || here + 1 == group.end();
  Peer& next = *(at_end ? group.front() : *(here + 1));
  MoveFocusTo(next);
  if (auto* option = dynamic_cast<OptionButton*>(&next.GetControl())) option->Click();
  return true;
}

void FormKeyboard::MoveFocusTo(const Peer& peer) const {
  resources_.ShowFocus();
  SetFocus(peer.Window());
}

// Several controls with one key take the focus in turn, and none is clicked.
bool FormKeyboard::OnAccessKey(WPARAM character) const {
  const char key = static_cast<char>(character);
  const std::string wanted = LowerCase({&key, 1});
  std::vector<Peer*> matching = peers_.Reachable();
  std::erase_if(matching, [&wanted](const Peer* peer) {
    return AccessKeyOf(peer->AccessKeyText().View()) != wanted[0];
  });
  if (matching.empty()) return false;
  if (matching.size() == 1) {
    matching.front()->OnAccessKey();
    return true;
  }
  const auto here = std::find(matching.begin(), matching.end(), FocusedPeer());
  const bool at_end = here == matching.end() || here + 1 == matching.end();
  MoveFocusTo(at_end ? *matching.front() : **(here + 1));
  return true;
}

bool FormKeyboard::ClickCommand(bool (CommandButton::*wanted)() const) const {
  for (const Peer* peer : peers_.Reachable()) {
    auto* button = dynamic_cast<CommandButton*>(&peer->GetControl());
    if (button == nullptr || !(button->*wanted)()) continue;
    button->Click();
    return true;
  }
  return false;
}

void FormKeyboard::NoteFocus() {
  const Peer* focused = FocusedPeer();
  if (focused == nullptr) return;
  last_panel_ = focused->GetControl().Container();
  last_place_ = PlaceOnScreen(focused->Window());
}

void FormKeyboard::KeepFocus() {
  const Peer* focused = FocusedPeer();
  if (focused != nullptr && FormPeers::IsReachable(*focused)) return;
  const std::vector<Peer*> reachable = peers_.Reachable();
  if (!reachable.empty()) SetFocus(Successor(reachable).Window());
}

Peer& FormKeyboard::Successor(const std::vector<Peer*>& reachable) const {
  std::vector<Peer*> neighbours = reachable;
  std::erase_if(neighbours,
                [this](const Peer* peer) { return peer->GetControl().Container() != last_panel_; });
  if (neighbours.empty()) return First(reachable);
  return **std::min_element(neighbours.begin(), neighbours.end(),
                            [this](const Peer* left, const Peer* right) {
                              return DistanceOf(PlaceOnScreen(left->Window()), last_place_) <
                                     DistanceOf(PlaceOnScreen(right->Window()), last_place_);
                            });
}

// The default button, or the first control on a page.
Peer& FormKeyboard::First(const std::vector<Peer*>& peers) {
  const auto is_default = [](const Peer* peer) {
    const auto* button = dynamic_cast<const CommandButton*>(&peer->GetControl());
    return button != nullptr && button->Default();
  };
  const auto is_on_page = [](const Peer* peer) {
    return peer->GetControl().Container()->Container() != nullptr;
  };
  auto found = std::find_if(peers.begin(), peers.end(), is_default);
  if (found == peers.end()) found = std::find_if(peers.begin(), peers.end(), is_on_page);
  return found == peers.end() ? *peers.front() : **found;
}

}  // namespace tidemark
