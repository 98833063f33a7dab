// Where the settings of a hosted PC come from. Each kind of hosted PC has its own.
#pragma once

#include "platform/hosted/pc_settings.h"

namespace tidemark::hosted {

class RegistryStore;

class SettingsSource {
 public:
  SettingsSource() = default;
  virtual ~SettingsSource() = default;
  SettingsSource(const SettingsSource&) = delete;
  SettingsSource& operator=(const SettingsSource&) = delete;

  // The registry is the PC's, as it was loaded. Throws HostedPcError.
  virtual PcSettings Read(RegistryStore& registry) = 0;
};

}  // namespace tidemark::hosted
