#include "platform/hosted/registry_settings.h"

#include <utility>

#include "platform/hosted/pc_path.h"
#include "platform/hosted/registry_names.h"
#include "platform/letter_case.h"

namespace tidemark::hosted {
namespace {

constexpr std::string_view kMachine = "HKEY_LOCAL_MACHINE\\";
constexpr std::string_view kControl = "SYSTEM\\CurrentControlSet\\Control\\";
constexpr std::string_view kControlOfNoLink = "SYSTEM\\ControlSet001\\Control\\";
constexpr std::string_view kEnvironmentKey = "Session Manager\\Environment";
constexpr std::string_view kExplorer = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Explorer\\";

// What a session of a user has, as far as the registry does not say otherwise.
constexpr std::pair<std::string_view, std::string_view> kPlainVariables[] = {
    {"ProgramData", "%SystemDrive%\\ProgramData"},
    {"ALLUSERSPROFILE", "%ProgramData%"},
    {"PUBLIC", "%SystemDrive%\\users\\Public"},
    {"APPDATA", "%USERPROFILE%\\AppData\\Roaming"},
    {"LOCALAPPDATA", "%USERPROFILE%\\AppData\\Local"},
    {"TEMP", "%LOCALAPPDATA%\\Temp"},
    {"TMP", "%LOCALAPPDATA%\\Temp"},
    {"windir", "%SystemRoot%"},
    {"ComSpec", "%SystemRoot%\\system32\\cmd.exe"},
    {"PATH", "%SystemRoot%\\system32;%SystemRoot%"},
};

struct FolderPlace {
  int csidl;
  bool of_machine;
  std::string_view name;  // in the lists of the shell's folders
  std::string_view usual;
};
constexpr FolderPlace kFolders[] = {
    {CSIDL_FONTS, false, "Fonts", "%SystemRoot%\\Fonts"},
    {CSIDL_DESKTOP, false, "Desktop", "%USERPROFILE%\\Desktop"},
    {CSIDL_STARTMENU, false, "Start Menu", "%APPDATA%\\Microsoft\\Windows\\Start Menu"},
    {CSIDL_STARTUP, false, "Startup",
     "%APPDATA%\\Microsoft\\Windows\\Start Menu\\Programs\\Startup"},
    {CSIDL_COMMON_STARTMENU, true, "Common Start Menu",
     "%ProgramData%\\Microsoft\\Windows\\Start Menu"},
    {CSIDL_COMMON_STARTUP, true, "Common Startup",
     "%ProgramData%\\Microsoft\\Windows\\Start Menu\\Programs\\Startup"},
};

bool IsDrivePath(std::string_view path) {
  return path.size() >= 3 && LowerCase(path.substr(0, 1)) >= "a" &&
         LowerCase(path.substr(0, 1)) <= "z" && path.substr(1, 2) == ":\\";
}

const RegistryKey* KeyOf(RegistryStore& registry, std::string_view full_name) {
  const std::string_view root = full_name.substr(0, full_name.find('\\'));
  return registry.Open(registry.Root(root), full_name.substr(root.size())).target();
}

std::optional<std::string> TextOf(const RegistryValue& value) {
  if (value.type() != REG_SZ && value.type() != REG_EXPAND_SZ) return std::nullopt;
  const std::string_view text = value.data();
  constexpr std::string_view kEnds("\0\r\n", 3);
  return std::string(text.substr(0, text.find_first_of(kEnds)));
}

// Whether pc.ini can hold a variable of that name.
bool CanBeVariable(std::string_view name) {
  return !name.empty() && name.find('=') == std::string_view::npos &&
         name.find_first_of("[;# \t") != 0;
}

class Reader {
 public:
  Reader(RegistryStore& registry, std::string_view sid)
      : registry_(registry), user_(std::string("HKEY_USERS\\").append(sid) + "\\") {
    settings_.user_sid = sid;
    settings_.environment.clear();
  }

  PcSettings Read() {
    ReadEnvironment();
    const std::string windows = Expanded("%SystemRoot%");
    if (IsDrivePath(windows)) settings_.windows_folder = windows;
    ReadFolders();
    ReadLocale();
    ReadDrives();
    ExpandEnvironment();
    return std::move(settings_);
  }

 private:
  std::string Machine(std::string_view key, std::string_view name, std::string_view otherwise) {
    const auto text = RegistryText(registry_, std::string(kMachine).append(key), name);
    return text && !text->empty() ? *text : std::string(otherwise);
  }
  std::string User(std::string_view key, std::string_view name, std::string_view otherwise) {
    const auto text = RegistryText(registry_, user_ + std::string(key), name);
    return text && !text->empty() ? *text : std::string(otherwise);
  }

