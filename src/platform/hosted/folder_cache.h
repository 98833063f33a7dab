// The folders of the host that hold the PC's drives, looked up ignoring case. Listings are kept and
// checked by the folder's time stamp, so that a name, whether it is there or not, costs one call of
// the host's system however large its folder is. Nothing outside is ever reached: in a hosted PC's
// folder symbolic links of the host are not there for the PC. On disks those that lead to a drive
// are followed, and all others answer ERROR_ACCESS_DENIED, as does a short name ("PROGRA~1") where
// the file system tells none: what can't be told is not missing.
#pragma once

#include <sys/stat.h>

#include <memory>
#include <string>
#include <string_view>

#include "platform/hosted/drive_places.h"
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

  explicit FolderCache(DrivePlaces places);
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
  struct Entry;
  struct Walker {
    bool careful;     // folders on the way are checked anew
    bool for_change;  // a link to a file is not followed: what is changed would lie elsewhere
    int links_left;   // that may still be followed
  };
  LONG Walk(std::string_view upper, Walker walker, Place& place);
  LONG WalkLink(const Folder& folder, const Entry& link, std::string_view upper_folder,
                std::string_view rest, Walker walker, Place& place);
  // Null when the name is no short name of the folder's; `told` is whether that can be told.
  Entry* FindShortName(Folder& folder, std::string_view name, bool& told) const;
  LONG Refresh(Folder& folder);
  bool IsUnchanged(const Folder& folder) const;
  void Stamp(Folder& folder) const;

  DrivePlaces places_;
  HostFile root_;
  std::unique_ptr<Folder> drives_;
  std::string host_path_;  // HostPath's answer; kept for its memory
  std::string linked_;     // the path behind the last link
};

}  // namespace tidemark::hosted
