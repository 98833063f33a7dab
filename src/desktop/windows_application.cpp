#include "desktop/windows_application.h"

#include <array>
#include <string>

#include "desktop/program_folder.h"
#include "platform/logon_task.h"
#include "platform/winapi.h"

namespace tidemark {
namespace {

std::string ProgramFile() {
  std::array<char, 4096> path;
  const DWORD length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
  return {path.data(), length};
}

}  // namespace

Application WindowsApplication(const SingleInstance& instance) {
  Application application = ApplicationOf(ProgramFile());
  application.previous_instance = instance.AnotherIsRunning();
  application.elevated = IsElevated();
  MakeProgramFolder(application.folder);
  return application;
}

}  // namespace tidemark
