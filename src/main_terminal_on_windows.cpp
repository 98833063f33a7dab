// The Windows program with the front end of the terminal: it is driven through standard input where
// the real registry is held against a hosted one. It is not shipped. No argument is read.
#include "desktop/terminal/script/command_front_end.h"
#include "desktop/windows_application.h"
#include "shell/main_window.h"
#include "shell/wiring.h"
#include "window/frmMain.h"

int main() {
  const tidemark::SingleInstance instance;
  const tidemark::Application application = tidemark::WindowsApplication(instance);
  const auto console = tidemark::OpenConsole();
  tidemark::CommandFrontEnd front_end(*console);
  tidemark::frmMain window(front_end, application);
  BindHandlers(window);
  return front_end.Run(window.form, [&window] { Main(window); });
}
