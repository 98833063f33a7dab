#include "window/application.h"

namespace tidemark {

const char* const Application::kVersion = TIDEMARK_VERSION;
const char* const Application::kMajorMinor = TIDEMARK_MAJOR_MINOR;
const char* const Application::kWebAddress = TIDEMARK_WEB_ADDRESS;

Application ApplicationOf(const std::string& program_file) {
  Application application;
  const auto name = program_file.rfind('\\') + 1;
  application.folder = program_file.substr(0, name == 0 ? 0 : name - 1);
  application.executable = program_file.substr(name, program_file.rfind('.') - name);
  return application;
}

}  // namespace tidemark
