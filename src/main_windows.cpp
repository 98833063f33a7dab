// The Windows program. No argument is read.
#include "desktop/win32/win32_front_end.h"
#include "desktop/windows_application.h"
#include "platform/winapi.h"
#include "shell/main_window.h"
#include "shell/wiring.h"
#include "window/frmMain.h"

int main() {
  // An empty drive is an answer, no question to the person.
  SetErrorMode(SEM_FAILCRITICALERRORS);
  const tidemark::SingleInstance instance;
  const tidemark::Application application = tidemark::WindowsApplication(instance);
  tidemark::Win32FrontEnd front_end(application.folder);
  tidemark::frmMain window(front_end, application);
  BindHandlers(window);
  return front_end.Run([&window] { Main(window); });
}
