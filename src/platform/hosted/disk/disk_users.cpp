#include "platform/hosted/disk/disk_users.h"

#include <optional>

#include "platform/hosted/pc_path.h"
#include "platform/hosted/registry_names.h"
#include "platform/hosted/registry_settings.h"

namespace tidemark::hosted {
namespace {

constexpr std::string_view kMachine = "HKEY_LOCAL_MACHINE\\";
constexpr std::string_view kSystem = "S-1-5-18";

std::uint64_t DwordOf(const RegistryKey& key, std::string_view name) {
  const RegistryValue* const value = key.FindValue(name);
  if (value == nullptr || value->type() != REG_DWORD || value->data().size() != 4) return 0;
  std::uint32_t number = 0;
  for (int byte = 3; byte >= 0; --byte) {
    number = number << 8U | static_cast<unsigned char>(value->data()[static_cast<size_t>(byte)]);
  }
  return number;
}

std::uint64_t LoadTime(const RegistryKey& profile) {
  for (const std::string name : {"LocalProfileLoadTime", "ProfileLoadTime"}) {
    const std::uint64_t time =
        DwordOf(profile, name + "High") << 32U | DwordOf(profile, name + "Low");
    if (time != 0) return time;
  }
  return 0;
}

// With the two variables that stand in places of profiles.
std::string ProfilePlace(std::string path, const std::string& windows) {
  const std::pair<std::string_view, std::string> kVariables[] = {
      {"%systemroot%", windows}, {"%systemdrive%", windows.substr(0, 2)}};
  for (const auto& [variable, value] : kVariables) {
    if (SameName(path.substr(0, variable.size()), variable)) {
      path.replace(0, variable.size(), value);
    }
  }
  return path;
}

}  // namespace

bool DiskUser::IsPerson() const {
  return sid.starts_with("S-1-5-21-") || sid.starts_with("S-1-12-1-");
}

std::vector<DiskUser> ReadDiskUsers(RegistryStore& registry) {
  const std::string list_name = std::string(kMachine).append(kProfileList);
  const RegistryKey* const list =
      registry.Open(registry.Root(HKEY_LOCAL_MACHINE), kProfileList).target();
  const std::string windows =
      RegistryText(registry, "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion",
                   "SystemRoot")
          .value_or("C:\\Windows");
  std::vector<DiskUser> users;
  for (std::size_t i = 0; list != nullptr && i < list->key_count(); ++i) {
    const RegistryKey& profile = list->key(i);
    // What a profile is called that could not be loaded, "S-1-5-21-...bak", is nobody's.
    if (profile.name() == kSystem || profile.name().ends_with(".bak")) continue;
    const auto place =
        RegistryText(registry, list_name + "\\" + profile.name(), "ProfileImagePath");
    if (!place || place->empty()) continue;
    const std::string path = ProfilePlace(*place, windows);
    users.push_back({profile.name(), std::string(LastName(path)), path, LoadTime(profile)});
  }
  return users;
}

const DiskUser* ChooseDiskUser(const std::vector<DiskUser>& users, RegistryStore& registry,
                               std::string_view wanted) {
  const std::string last =
      RegistryText(registry,
                   "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\"
                   "Authentication\\LogonUI",
                   "LastLoggedOnUserSID")
          .value_or("");
  const DiskUser* chosen = nullptr;
  for (const DiskUser& user : users) {
    if (!user.IsPerson()) continue;
    if (!wanted.empty()) {
      if (SameName(user.name, wanted) || SameName(user.sid, wanted)) return &user;
      continue;
    }
    if (user.sid == last) return &user;
    if (chosen == nullptr || user.loaded_at > chosen->loaded_at) chosen = &user;
  }
  return chosen;
}

}  // namespace tidemark::hosted
