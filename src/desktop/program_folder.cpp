#include "desktop/program_folder.h"

#include "platform/file_system_object.h"

namespace tidemark {
namespace {

void MakeFolders(const std::string& path) {
  FileSystemObject files;
  for (auto end = path.find('\\', 3); end != std::string::npos; end = path.find('\\', end + 1)) {
    files.CreateFolder(path.substr(0, end));
  }
  files.CreateFolder(path);
}

}  // namespace

void MakeProgramFolder(const std::string& folder) {
  for (const char* const name :
       {"backup", "Startup Folder\\All Users", "Startup Folder\\Current User"}) {
    MakeFolders(folder + "\\" + name);
  }
}

}  // namespace tidemark
