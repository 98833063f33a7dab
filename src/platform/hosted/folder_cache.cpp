#include "platform/hosted/folder_cache.h"

#include <dirent.h>
#include <fcntl.h>

#include <cerrno>
#include <ctime>
#include <functional>
#include <unordered_map>

#include "platform/hosted/hosted_pc.h"
#include "platform/letter_case.h"

namespace tidemark::hosted {
namespace {

struct HashName {
  using is_transparent = void;
  std::size_t operator()(std::string_view name) const {
    return std::hash<std::string_view>{}(name);
  }
};

struct Entry {
  std::string name;  // as on the host
  bool is_folder = false;
  std::unique_ptr<FolderCache::Folder> folder;  // once it was looked into
};

struct CloseFolder {
  void operator()(DIR* stream) const { closedir(stream); }
};

bool IsFolder(int folder, const dirent& entry) {
  if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
  struct stat status {};
  return fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
         S_ISDIR(status.st_mode);
}

bool IsForeign(const dirent& entry) {
  const std::string_view name = entry.d_name;
  return name == "." || name == ".." ||
         (entry.d_type != DT_DIR && entry.d_type != DT_REG && entry.d_type != DT_UNKNOWN);
}

// A change within the clock's grain of the listing would leave the time stamp as it is.
bool IsYoung(const timespec& changed) {
  constexpr long kGrainNs = 20'000'000;
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return (now.tv_sec - changed.tv_sec) * 1'000'000'000L + now.tv_nsec - changed.tv_nsec < kGrainNs;
}

}  // namespace

struct FolderCache::Folder {
  std::string host_path;  // relative to the PC's folder
  std::unordered_map<std::string, Entry, HashName, std::equal_to<>> entries;  // by name in capitals
  bool listed = false;
  timespec changed{};  // its time stamp when it was listed; 0 is never right

  bool IsAsOf(const struct stat& status) const {
    return listed && S_ISDIR(status.st_mode) && status.st_mtim.tv_sec == changed.tv_sec &&
           status.st_mtim.tv_nsec == changed.tv_nsec;
  }
};

FolderCache::FolderCache(const std::filesystem::path& pc_folder)
    : root_(open(pc_folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)),
      drives_(std::make_unique<Folder>()) {
  if (!root_) throw HostedPcError(pc_folder.string() + ": can't be opened");
  drives_->host_path = "drives";
}

FolderCache::~FolderCache() = default;

// A folder that is there but can't be read is not missing: what lies in it is not known to be gone.
LONG StatusOf(int host_error) {
  const bool missing = host_error == ENOENT || host_error == ENOTDIR || host_error == ELOOP;
  return missing ? ERROR_PATH_NOT_FOUND : ERROR_ACCESS_DENIED;
}

// Makes the listing what the host's folder holds now; what was known of folders that are still
// there stays known.
LONG FolderCache::Refresh(Folder& folder) {
  if (IsUnchanged(folder)) return ERROR_SUCCESS;
  folder.listed = false;
  const int descriptor =
      openat(Root(), folder.host_path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
  const std::unique_ptr<DIR, CloseFolder> stream(descriptor < 0 ? nullptr : fdopendir(descriptor));
  if (!stream) return StatusOf(errno);
  struct stat status {};
  if (fstat(descriptor, &status) != 0) return StatusOf(errno);
  auto former = std::exchange(folder.entries, {});
  folder.listed = true;
  folder.changed = IsYoung(status.st_mtim) ? timespec{} : status.st_mtim;
  // Only errno tells a failed read from the end.
  for (errno = 0; const dirent* const found = readdir(stream.get()); errno = 0) {
    if (IsForeign(*found)) continue;
    const auto [place, is_new] =
        folder.entries.try_emplace(UpperCase(std::string_view(found->d_name)));
    Entry& entry = place->second;
    // Of names that the PC can't tell apart the first in order is there.
    if (!is_new && entry.name < found->d_name) continue;
    entry = Entry{found->d_name, IsFolder(descriptor, *found), nullptr};
    if (const auto known = former.find(place->first);
        known != former.end() && known->second.name == entry.name && entry.is_folder) {
      entry.folder = std::move(known->second.folder);
    }
  }
  if (errno != 0) {
    folder.listed = false;
    return StatusOf(errno);
  }
  return ERROR_SUCCESS;
}

LONG FolderCache::Walk(std::string_view upper, bool careful, Place& place) {
  place = Place{};
  Folder* folder = drives_.get();
  std::string_view name = upper.substr(0, 1);
  std::string_view rest = upper.substr(upper.size() > 3 ? 3 : upper.size());
  for (;;) {
    if (careful || !folder->listed) {
      if (const LONG status = Refresh(*folder)) return status;
    }
    place.parent = folder;
    place.name = name;
    const auto found = folder->entries.find(name);
    if (found == folder->entries.end()) {
      const bool last = folder != drives_.get() && rest.empty();
      return last ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
    }
    Entry& entry = found->second;
    if (rest.empty()) {
      place.host_name = &entry.name;
      return ERROR_SUCCESS;
    }
    if (!entry.is_folder) return ERROR_PATH_NOT_FOUND;
    if (!entry.folder) {
      entry.folder = std::make_unique<Folder>();
      entry.folder->host_path = folder->host_path + '/' + entry.name;
    }
    folder = entry.folder.get();
    const auto end = rest.find('\\');
    name = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
}

bool FolderCache::IsUnchanged(const Folder& folder) const {
  struct stat status {};
  return fstatat(Root(), folder.host_path.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
         folder.IsAsOf(status);
}

LONG FolderCache::Find(std::string_view upper, bool careful, Place& place) {
  for (const bool check : {careful, true}) {
    const LONG status = Walk(upper, check, place);
    if (status == ERROR_SUCCESS) {
      // What the host still knows under that path is there: its folder need not be looked at.
      if (fstatat(Root(), HostPath(place), &place.status, AT_SYMLINK_NOFOLLOW) != 0) {
        if (errno == EACCES) return ERROR_ACCESS_DENIED;
      } else if (S_ISREG(place.status.st_mode) || S_ISDIR(place.status.st_mode)) {
        return status;
      }
    } else if (check || (place.parent != nullptr && IsUnchanged(*place.parent))) {
      return status;
    }
  }
  return ERROR_FILE_NOT_FOUND;
}

const char* FolderCache::HostPath(const Place& place, std::string_view new_name) {
  host_path_.assign(place.parent->host_path);
  host_path_ += '/';
  host_path_ += place.host_name != nullptr ? std::string_view(*place.host_name) : new_name;
  return host_path_.c_str();
}

void FolderCache::Added(const Place& place, std::string_view name, bool is_folder) {
  place.parent->entries.insert_or_assign(std::string(place.name),
                                         Entry{std::string(name), is_folder, nullptr});
  Stamp(*place.parent);
}

void FolderCache::Removed(const Place& place) {
  place.parent->entries.erase(place.parent->entries.find(place.name));
  Stamp(*place.parent);
}

void FolderCache::Stamp(Folder& folder) const {
  struct stat status {};
  const bool known = fstatat(Root(), folder.host_path.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
  folder.changed = known ? status.st_mtim : timespec{};
}

}  // namespace tidemark::hosted
