// The registry of a Windows disk: its hives, and the program's own settings, which lie beside the
// person and not on the disk.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/hosted/disk/disk_pc.h"
#include "platform/hosted/registry_source.h"

namespace tidemark::hosted {

class RegistryKey;

class DiskRegistry : public RegistrySource {
 public:
  // Tells the PC what it finds out when it loads.
  explicit DiskRegistry(std::shared_ptr<DiskPc> pc);

  // Refuses the disk when a hive of the machine or of the chosen person is dirty or damaged; those
  // of others are left out then. Damaged classes of the person are denied: what they hold is not
  // known.
  std::unique_ptr<RegistryStore> Load() override;

  // Replaces each hive that was changed. All new ones lie on the disk before the first is put in
  // its place; when one can't be, those before it go back. Where the registry holds again what a
  // former hive holds, that one is put back.
  void Save(RegistryStore& registry) override;

 private:
  enum class Need { kRequired, kClasses, kOther };
  struct Mounted {
    std::filesystem::path file;
    RegistryKey* key;
    std::uint64_t fingerprint;  // of the file
  };
  struct Change;

  RegistryKey* Mount(RegistryStore& registry, const std::string& key,
                     const std::filesystem::path& file, Need need);
  void LinkControlSet(RegistryStore& registry);
  void ChooseUser(RegistryStore& registry, const std::vector<DiskUser>& users);
  void MountUser(RegistryStore& registry, const DiskUser& user);
  void LoadSettings(RegistryStore& registry);
  void SaveSettings(RegistryStore& registry) const;
  Change ChangeOf(Mounted& mounted);
  bool FindFormer(const Mounted& mounted, Change& change) const;
  void Replace(std::vector<Change>& changes);

  std::shared_ptr<DiskPc> pc_;
  std::string why_read_only_;
  std::vector<Mounted> mounted_;
};

}  // namespace tidemark::hosted
