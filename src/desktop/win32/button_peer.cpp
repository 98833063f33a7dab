#include "desktop/win32/button_peer.h"

#include "desktop/win32/colors.h"

namespace tidemark {

ButtonPeer::ButtonPeer(CommandButton& button, Resources& resources, HWND parent)
    : Peer(button, resources),
      button_(button),
      check_box_(dynamic_cast<const CheckBox*>(&button)),
      option_(dynamic_cast<const OptionButton*>(&button)) {
  const DWORD type = check_box_ != nullptr ? BS_AUTOCHECKBOX
                     : option_ != nullptr  ? BS_RADIOBUTTON
                                           : BS_PUSHBUTTON;
  CreateWindowOf("BUTTON", type, 0, parent);
  // Else an option would be chosen by the focus alone.
  if (option_ != nullptr) SendMessageA(window_, BM_SETDONTCLICK, TRUE, 0);
}

bool ButtonPeer::Checked() const {
  return check_box_ != nullptr ? check_box_->Value() == 1 : option_->Value();
}

void ButtonPeer::Refresh() {
  Peer::Refresh();
  if (!button_.Visible()) return;
  if (!(caption_ == button_.Caption())) {
    caption_ = button_.Caption();
    SetWindowTextA(window_, caption_.String().c_str());
  }
  if (IsPushButton()) {
    ShowDefault();
    return;
  }
  const bool shows_check = SendMessageA(window_, BM_GETCHECK, 0, 0) == BST_CHECKED;
  if (shows_check != Checked()) {
    SendMessageA(window_, BM_SETCHECK, Checked() ? BST_CHECKED : BST_UNCHECKED, 0);
  }
}

Answer ButtonPeer::OnCommand(WORD notification) {
  if (notification == BN_CLICKED) button_.Click();
  return 0;
}

Answer ButtonPeer::OnColor(HDC context) {
  SetTextColor(context, button_.Enabled() ? PanelTextColor() : GetSysColor(COLOR_GRAYTEXT));
  SetBkColor(context, PanelColor());
  SetDCBrushColor(context, PanelColor());
  return reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH));
}

// The push button that Enter presses looks it: the one with the focus, or else the default one.
void ButtonPeer::ShowDefault() {
  const auto* focused = dynamic_cast<const ButtonPeer*>(Peer::Of(GetFocus()));
  const bool other = focused != nullptr && focused->IsPushButton();
  const bool shows_default = other ? focused == this : button_.Default();
  if (shows_default == shows_default_) return;
  shows_default_ = shows_default;
  SendMessageA(window_, BM_SETSTYLE, shows_default ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
}

void ButtonPeer::OnAccessKey() {
  SetFocus(window_);
  SendMessageA(window_, BM_CLICK, 0, 0);
}

bool ButtonPeer::OnEnter() {
  if (!IsPushButton()) return false;
  button_.Click();
  return true;
}

}  // namespace tidemark
