// What the kinds of hosted PC do each in their own way.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "platform/hosted/folder_lock.h"
#include "platform/hosted/recycle_bin.h"
#include "platform/hosted/registry_source.h"
#include "platform/hosted/settings_source.h"

namespace tidemark::hosted {

class FileStore;

struct PcParts {
  std::unique_ptr<FolderLock> lock;  // taken before anything is read
  std::unique_ptr<RegistrySource> registry;
  std::unique_ptr<SettingsSource> settings;
  std::function<std::unique_ptr<RecycleBin>(FileStore&)> make_recycle_bin;
};

// Of a folder with registry.reg, drives/ and pc.ini. Throws HostedPcError when it is none, or can't
// be written.
PcParts PartsOfPcFolder(const std::filesystem::path& folder);

}  // namespace tidemark::hosted
