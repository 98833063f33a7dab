#include "shell/open_dialogs.h"

#include "helpers/system_helpers.h"
#include "platform/winapi.h"

namespace tidemark {
namespace {

void CloseAbout(frmMain& window) {
  const auto closing = std::move(window.about);
  if (closing) window.front_end.Unload(closing->form);
}

// The box goes, so that the next question makes a new one.
void CloseMessBox(frmMain& window) {
  const auto closing = std::move(window.mess_box);
  if (closing) window.front_end.Unload(closing->form);
}

void Answer(frmMain& window, const char* answer) {
  window.MessBoxAnswer = answer;
  CloseMessBox(window);
}

}  // namespace

void ShowAbout(frmMain& window) {
  if (!window.about) {
    window.about = std::make_unique<frmAbout>(window.application.folder);
    window.about->cmdOK.Clicked.Bind([&window] { CloseAbout(window); });
    window.about->cmdSupport.Clicked.Bind([&window] {
      OpenWebPage(window.front_end.WindowHandle(window.about->form), "/support.php", "open", "1",
                  "1", SW_SHOWMAXIMIZED);
    });
  }
  window.front_end.Show(window.about->form);
}

frmMessBox& MessBox(frmMain& window) {
  if (window.mess_box) return *window.mess_box;
  window.mess_box = std::make_unique<frmMessBox>(window.application.folder);
  frmMessBox& box = *window.mess_box;
  box.form.Load.Bind([&box] { box.form.SetTopmost(true); });
  box.cmdYes.Clicked.Bind([&window] { Answer(window, "YES"); });
  box.cmdNo.Clicked.Bind([&window] { Answer(window, "NO"); });
  box.cmdOK.Clicked.Bind([&window] { CloseMessBox(window); });
  return box;
}

}  // namespace tidemark
