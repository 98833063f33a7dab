// Where the registry of a hosted PC comes from and goes to. Each kind of hosted PC has its own.
#pragma once

#include <memory>

namespace tidemark::hosted {

class RegistryStore;

class RegistrySource {
 public:
  RegistrySource() = default;
  virtual ~RegistrySource() = default;
  RegistrySource(const RegistrySource&) = delete;
  RegistrySource& operator=(const RegistrySource&) = delete;

  // The registry as it is stored, with its user. Throws HostedPcError, and nothing was changed.
  virtual std::unique_ptr<RegistryStore> Load() = 0;

  // Stores a registry that was changed, safely: a new file first and then a rename. Throws
  // HostedPcError when that can't be done; what is stored is then what it was.
  virtual void Save(RegistryStore& registry) = 0;
};

}  // namespace tidemark::hosted
