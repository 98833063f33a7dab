#include "desktop/program_folder.h"

#include "platform/file_system_object.h"

namespace tidemark {

void MakeProgramFolder(const std::string& folder) {
  const std::string backup = folder + "\\backup";
  FileSystemObject files;
  for (auto end = backup.find('\\', 3); end != std::string::npos;
       end = backup.find('\\', end + 1)) {
    files.CreateFolder(backup.substr(0, end));
  }
  files.CreateFolder(backup);
}

}  // namespace tidemark
