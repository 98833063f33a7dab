// What the parts of a PC that is a Windows disk know in common.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/hosted/disk/disk_users.h"
#include "platform/hosted/disk/windows_disk.h"
#include "platform/hosted/folder_lock.h"
#include "platform/hosted/pc_choice.h"

namespace tidemark::hosted {

struct DiskPc {
  explicit DiskPc(const DiskChoice& what) : choice(what), disk(what.folder) {}

  DiskChoice choice;
  WindowsDisk disk;

  // Known when the registry is loaded.
  char letter = 'C';                         // of the disk
  DiskUser user{".DEFAULT", "User", "", 0};  // nobody's profile, when nobody has one
  std::filesystem::path own_folder;          // for settings and undo files, beside the person
  std::unique_ptr<FolderLock> own_lock;
  std::vector<std::string> notes;  // one line each: what a person should know

  // On the host; empty when it is not there, or its drive is not.
  std::filesystem::path HostPath(const std::string& path) const {
    const auto more = path.empty() ? choice.drives.end() : choice.drives.find(path[0]);
    if (path.size() < 3) return {};
    if (path[0] == letter) return disk.Find(path.substr(3));
    return more == choice.drives.end() ? std::filesystem::path()
                                       : FindIgnoringCase(more->second, path.substr(3));
  }
};

// The folder for what belongs to a disk: below the given one, or $XDG_DATA_HOME/tidemark, by the
// PC's name and what tells its Windows from others. It is made if need be. Throws HostedPcError.
std::filesystem::path FolderBesideThePerson(RegistryStore& registry,
                                            const std::filesystem::path& data_folder);

}  // namespace tidemark::hosted
