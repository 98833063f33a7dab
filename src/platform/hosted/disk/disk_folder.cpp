// The folder beside the person for a disk's settings and undo files.
#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>

#include "platform/hosted/disk/disk_pc.h"
#include "platform/hosted/fingerprint.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_settings.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

// As desktops on Linux agree (XDG base directories).
fs::path DataFolder() {
  const char* const data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && fs::path(data).is_absolute()) return fs::path(data) / "tidemark";
  const char* home = std::getenv("HOME");
  const passwd* const person = home == nullptr ? getpwuid(getuid()) : nullptr;
  if (person != nullptr) home = person->pw_dir;
  if (home == nullptr) throw HostedPcError("XDG_DATA_HOME and HOME are not set");
  return fs::path(home) / ".local/share/tidemark";
}

std::string DiskName(RegistryStore& registry) {
  const std::string software = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\";
  std::string name;
  for (const char c : RegistryText(registry,
                                   "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\"
                                   "ComputerName\\ComputerName",
                                   "ComputerName")
                          .value_or("")) {
    const bool plain = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    name += plain ? c : '-';
  }
  // What tells one Windows from another of the same name, also when the disk is mounted elsewhere.
  std::string identity;
  for (const auto& [key, value] : {std::pair{"Cryptography", "MachineGuid"},
                                   std::pair{"Windows NT\\CurrentVersion", "ProductId"},
                                   std::pair{"Windows NT\\CurrentVersion", "SystemRoot"}}) {
    identity += RegistryText(registry, software + key, value).value_or("") + '\n';
  }
  std::array<char, 32> number{};
  std::snprintf(number.data(), number.size(), "%08x",
                static_cast<unsigned>(FingerprintOf(identity)));
  return (name.empty() ? "Windows" : name) + "-" + number.data();
}

}  // namespace

fs::path FolderBesideThePerson(RegistryStore& registry, const fs::path& data_folder) {
  const fs::path folder = (data_folder.empty() ? DataFolder() : data_folder) / DiskName(registry);
  std::error_code error;
  fs::create_directories(folder / "Tidemark", error);
  if (error) throw HostedPcError(folder.string() + ": can't be made: " + error.message());
  return folder;
}

}  // namespace tidemark::hosted
