// The Windows program. No argument is read.
#include <array>
#include <string>

#include "desktop/program_folder.h"
#include "desktop/terminal/terminal_front_end.h"
#include "platform/single_instance.h"
#include "platform/winapi.h"
#include "shell/main_window.h"
#include "shell/wiring.h"
#include "window/frmMain.h"

namespace {

// Without a trailing backslash.
std::string ProgramFolder() {
  std::array<char, 4096> path;
  const DWORD length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
  const std::string file(path.data(), length);
  return file.substr(0, file.rfind('\\'));
}

}  // namespace

int main() {
  const tidemark::SingleInstance instance;
  tidemark::Application application;
  application.folder = ProgramFolder();
  application.previous_instance = instance.AnotherIsRunning();

  tidemark::MakeProgramFolder(application.folder);
  const auto console = tidemark::OpenConsole();
  tidemark::TerminalFrontEnd front_end(*console);
  tidemark::frmMain window(front_end, application);
  BindHandlers(window);
  return front_end.Run(window.form, [&window] { Main(window); });
}
