// What stands on the desk: the windows that are shown, and how their lists are scrolled. The page
// drawing and the commands work on it; the front end puts windows on it and takes them off.
#pragma once

#include <string_view>
#include <vector>

#include "desktop/terminal/list_table.h"
#include "toolkit/controls.h"

namespace tidemark {

struct Desk {
  struct ShownForm {
    Form* form = nullptr;
    long command = 0;  // number of the command that ran when it was shown
  };
  std::vector<ShownForm> forms;  // the last one lies on top
  Form* main_window = nullptr;
  ScrollPositions scroll;

  // The window that lies on top of the main window; null when none does.
  Form* Dialog() const {
    if (forms.empty() || forms.back().form == main_window) return nullptr;
    return forms.back().form;
  }

  // In the topmost window that has a control of that name; null when none has.
  Control* Find(std::string_view name) const {
    for (auto shown = forms.rbegin(); shown != forms.rend(); ++shown) {
      if (Control* control = shown->form->Find(name)) return control;
    }
    return nullptr;
  }
};

}  // namespace tidemark
