#include "platform/hosted/disk/disk_settings.h"

#include "platform/exact_text.h"
#include "platform/hosted/registry_settings.h"
#include "platform/letter_case.h"

namespace tidemark::hosted {
namespace {

constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";

// Of a drive that SYSTEM\MountedDevices names: a partition of a disk by numbers, anything else by
// the 16-bit text of its device.
UINT KindOfDevice(std::string_view data) {
  std::string device;
  AppendFromUtf16(data, device);
  device = LowerCase(device);
  if (device.find("cdrom") != std::string::npos) return DRIVE_CDROM;
  const bool removable = device.find("removablemedia") != std::string::npos ||
                         device.find("usbstor") != std::string::npos ||
                         device.find("floppy") != std::string::npos;
  return removable ? DRIVE_REMOVABLE : DRIVE_FIXED;
}

void AddMountedDevices(RegistryStore& registry, PcSettings& settings) {
  const RegistryKey* const devices =
      registry.Open(registry.Root(HKEY_LOCAL_MACHINE), "SYSTEM\\MountedDevices").target();
  for (const char letter : kLetters) {
    const RegistryValue* const device =
        devices == nullptr ? nullptr
                           : devices->FindValue(std::string("\\DosDevices\\") + letter + ':');
    if (device == nullptr) continue;
    settings.drives[letter].kind = KindOfDevice(device->data());
    settings.drives[letter].status = ERROR_NOT_READY;
  }
}

void AddShares(RegistryStore& registry, PcSettings& settings) {
  for (const char letter : kLetters) {
    const auto share =
        RegistryText(registry, std::string("HKEY_CURRENT_USER\\Network\\") + letter, "RemotePath");
    if (share) settings.drives[letter] = {DRIVE_REMOTE, false, "", *share};
  }
}

}  // namespace

char OwnDrive(const PcSettings& settings) { return settings.program_folder.front(); }

PcSettings DiskSettings::Read(RegistryStore& registry) {
  PcSettings settings = SettingsOfRegistry(registry, pc_->user.sid);
  settings.drives.clear();
  AddMountedDevices(registry, settings);
  AddShares(registry, settings);
  settings.drives[pc_->letter] = {};
  for (const auto& [letter, folder] : pc_->choice.drives) settings.drives[letter] = {};
  if (!pc_->choice.pc_folder.empty()) {
    settings = PcSettings::Read(pc_->choice.pc_folder / "pc.ini", std::move(settings));
  }
  settings.hidden_drive = '\0';
  for (const char letter : kLetters) {
    if (settings.drives.contains(letter)) continue;
    if (settings.hidden_drive != '\0') settings.unknown_drives.insert(settings.hidden_drive);
    settings.hidden_drive = letter;
  }
  if (settings.hidden_drive != '\0') {
    settings.program_folder = std::string(1, settings.hidden_drive) + ":\\Tidemark";
  }
  return settings;
}

}  // namespace tidemark::hosted
