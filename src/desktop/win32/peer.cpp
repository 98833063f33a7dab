#include "desktop/win32/peer.h"

#include <unordered_map>

#include "desktop/win32/accessibility.h"
#include "desktop/win32/guarded.h"
#include "toolkit/covering.h"
// It wants the platform's headers before it.
#include <commctrl.h>

namespace tidemark {
namespace {

constexpr UINT_PTR kSubclass = 1;

// By window. All windows belong to the one user-interface thread.
std::unordered_map<HWND, Peer*>& Peers() {
  static std::unordered_map<HWND, Peer*> peers;
  return peers;
}

bool SameRect(const RECT& left, const RECT& right) { return EqualRect(&left, &right) != FALSE; }

}  // namespace

struct Peer::Shown {
  std::optional<RECT> place;
  bool visible = false;
  bool enabled = true;
  HFONT font = nullptr;
  Text tool_tip;
  Text accessible_name;
  HWND tool_tip_window = nullptr;
};

Peer::Peer(Control& control, Resources& resources)
    : control_(control), resources_(resources), shown_(std::make_unique<Shown>()) {}

Peer::~Peer() {
  if (window_ == nullptr) return;
  const HWND window = window_;
  Abandon();
  DestroyWindow(window);
}

void Peer::Abandon() {
  if (window_ == nullptr) return;
  ForgetAccessible(window_);
  RemoveWindowSubclass(window_, Procedure, kSubclass);
  Peers().erase(window_);
  window_ = nullptr;
}

Peer* Peer::Of(HWND window) {
  const auto found = Peers().find(window);
  return found == Peers().end() ? nullptr : found->second;
}

void Peer::CreateWindowOf(const char* window_class, DWORD style, DWORD extended_style,
                          HWND parent) {
  window_ = CreateWindowExA(extended_style, window_class, "", style | WS_CHILD | WS_CLIPSIBLINGS, 0,
                            0, 0, 0, parent, nullptr, GetModuleHandleA(nullptr), nullptr);
  if (window_ == nullptr) return;
  SetWindowSubclass(window_, Procedure, kSubclass, reinterpret_cast<DWORD_PTR>(this));
  Peers()[window_] = this;
}

Answer Peer::HandBack(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_COMMAND:
      if (Peer* peer = Of(reinterpret_cast<HWND>(lparam))) return peer->OnCommand(HIWORD(wparam));
      return {};
    case WM_NOTIFY: {
      NMHDR& header = *reinterpret_cast<NMHDR*>(lparam);
      if (Peer* peer = Of(header.hwndFrom)) return peer->OnNotify(header);
      return {};
    }
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lparam);
      if (item.CtlType == ODT_MENU) return {};
      if (Peer* peer = Of(item.hwndItem)) return peer->OnDraw(item);
      return {};
    }
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSTATIC:
      if (Peer* peer = Of(reinterpret_cast<HWND>(lparam))) {
        return peer->OnColor(reinterpret_cast<HDC>(wparam));
      }
      return {};
    default:
      return {};
  }
}

LRESULT CALLBACK Peer::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                                 UINT_PTR /*id*/, DWORD_PTR peer) {
  return Guarded(
      [=] { return reinterpret_cast<Peer*>(peer)->OnProcedure(window, message, wparam, lparam); });
}

LRESULT Peer::OnProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_NCDESTROY) {
    Abandon();
    return DefSubclassProc(window, message, wparam, lparam);
  }
  if (const Answer answer = HandBack(message, wparam, lparam)) return *answer;
  if (const Answer answer = OnMessage(message, wparam, lparam)) return *answer;
  // A handler may have closed the form.
  return IsWindow(window) ? DefSubclassProc(window, message, wparam, lparam) : 0;
}

void Peer::Refresh() {
  if (window_ == nullptr) return;
  Shown& shown = *shown_;
  if (shown.enabled != control_.Enabled()) {
    shown.enabled = control_.Enabled();
    EnableWindow(window_, shown.enabled ? TRUE : FALSE);
  }
  const bool visible = IsInSight();
  if (visible) {
    RefreshPlace();
    RefreshText();
  }
  if (shown.visible != visible) {
    shown.visible = visible;
    ShowWindow(window_, shown.visible ? SW_SHOWNA : SW_HIDE);
  }
}

bool Peer::IsInSight() const { return control_.Visible() && !LiesOutside(control_); }

void Peer::RefreshPlace() {
  RECT place = resources_.PixelsOf(control_.Place());
  if (control_.Container()->Container() == nullptr) {
    OffsetRect(&place, -resources_.Scrolled().x, -resources_.Scrolled().y);
  }
  if (shown_->place && SameRect(*shown_->place, place)) return;
  shown_->place = place;
  SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

void Peer::RefreshText() {
  Shown& shown = *shown_;
  const HFONT font = resources_.FontOf(control_.Font());
  if (shown.font != font) {
    shown.font = font;
    SendMessageA(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  }
  if (!(shown.tool_tip == control_.ToolTipText())) {
    shown.tool_tip = control_.ToolTipText();
    ShowToolTip(shown.tool_tip);
  }
  if (!(shown.accessible_name == control_.AccessibleName())) {
    shown.accessible_name = control_.AccessibleName();
    SetAccessible(window_, shown.accessible_name.View(), Role());
  }
}

// The tool tip's window belongs to the control's top-level window and goes with it.
void Peer::ShowToolTip(const Text& text) {
  std::string tip = text.String();
  TOOLINFOA tool{};
  tool.cbSize = sizeof(tool);
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = GetParent(window_);
  tool.uId = reinterpret_cast<UINT_PTR>(window_);
  tool.lpszText = tip.data();
  const auto parameter = reinterpret_cast<LPARAM>(&tool);
  if (shown_->tool_tip_window != nullptr) {
    SendMessageA(shown_->tool_tip_window, TTM_UPDATETIPTEXTA, 0, parameter);
    return;
  }
  shown_->tool_tip_window = CreateWindowExA(
      WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_NOPREFIX, CW_USEDEFAULT,
      CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, window_, nullptr, nullptr, nullptr);
  SendMessageA(shown_->tool_tip_window, TTM_ADDTOOLA, 0, parameter);
}

void Peer::Forget() {
  shown_->place.reset();
  shown_->font = nullptr;
  if (window_ != nullptr) InvalidateRect(window_, nullptr, TRUE);
}

void Peer::OnAccessKey() {
  if (TakesFocus()) SetFocus(window_);
}

}  // namespace tidemark
