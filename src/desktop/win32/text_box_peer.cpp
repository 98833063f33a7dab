#include "desktop/win32/text_box_peer.h"

#include <string>

#include "controls/GetFolder.h"
#include "desktop/win32/colors.h"

namespace tidemark {
namespace {

constexpr int kAltShift = 4;

std::string TextOf(HWND window) {
  std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
  const int length = GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

}  // namespace

TextBoxPeer::TextBoxPeer(TextBox& box, Resources& resources, HWND parent)
    : Peer(box, resources), box_(box) {
  CreateWindowOf("EDIT", ES_AUTOHSCROLL | WS_TABSTOP, box.BorderStyle() == 0 ? 0 : WS_EX_CLIENTEDGE,
                 parent);
}

void TextBoxPeer::Refresh() {
  Peer::Refresh();
  if (!box_.Visible()) return;
  if (locked_ != box_.Locked()) {
    locked_ = box_.Locked();
    SendMessageA(window_, EM_SETREADONLY, locked_ ? TRUE : FALSE, 0);
  }
  if (text_ == box_.Text()) return;
  text_ = box_.Text();
  refreshing_ = true;
  SetWindowTextA(window_, text_.String().c_str());
  SendMessageA(window_, EM_SETSEL, static_cast<WPARAM>(box_.SelStart()),
               box_.SelStart() + box_.SelLength());
  refreshing_ = false;
}

Answer TextBoxPeer::OnCommand(WORD notification) {
  if (notification != EN_CHANGE || refreshing_) return {};
  text_ = TextOf(window_);
  box_.SetText(text_);
  return 0;
}

Answer TextBoxPeer::OnColor(HDC context) {
  SetTextColor(context, ColorOf(box_.ForeColor()));
  SetBkColor(context, ColorOf(box_.BackColor()));
  SetDCBrushColor(context, ColorOf(box_.BackColor()));
  return reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH));
}

Answer TextBoxPeer::OnMessage(UINT message, WPARAM wparam, LPARAM /*lparam*/) {
  auto* picker = dynamic_cast<GetFolder*>(box_.Container());
  if (message != WM_SYSKEYDOWN || wparam != VK_DOWN || picker == nullptr) return {};
  picker->UserKeyDown(VK_DOWN, kAltShift);
  return 0;
}

}  // namespace tidemark
