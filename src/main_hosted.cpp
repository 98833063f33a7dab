// The native program: Tidemark on a hosted PC, in the terminal: a full screen where there is one,
// commands and pages on a pair of pipes.
#include <filesystem>
#include <iostream>
#include <string>

#include "desktop/program_folder.h"
#include "desktop/terminal/screen/curses_screen.h"
#include "desktop/terminal/screen/screen_front_end.h"
#include "desktop/terminal/script/command_front_end.h"
#include "main_hosted_commands.h"
#include "main_hosted_files.h"
#include "platform/hosted/file_store.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/pc_settings.h"
#include "platform/logon_task.h"
#include "platform/single_instance.h"
#include "shell/main_window.h"
#include "shell/wiring.h"
#include "window/frmMain.h"

namespace {

constexpr int kBadFolder = 2;

int RunWith(tidemark::DeskFrontEnd& front_end, const tidemark::Application& application) {
  tidemark::frmMain window(front_end, application);
  BindHandlers(window);
  return front_end.Run(window.form, [&window] { Main(window); });
}

int RunOn(tidemark::hosted::HostedPc& pc) {
  const tidemark::SingleInstance instance;
  tidemark::Application application;
  application.folder = pc.settings().program_folder;
  application.previous_instance = instance.AnotherIsRunning();
  application.elevated = tidemark::IsElevated();

  tidemark::MakeProgramFolder(application.folder);
  std::filesystem::path own_folder;
  if (pc.settings().hidden_drive != '\0' &&
      pc.files().GetHostPath(application.folder, own_folder) == ERROR_SUCCESS) {
    tidemark::CopyShippedFiles(own_folder);
  }
  if (tidemark::CursesScreen::IsAvailable()) {
    tidemark::CursesScreen screen;
    tidemark::ScreenFrontEnd front_end(screen);
    return RunWith(front_end, application);
  }
  const auto console = tidemark::OpenConsole();
  tidemark::CommandFrontEnd front_end(*console);
  return RunWith(front_end, application);
}

}  // namespace

// The arguments are for the hosted PC; the program itself reads none.
int main(int argc, char** argv) {
  const auto arguments = tidemark::ReadHostedArguments({argv + 1, argv + argc});
  if (!arguments) {
    std::cerr << tidemark::kHostedUsage;
    return kBadFolder;
  }
  try {
    if (const auto status = tidemark::RunHostedCommand(*arguments)) return *status;
    const std::string& folder = arguments->places[0];
    tidemark::hosted::HostedPc pc(folder, arguments->choice);
    for (const std::string& note : pc.Notes())
      std::cerr << "tidemark: " << folder << ": " << note << "\n";
    const int status = RunOn(pc);
    if (!pc.IsSoleUser()) {
      std::cerr << "tidemark: " << folder << ": another Tidemark is working on it\n";
      return kBadFolder;
    }
    pc.ShutDown();
    return status;
  } catch (const tidemark::hosted::HostedPcError& error) {
    std::cerr << "tidemark: " << error.what() << "\n";
    return kBadFolder;
  }
}
