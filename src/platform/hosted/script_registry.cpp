#include "platform/hosted/script_registry.h"

#include <unistd.h>

#include <utility>

#include "platform/hosted/file_replacement.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_store.h"

namespace tidemark::hosted {

ScriptRegistry::ScriptRegistry(std::filesystem::path file, std::string user_sid)
    : file_(std::move(file)), user_sid_(std::move(user_sid)) {}

std::unique_ptr<RegistryStore> ScriptRegistry::Load() {
  auto registry = std::make_unique<RegistryStore>(user_sid_);
  std::error_code ignored;
  if (std::filesystem::exists(file_, ignored)) registry->Load(file_);
  return registry;
}

void ScriptRegistry::Save(RegistryStore& registry) {
  const std::filesystem::path fresh = file_.string() + ".new";
  try {
    registry.Save(fresh);
  } catch (const HostedPcError&) {
    unlink(fresh.c_str());
    throw;
  }
  ReplaceFile(fresh, file_);
}

}  // namespace tidemark::hosted