  void ReadEnvironment() {
    constexpr std::string_view kVersion = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion";
    std::string windows =
        Machine("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion", "SystemRoot", "");
    if (!IsDrivePath(windows)) windows = "C:\\windows";
    const std::string profile = Machine(std::string(kProfileList) + "\\" + settings_.user_sid,
                                        "ProfileImagePath", "%SystemDrive%\\users\\%USERNAME%");
    const std::string_view name = LastName(profile);
    settings_.SetVariable("SystemDrive", windows.substr(0, 2));
    settings_.SetVariable("SystemRoot", windows);
    settings_.SetVariable("ProgramFiles",
                          Machine(kVersion, "ProgramFilesDir", "%SystemDrive%\\Program Files"));
    settings_.SetVariable("CommonProgramFiles",
                          Machine(kVersion, "CommonFilesDir", "%ProgramFiles%\\Common Files"));
    settings_.SetVariable(
        "USERNAME", name.find('%') == std::string_view::npos ? name : std::string_view("User"));
    settings_.SetVariable("USERPROFILE", profile);
    for (const auto& [variable, value] : kPlainVariables) settings_.SetVariable(variable, value);
    const std::string computer =
        Machine(std::string(kControl) + "ComputerName\\ComputerName", "ComputerName", "");
    if (!computer.empty()) settings_.SetVariable("COMPUTERNAME", computer);
    AddMachineVariables();
    AddVariables(user_ + "Volatile Environment");
    AddVariables(user_ + "Environment");
  }

  void AddMachineVariables() {
    for (const std::string_view control : {kControl, kControlOfNoLink}) {
      const std::string key = std::string(kMachine).append(control).append(kEnvironmentKey);
      if (KeyOf(registry_, key) == nullptr) continue;
      AddVariables(key, /*of_machine=*/true);
      return;
    }
  }

  void AddVariables(const std::string& key_name, bool of_machine = false) {
    const RegistryKey* const key = KeyOf(registry_, key_name);
    for (std::size_t i = 0; key != nullptr && i < key->value_count(); ++i) {
      const RegistryValue& variable = key->value(i);
      std::optional<std::string> value = TextOf(variable);
      if (!value || !CanBeVariable(variable.name())) continue;
      // The service account's own, while no user is logged on.
      if (of_machine && SameName(variable.name(), "USERNAME")) continue;
      // A user's search path comes behind the machine's.
      if (!of_machine && SameName(variable.name(), "PATH")) {
        value = *settings_.Variable("PATH") + ";" + *value;
      }
      settings_.SetVariable(variable.name(), *value);
    }
  }

  // With the variables that are known; a variable does not stand for itself.
  std::string Expanded(std::string text, std::string_view own_name = {}) const {
    constexpr int kMostRounds = 5;
    for (int round = 0; round < kMostRounds; ++round) {
      std::string expanded;
      bool found = false;
      for (std::size_t at = 0; at < text.size();) {
        const auto end = text[at] == '%' ? text.find('%', at + 1) : std::string::npos;
        const std::string name = end == std::string::npos ? "" : text.substr(at + 1, end - at - 1);
        const std::string* const value =
            name.empty() || SameName(name, own_name) ? nullptr : settings_.Variable(name);
        if (value != nullptr) {
          expanded += *value;
          found = true;
          at = end + 1;
        } else {
          expanded += text[at++];
        }
      }
      text = std::move(expanded);
      if (!found) break;
    }
    return text;
  }

  void ExpandEnvironment() {
    auto expanded = settings_.environment;
    for (auto& [name, value] : expanded) value = Expanded(value, name);
    settings_.environment = std::move(expanded);
  }

  void ReadFolders() {
    for (const FolderPlace& folder : kFolders) {
      std::string path;
      // The first is what the shell goes by, the second what it made of it last.
      for (const char* const list : {"User Shell Folders", "Shell Folders"}) {
        const std::string key = std::string(kExplorer) + list;
        path = Expanded(folder.of_machine ? Machine(key, folder.name, "")
                                          : User(key, folder.name, ""));
        if (IsDrivePath(path)) break;
      }
      settings_.special_folders[folder.csidl] =
          IsDrivePath(path) ? path : Expanded(std::string(folder.usual));
    }
  }

  void ReadLocale() {
    constexpr std::string_view kInternational = "Control Panel\\International";
    settings_.short_date = User(kInternational, "sShortDate", settings_.short_date);
    settings_.long_time = User(kInternational, "sTimeFormat", settings_.long_time);
  }

  void ReadDrives() {
    constexpr std::pair<std::string_view, UINT> kKinds[] = {
        {"cdrom", DRIVE_CDROM}, {"floppy", DRIVE_REMOVABLE}, {"network", DRIVE_REMOTE}};
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
      const std::string kind = Machine("Software\\Wine\\Drives", std::string{letter, ':'}, "");
      for (const auto& [name, drive_kind] : kKinds) {
        if (SameName(name, kind)) settings_.drives[letter].kind = drive_kind;
      }
    }
  }

  RegistryStore& registry_;
  std::string user_;  // the user's key, with a backslash behind it
  PcSettings settings_;
};

}  // namespace

std::optional<std::string> RegistryText(RegistryStore& registry, std::string_view key,
                                        std::string_view name) {
  const RegistryKey* const found = KeyOf(registry, key);
  const RegistryValue* const value = found == nullptr ? nullptr : found->FindValue(name);
  return value == nullptr ? std::nullopt : TextOf(*value);
}

PcSettings SettingsOfRegistry(RegistryStore& registry, std::string_view user_sid) {
  return Reader(registry, user_sid).Read();
}

}  // namespace tidemark::hosted
