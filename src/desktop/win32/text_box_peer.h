// A box with one line of text. What a person types goes to the control at once.
#pragma once

#include "desktop/win32/peer.h"
#include "toolkit/text_box.h"

namespace tidemark {

class TextBoxPeer : public Peer {
 public:
  TextBoxPeer(TextBox& box, Resources& resources, HWND parent);

  void Refresh() override;
  Answer OnCommand(WORD notification) override;
  Answer OnColor(HDC context) override;
  Answer OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  bool TakesFocus() const override { return true; }

 private:
  TextBox& box_;
  tidemark::Text text_;
  bool locked_ = false;
  bool refreshing_ = false;  // a change of the window's text is the program's own
};

}  // namespace tidemark
