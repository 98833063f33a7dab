// What stands on the desk: the windows that are shown, how their lists are scrolled, the icons in
// the notification area. Pages and commands work on it; the front end puts windows on it and takes
// them off.
#pragma once

#include <string_view>
#include <vector>

#include "desktop/terminal/scroll_positions.h"
#include "toolkit/controls.h"
#include "toolkit/tray_icon.h"

namespace tidemark {

struct Desk {
  struct ShownForm {
    Form* form = nullptr;
    bool loaded = false;
  };
  std::vector<ShownForm> forms;  // the last one lies on top
  Form* main_window = nullptr;
  ScrollPositions scroll;
  std::vector<TrayIcon> tray;

  // The window that lies on top of the main window; null when none does.
  Form* Dialog() const {
    if (forms.empty() || forms.back().form == main_window) return nullptr;
    return forms.back().form;
  }

  // Whether the main window has been loaded, shown or hidden since.
  bool MainIsUp() const {
    for (const ShownForm& shown : forms) {
      if (shown.form == main_window && shown.loaded) return true;
    }
    return false;
  }

  // In the topmost window that has a control of that name; null when none has.
  Control* Find(std::string_view name) const {
    for (auto shown = forms.rbegin(); shown != forms.rend(); ++shown) {
      if (Control* control = shown->form->Find(name)) return control;
    }
    return nullptr;
  }
};

// The text beside the icon.
std::string_view TipOf(const TrayIcon& icon);

enum class TrayClick { kLeft = 514, kRight = 517 };  // the platform's numbers of the mouse messages

// As a click on an icon in the notification area.
void ClickTray(Form& main_window, TrayClick click);

}  // namespace tidemark
