// The keyboard in a form: Tab, arrow keys among options and tabs, access keys, Enter and Esc, and
// where the focus goes when its control disappears.
#pragma once

#include <string_view>
#include <vector>

#include "desktop/win32/form_peers.h"
#include "platform/winapi.h"

namespace tidemark {

class FormKeyboard {
 public:
  FormKeyboard(const Form& form, const FormPeers& peers, Resources& resources)
      : form_(form), peers_(peers), resources_(resources) {}

  // Takes a message out of the queue's stream when it is the form's: true, and it is done with. A
  // handler runs as its last act.
  bool Takes(const MSG& message);

  // While the form is the active window: remembers which control has the focus, before a refresh
  // may hide it, and gives the focus to another one if need be, after it. That is the one nearest
  // to the former place on the same panel, or the first one on another.
  void NoteFocus();
  void KeepFocus();

  // The lower-case character behind the first "&" that is not doubled; 0 for none.
  static char AccessKeyOf(std::string_view text);

 private:
  bool OnKey(WPARAM key, Peer* focused);
  bool MoveByTab(bool back) const;
  bool MoveByArrow(WPARAM key, const Peer& focused) const;
  bool OnAccessKey(WPARAM character) const;
  bool ClickCommand(bool (CommandButton::*wanted)() const) const;

  Peer& Successor(const std::vector<Peer*>& reachable) const;
  static Peer& First(const std::vector<Peer*>& peers);

  // The person works with the keyboard.
  void MoveFocusTo(const Peer& peer) const;

  const Form& form_;
  const FormPeers& peers_;
  Resources& resources_;
  const Control* last_panel_ = nullptr;  // the container of the control that had the focus last
  RECT last_place_{};                    // of that control, on the screen
};

}  // namespace tidemark
