#include "tests/support/sample_disk.h"

#include <fstream>
#include <string>

#include "platform/exact_text.h"
#include "platform/hosted/pc_settings.h"
#include "platform/hosted/registry_store.h"
#include "platform/hosted/script_registry.h"
#include "tests/support/hive_maker.h"

namespace tidemark {
namespace {

namespace fs = std::filesystem;
using hosted::RegistryKey;
using hosted::RegistryStore;

void Copy(const RegistryKey& from, RegistryKey& to) {
  for (std::size_t i = 0; i < from.value_count(); ++i) {
    to.SetValue(from.value(i).name(), from.value(i).type(), from.value(i).data());
  }
  for (std::size_t i = 0; i < from.key_count(); ++i) {
    Copy(from.key(i), to.MakeKey(from.key(i).name()));
  }
}

RegistryKey& KeyIn(RegistryKey& top, std::string_view path) {
  const std::size_t cut = path.find('\\');
  RegistryKey& key = top.MakeKey(path.substr(0, cut));
  return cut == std::string_view::npos ? key : KeyIn(key, path.substr(cut + 1));
}

void SetText(RegistryKey& key, const char* name, const std::string& text) {
  key.SetValue(name, REG_SZ, text + '\0');
}

void WriteHiveFile(const RegistryKey& key, const fs::path& file) {
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << MakeHive(key);
}

// What a disk's registry tells and an export of a running PC need not.
void AddIdentity(RegistryKey& software, RegistryKey& system, const hosted::PcSettings& settings) {
  RegistryKey& windows = KeyIn(software, "Microsoft\\Windows NT\\CurrentVersion");
  SetText(windows, "SystemRoot", settings.windows_folder);
  SetText(KeyIn(windows, "ProfileList\\" + settings.user_sid), "ProfileImagePath",
          *settings.Variable("USERPROFILE"));
  SetText(KeyIn(system, "ControlSet002\\Control\\ComputerName\\ComputerName"), "ComputerName",
          *settings.Variable("COMPUTERNAME"));
  system.MakeKey("Select").SetValue("Current", REG_DWORD, std::string("\2\0\0\0", 4));
  RegistryKey& devices = system.MakeKey("MountedDevices");
  for (const char* const letter : {"C:", "D:"}) {
    devices.SetValue(std::string("\\DosDevices\\") + letter, REG_BINARY,
                     "DMIO:ID:0123456789abcdef");
  }
  std::string cd_rom;
  AppendAsUtf16("\\??\\IDE#CdRomHarrow", cd_rom);
  devices.SetValue("\\DosDevices\\E:", REG_BINARY, cd_rom);
}

}  // namespace

SampleDisk::SampleDisk(const fs::path& folder)
    : disk(folder / "disk"),
      config(disk / "Windows/System32/Config"),
      profile(disk / "Users/anna"),
      own(folder / "own") {
  const fs::path sample = fs::path(TIDEMARK_SOURCE_FOLDER) / "sample";
  fs::copy(sample / "drives/C", disk, fs::copy_options::recursive);
  fs::copy(sample / "drives/D", folder / "data", fs::copy_options::recursive);
  choice.drives['D'] = folder / "data";
  choice.data_folder = own;

  const auto settings = hosted::PcSettings::Read(sample / "pc.ini");
  const auto registry = hosted::ScriptRegistry(sample / "registry.reg", settings.user_sid).Load();
  const auto in = [&](HKEY root, std::string_view path) -> const RegistryKey& {
    return *registry->Open(registry->Root(root), path).top;
  };
  RegistryKey software(nullptr, "SOFTWARE");
  Copy(in(HKEY_LOCAL_MACHINE, "SOFTWARE"), software);
  RegistryKey system(nullptr, "SYSTEM");
  const RegistryKey& running = in(HKEY_LOCAL_MACHINE, "SYSTEM\\CurrentControlSet");
  Copy(running, system.MakeKey("ControlSet002"));
  AddIdentity(software, system, settings);
  RegistryKey user(nullptr, "user");
  Copy(in(HKEY_CURRENT_USER, ""), user);
  RegistryKey classes(nullptr, "classes");
  RegistryKey& user_software = user.MakeKey("Software");
  Copy(*user_software.FindKey("Classes"), classes);
  user_software.TakeKey(*user_software.FindKey("Classes"));
  WriteHiveFile(software, config / "SOFTWARE");
  WriteHiveFile(system, config / "SYSTEM");
  WriteHiveFile(user, profile / "NTUSER.DAT");
  WriteHiveFile(classes, profile / "AppData/Local/Microsoft/Windows/UsrClass.dat");
}

}  // namespace tidemark
