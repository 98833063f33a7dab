#include "registry/clsIni.h"

#include "platform/file_system_object.h"
#include "platform/winapi.h"
#include "registry/ini_access.h"

namespace tidemark {

void clsIni::DeleteIni() {
  if (!path_.ends_with(".ini")) {
    front_end_.ShowMessage("The file in the Ini Path property is not an ini file or doesn't exist!",
                           "Error", MessageIcon::kExclamation);
    return;
  }
  if (FileSystemObject().DeleteFile(path_, false) == FileSystemObject::kFileNotFound) {
    front_end_.ShowMessage("The file in the Ini Path property was not found!", "Error",
                           MessageIcon::kExclamation);
  }
}

std::string clsIni::GetIniSetting(const std::string& section, const std::string& key) const {
  constexpr std::size_t kLongest = 749;
  return ReadProfileText(section, key, path_, kLongest);
}

void clsIni::SaveIniSetting(const std::string& section, const std::string& key,
                            const std::string& value) const {
  WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(), path_.c_str());
}

}  // namespace tidemark
