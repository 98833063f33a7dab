// The folders of the host that hold the PC's drives, looked up ignoring case. Listings are kept and
// checked by the folder's time stamp, so that a name, whether it is there or not, costs one call of
// the host's system however large its folder is. Nothing outside is ever reached: symbolic links of
// the host are not there for the PC.
#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "platform/hosted/host_file.h"
#include "platform/winapi.h"

namespace tidemark::hosted {

class FolderCache {
 public:
  struct Folder;
  struct Place {
    Folder* parent = nullptr;  // the folder that holds it; else the last on the way that is there
    std::string_view name;     // the name looked for there, in capitals
    const std::string* host_name = nullptr;  // null when it is not there
    struct stat status {};                   // what the host says of it, if it is there

    bool IsFolder() const { return S_ISDIR(status.st_mode); }
  };

  explicit FolderCache(const std::filesystem::path& pc_folder);
  ~FolderCache();
  FolderCache(const FolderCache&) = delete;
  FolderCache& operator=(const FolderCache&) = delete;

  // Finds what `upper` (a full path in capitals, "C:\X") names: ERROR_SUCCESS, ERROR_FILE_NOT_FOUND
  // when only the last name is missing, ERROR_PATH_NOT_FOUND, or ERROR_ACCESS_DENIED when the host
  // lets nobody look. With `careful`, as for all that changes something, every folder on the way is
  // checked anew.
  LONG Find(std::string_view upper, bool careful, Place& place);

  // The host's path of a place, relative to Root(). `new_name` is how a missing one is to be
  // called. Valid until the next call.
  const char* HostPath(const Place& place, std::string_view new_name = {});
  int Root() const { return root_.get(); }

  // Keep the listing true after the program itself has changed something.
  void Added(const Place& place, std::string_view name, bool is_folder);
  void Removed(const Place& place);

 private:
  LONG Walk(std::string_view upper, bool careful, Place& place);
  LONG Refresh(Folder& folder);
  bool IsUnchanged(const Folder& folder) const;
  void Stamp(Folder& folder) const;

  HostFile root_;
  std::unique_ptr<Folder> drives_;
  std::string host_path_;  // HostPath's answer; kept for its memory
};

}  // namespace tidemark::hosted
