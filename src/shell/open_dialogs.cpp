#include "shell/open_dialogs.h"

#include <memory>
#include <utility>

#include "helpers/system_helpers.h"
#include "platform/winapi.h"

namespace tidemark {
namespace {

// The box goes: the next one is made anew.
template <class Box>
void Close(frmMain& window, std::unique_ptr<Box>& box) {
  const auto closing = std::move(box);
  if (closing) window.front_end.Unload(closing->form);
}

void OpenSupport(const frmMain& window, const Form& form) {
  OpenWebPage(window.front_end.WindowHandle(form), window.application.web_address, "/support.php",
              "open", "1", "1", SW_SHOWMAXIMIZED);
}

void Answer(frmMain& window, const char* answer) {
  window.MessBoxAnswer = answer;
  Close(window, window.mess_box);
}

}  // namespace

void ShowAbout(frmMain& window) {
  if (!window.about) {
    window.about = std::make_unique<frmAbout>(window.application);
    window.about->cmdOK.Clicked.Bind([&window] { Close(window, window.about); });
    window.about->cmdSupport.Clicked.Bind([&window] { OpenSupport(window, window.about->form); });
  }
  window.front_end.Show(window.about->form);
}

void ShowHelp(frmMain& window) {
  if (!window.help) {
    window.help = std::make_unique<frmHelp>(window.application);
    window.help->cmdClose.Clicked.Bind([&window] { Close(window, window.help); });
    window.help->cmdSupport.Clicked.Bind([&window] { OpenSupport(window, window.help->form); });
  }
  window.front_end.Show(window.help->form);
}

frmMessBox& MessBox(frmMain& window) {
  // A question starts with the focus on its safe answer, whatever the box before it was left with.
  if (window.mess_box) Close(window, window.mess_box);
  window.mess_box = std::make_unique<frmMessBox>(window.application.folder);
  frmMessBox& box = *window.mess_box;
  box.form.Load.Bind([&box] { box.form.SetTopmost(true); });
  box.cmdYes.Clicked.Bind([&window] { Answer(window, "YES"); });
  box.cmdNo.Clicked.Bind([&window] { Answer(window, "NO"); });
  box.cmdOK.Clicked.Bind([&window] { Close(window, window.mess_box); });
  return box;
}

}  // namespace tidemark
