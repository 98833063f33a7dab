// Writing pc.ini: what PcSettings::Read reads again.
#include <algorithm>
#include <ostream>

#include "platform/hosted/pc_folder_names.h"
#include "platform/hosted/pc_settings.h"
#include "platform/letter_case.h"

namespace tidemark::hosted {

void PcSettings::Write(std::ostream& out) const {
  auto variables = environment;
  std::sort(variables.begin(), variables.end(), [](const auto& left, const auto& right) {
    return CompareIgnoringCase(left.first, right.first) < 0;
  });
  out << "[environment]\n";
  for (const auto& [name, value] : variables) out << name << '=' << value << '\n';
  out << "\n[folders]\n";
  for (const FolderName& folder : kFolderNames) {
    const auto known = special_folders.find(folder.csidl);
    if (folder.csidl == kWindowsFolder) {
      out << folder.key << '=' << windows_folder << '\n';
    } else if (known != special_folders.end()) {
      out << folder.key << '=' << known->second << '\n';
    }
  }
  const std::string* const name = Variable("USERNAME");
  out << "\n[user]\nsid=" << user_sid << "\nname=" << (name == nullptr ? "User" : *name) << '\n';
  out << "\n[locale]\nshort date=" << short_date << "\ntime=" << long_time << "\ncode page=1252\n";
  out << "\n[drives]\n";
  for (const auto& [letter, drive] : drives) out << letter << '=' << DriveText(drive) << '\n';
  out << "\n[program]\nfolder=" << program_folder << '\n';
}

}  // namespace tidemark::hosted
