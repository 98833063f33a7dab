// The native program: Tidemark on a hosted PC, in the terminal.
#include <iostream>
#include <string>
#include <vector>

#include "desktop/program_folder.h"
#include "desktop/terminal/terminal_front_end.h"
#include "main_hosted_commands.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/pc_settings.h"
#include "platform/single_instance.h"
#include "shell/main_window.h"
#include "shell/wiring.h"
#include "window/frmMain.h"

namespace {

constexpr int kBadFolder = 2;

int RunOn(tidemark::hosted::HostedPc& pc) {
  const tidemark::SingleInstance instance;
  tidemark::Application application;
  application.folder = pc.settings().program_folder;
  application.previous_instance = instance.AnotherIsRunning();

  tidemark::MakeProgramFolder(application.folder);
  const auto console = tidemark::OpenConsole();
  tidemark::TerminalFrontEnd front_end(*console);
  tidemark::frmMain window(front_end, application);
  BindHandlers(window);
  return front_end.Run(window.form, [&window] { Main(window); });
}

}  // namespace

// The arguments are for the hosted PC; the program itself reads none.
int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  try {
    if (const auto status = tidemark::RunHostedCommand(arguments)) return *status;
    if (arguments.size() != 1) {
      std::cerr << "usage: tidemark FOLDER (a hosted PC)\n";
      return kBadFolder;
    }
    tidemark::hosted::HostedPc pc(arguments[0]);
    const int status = RunOn(pc);
    if (!pc.IsSoleUser()) {
      std::cerr << "tidemark: " << arguments[0] << ": another Tidemark is working on it\n";
      return kBadFolder;
    }
    pc.ShutDown();
    return status;
  } catch (const tidemark::hosted::HostedPcError& error) {
    std::cerr << "tidemark: " << error.what() << "\n";
    return kBadFolder;
  }
}
