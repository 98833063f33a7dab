// A popup menu: items that a person clicks, and separators.
#pragma once

#include "toolkit/controls.h"

namespace tidemark {

class MenuItem : public ClickControl {
 public:
  using ClickControl::ClickControl;
  // "-" is a separator.
  const Text& Caption() const { return caption_; }
  void SetCaption(Text caption) { caption_ = std::move(caption); }
  bool IsSeparator() const { return caption_ == "-"; }

 private:
  Text caption_;
};

// Its items are the MenuItems whose container it is, in the order in which they were made. It is
// never visible on its window; a front end pops it up when a procedure asks for that.
class Menu : public Control {
 public:
  Menu(Control* container, std::string name) : Control(container, std::move(name)) {
    SetVisible(false);
  }
};

}  // namespace tidemark
