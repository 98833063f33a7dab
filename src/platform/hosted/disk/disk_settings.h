// The settings of a PC that is a Windows disk: what its registry tells, and its drive letters.
#pragma once

#include <memory>

#include "platform/hosted/disk/disk_pc.h"
#include "platform/hosted/settings_source.h"

namespace tidemark::hosted {

class DiskSettings : public SettingsSource {
 public:
  explicit DiskSettings(std::shared_ptr<DiskPc> pc) : pc_(std::move(pc)) {}

  // The program stands on a drive of its own, which is listed nowhere. Drives that the PC had and
  // that are not mounted are not ready; of all other letters nothing is known.
  PcSettings Read(RegistryStore& registry) override;

 private:
  std::shared_ptr<DiskPc> pc_;
};

// The drive on which the program's folder lies: the last letter that no drive has.
char OwnDrive(const PcSettings& settings);

}  // namespace tidemark::hosted
