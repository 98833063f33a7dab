// The parts of a hosted PC that is a mounted disk of Windows.
#include <utility>

#include "platform/hosted/disk/disk_recycle_bin.h"
#include "platform/hosted/disk/disk_registry.h"
#include "platform/hosted/disk/disk_settings.h"
#include "platform/hosted/disk/former_hives.h"
#include "platform/hosted/file_store.h"
#include "platform/hosted/pc_parts.h"

namespace tidemark::hosted {

PcParts PartsOfDisk(const DiskChoice& choice) {
  const auto pc = std::make_shared<DiskPc>(choice);
  PcParts parts;
  // No file: nothing is written to the disk.
  parts.lock = std::make_unique<FolderLock>(pc->disk.config());
  parts.registry = std::make_unique<DiskRegistry>(pc);
  parts.settings = std::make_unique<DiskSettings>(pc);
  parts.places = [pc](const PcSettings& settings) {
    std::map<char, std::filesystem::path> drives = pc->choice.drives;
    drives[pc->letter] = pc->disk.folder();
    if (settings.hidden_drive != '\0') drives[settings.hidden_drive] = pc->own_folder;
    return DrivePlaces(std::move(drives));
  };
  parts.make_recycle_bin = [pc](const PcSettings& settings, FileStore& files) {
    // On a disk without a person what is deleted is the system's.
    const bool is_person = pc->user.IsPerson();
    return std::make_unique<DiskRecycleBin>(is_person ? pc->user.sid : "S-1-5-18",
                                            settings.hidden_drive, files);
  };
  parts.is_sole_user = [pc, lock = parts.lock.get()] {
    return lock->taken() && pc->own_lock != nullptr && pc->own_lock->taken();
  };
  parts.why_read_only = pc->disk.WhyReadOnly();
  parts.notes = [pc] { return pc->notes; };
  parts.former_files = [pc] {
    return FormerHives(pc->own_folder / "hives", pc->disk.folder()).Kept();
  };
  return parts;
}

}  // namespace tidemark::hosted
