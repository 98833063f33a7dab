// What the kinds of hosted PC do each in their own way.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/hosted/drive_places.h"
#include "platform/hosted/folder_lock.h"
#include "platform/hosted/pc_choice.h"
#include "platform/hosted/recycle_bin.h"
#include "platform/hosted/registry_source.h"
#include "platform/hosted/settings_source.h"

namespace tidemark::hosted {

class FileStore;

struct PcParts {
  std::unique_ptr<FolderLock> lock;  // taken before anything is read
  std::unique_ptr<RegistrySource> registry;
  std::unique_ptr<SettingsSource> settings;
  std::string why_read_only;  // one line; empty when the PC can be changed

  // Known when the registry is loaded.
  std::function<DrivePlaces(const PcSettings&)> places;
  std::function<std::unique_ptr<RecycleBin>(const PcSettings&, FileStore&)> make_recycle_bin;
  std::function<bool()> is_sole_user;
  std::function<std::vector<std::string>()> notes;  // one line each, for the person
  std::function<std::vector<std::filesystem::path>()> former_files;
};

// Of a folder with registry.reg, drives/ and pc.ini. Throws HostedPcError when it is none, or can't
// be written.
PcParts PartsOfPcFolder(const std::filesystem::path& folder, PcSettings settings);

// Of a mounted disk of Windows.
PcParts PartsOfDisk(const DiskChoice& choice);

}  // namespace tidemark::hosted
