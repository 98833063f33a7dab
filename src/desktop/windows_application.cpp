#include "desktop/windows_application.h"

#include <array>
#include <string>

#include "desktop/program_folder.h"
#include "platform/winapi.h"

namespace tidemark {
namespace {

// Without a trailing backslash.
std::string ProgramFolder() {
  std::array<char, 4096> path;
  const DWORD length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
  const std::string file(path.data(), length);
  return file.substr(0, file.rfind('\\'));
}

}  // namespace

Application WindowsApplication(const SingleInstance& instance) {
  Application application;
  application.folder = ProgramFolder();
  application.previous_instance = instance.AnotherIsRunning();
  MakeProgramFolder(application.folder);
  return application;
}

}  // namespace tidemark
