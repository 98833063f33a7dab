// The registry of a hosted PC that holds it as a registry script, registry.reg.
#pragma once

#include <filesystem>
#include <string>

#include "platform/hosted/registry_source.h"

namespace tidemark::hosted {

class ScriptRegistry : public RegistrySource {
 public:
  // A missing file is an empty registry. user_sid names the user in HKEY_USERS.
  ScriptRegistry(std::filesystem::path file, std::string user_sid);

  std::unique_ptr<RegistryStore> Load() override;
  void Save(RegistryStore& registry) override;

 private:
  std::filesystem::path file_;
  std::string user_sid_;
};

}  // namespace tidemark::hosted
