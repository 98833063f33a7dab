// The platform's buttons: push buttons, check boxes, option buttons.
#pragma once

#include "desktop/win32/peer.h"
#include "toolkit/controls.h"
#include "toolkit/option_button.h"

namespace tidemark {

class ButtonPeer : public Peer {
 public:
  ButtonPeer(CommandButton& button, Resources& resources, HWND parent);

  void Refresh() override;
  Answer OnCommand(WORD notification) override;
  Answer OnColor(HDC context) override;
  bool TakesFocus() const override { return true; }
  Text AccessKeyText() const override { return button_.Caption(); }
  void OnAccessKey() override;
  bool OnEnter() override;

 private:
  bool IsPushButton() const { return check_box_ == nullptr && option_ == nullptr; }
  bool Checked() const;
  void ShowDefault();

  CommandButton& button_;
  const CheckBox* check_box_;   // null when it is none
  const OptionButton* option_;  // likewise
  Text caption_;
  bool shows_default_ = false;
};

}  // namespace tidemark
