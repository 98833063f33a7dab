#include "platform/hosted/folder_cache.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <ctime>
#include <functional>
#include <unordered_map>

#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/link_target.h"
#include "platform/hosted/short_names.h"
#include "platform/letter_case.h"

namespace tidemark::hosted {
namespace {

struct HashName {
  using is_transparent = void;
  std::size_t operator()(std::string_view name) const {
    return std::hash<std::string_view>{}(name);
  }
};

struct CloseFolder {
  void operator()(DIR* stream) const { closedir(stream); }
};

enum class Kind { kFile, kFolder, kLink, kForeign };

Kind KindOf(int folder, const dirent& entry, bool follows_links) {
  const std::string_view name = entry.d_name;
  if (name == "." || name == "..") return Kind::kForeign;
  unsigned char type = entry.d_type;
  if (type == DT_UNKNOWN) {
    struct stat status {};
    if (fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0) return Kind::kFile;
    type = IFTODT(status.st_mode);
  }
  if (type == DT_DIR) return Kind::kFolder;
  if (type == DT_REG) return Kind::kFile;
  return type == DT_LNK && follows_links ? Kind::kLink : Kind::kForeign;
}

// A change within the clock's grain of the listing would leave the time stamp as it is.
bool IsYoung(const timespec& changed) {
  constexpr long kGrainNs = 20'000'000;
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return (now.tv_sec - changed.tv_sec) * 1'000'000'000L + now.tv_nsec - changed.tv_nsec < kGrainNs;
}

}  // namespace

struct FolderCache::Entry {
  std::string name;  // as on the host
  bool is_folder = false;
  bool is_link = false;
  std::unique_ptr<Folder> folder;  // once it was looked into
};

struct FolderCache::Folder {
  std::string host_path;  // relative to the PC's folder
  std::unordered_map<std::string, Entry, HashName, std::equal_to<>> entries;  // by name in capitals
  bool listed = false;
  bool fixed = false;  // the drives of disks: nothing of the host's is listed
  timespec changed{};  // its time stamp when it was listed; 0 is never right

  bool IsAsOf(const struct stat& status) const {
    return listed && S_ISDIR(status.st_mode) && status.st_mtim.tv_sec == changed.tv_sec &&
           status.st_mtim.tv_nsec == changed.tv_nsec;
  }
};

FolderCache::FolderCache(DrivePlaces places)
    : places_(std::move(places)),
      root_(open(places_.are_disks() ? "/" : places_.folder.c_str(),
                 O_PATH | O_DIRECTORY | O_CLOEXEC)),
      drives_(std::make_unique<Folder>()) {
  if (!root_) throw HostedPcError(places_.folder.string() + ": can't be opened");
  drives_->fixed = drives_->listed = places_.are_disks();
  if (!drives_->fixed) drives_->host_path = "drives";
  for (const auto& [letter, folder] : places_.drives) {
    drives_->entries[std::string(1, letter)] = Entry{folder.relative_path(), true, false, nullptr};
  }
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
  HostFile host = OpenForReading(Root(), folder.host_path.c_str(), O_DIRECTORY | O_NOFOLLOW);
  if (!host) return StatusOf(errno);
  const int descriptor = host.get();
  const std::unique_ptr<DIR, CloseFolder> stream(fdopendir(descriptor));
  if (!stream) return StatusOf(errno);
  static_cast<void>(host.Release());  // the stream's now
  struct stat status {};
  if (fstat(descriptor, &status) != 0) return StatusOf(errno);
  auto former = std::exchange(folder.entries, {});
  folder.listed = true;
  folder.changed = IsYoung(status.st_mtim) ? timespec{} : status.st_mtim;
  // Only errno tells a failed read from the end.
  for (errno = 0; const dirent* const found = readdir(stream.get()); errno = 0) {
    const Kind kind = KindOf(descriptor, *found, places_.are_disks());
    if (kind == Kind::kForeign) continue;
    const auto [place, is_new] =
        folder.entries.try_emplace(UpperCase(std::string_view(found->d_name)));
    Entry& entry = place->second;
    // Of names that the PC can't tell apart the first in order is there.
    if (!is_new && entry.name < found->d_name) continue;
    entry = Entry{found->d_name, kind == Kind::kFolder, kind == Kind::kLink, nullptr};
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

LONG FolderCache::Walk(std::string_view upper, Walker walker, Place& place) {
  place = Place{};
  Folder* folder = drives_.get();
  std::string_view name = upper.substr(0, 1);
  std::string_view rest = upper.substr(upper.size() > 3 ? 3 : upper.size());
  for (;;) {
    if (walker.careful || !folder->listed) {
      if (const LONG status = Refresh(*folder)) return status;
    }
    place.parent = folder;
    place.name = name;
    const auto found = folder->entries.find(name);
    Entry* entry = found == folder->entries.end() ? nullptr : &found->second;
    bool told = true;
    if (entry == nullptr) entry = FindShortName(*folder, name, told);
    if (!told) return ERROR_ACCESS_DENIED;
    if (entry == nullptr) {
      const bool last = folder != drives_.get() && rest.empty();
      return last ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
    }
    if (entry->is_link) {
      const auto start = static_cast<std::size_t>(name.data() - upper.data());
      return WalkLink(*folder, *entry, upper.substr(0, start), rest, walker, place);
    }
    if (rest.empty()) {
      place.host_name = &entry->name;
      return ERROR_SUCCESS;
    }
    if (!entry->is_folder) return ERROR_PATH_NOT_FOUND;
    if (!entry->folder) {
      entry->folder = std::make_unique<Folder>();
      entry->folder->host_path = folder->host_path + '/' + entry->name;
    }
    folder = entry->folder.get();
    const auto end = rest.find('\\');
    name = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
}

LONG FolderCache::WalkLink(const Folder& folder, const Entry& link, std::string_view upper_folder,
                           std::string_view rest, Walker walker, Place& place) {
  constexpr LONG kCantTell = ERROR_ACCESS_DENIED;
  if (walker.links_left-- == 0) return kCantTell;
  std::string text(PATH_MAX, '\0');
  const ssize_t size =
      readlinkat(Root(), (folder.host_path + '/' + link.name).c_str(), text.data(), text.size());
  if (size <= 0) return kCantTell;
  text.resize(static_cast<std::size_t>(size));
  std::string target = TargetOfLink(text, upper_folder, places_);
  const std::string behind(rest);
  if (target.empty() || Walk(target, walker, place) != ERROR_SUCCESS) return kCantTell;
  struct stat status {};
  if (fstatat(Root(), HostPath(place), &status, AT_SYMLINK_NOFOLLOW) != 0) return kCantTell;
  if (walker.for_change && !S_ISDIR(status.st_mode)) return kCantTell;
  if (!behind.empty()) target.append(target.ends_with('\\') ? "" : "\\").append(behind);
  linked_ = std::move(target);
  return Walk(linked_, walker, place);
}

FolderCache::Entry* FolderCache::FindShortName(Folder& folder, std::string_view name,
                                               bool& told) const {
  if (!places_.are_disks() || folder.fixed || name.find('~') == std::string_view::npos) {
    return nullptr;
  }
  told = !folder.entries.empty();
  for (auto& [upper, entry] : folder.entries) {
    const auto short_name = ShortNameOf(folder.host_path + '/' + entry.name);
    if (!short_name) told = false;
    if (short_name && UpperCase(*short_name) == name) {
      told = true;
      return &entry;
    }
  }
  return nullptr;
}

bool FolderCache::IsUnchanged(const Folder& folder) const {
  if (folder.fixed) return true;
  struct stat status {};
  return fstatat(Root(), folder.host_path.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
         folder.IsAsOf(status);
}

LONG FolderCache::Find(std::string_view upper, bool careful, Place& place) {
  constexpr int kMostLinks = 32;
  for (const bool check : {careful, true}) {
    const LONG status = Walk(upper, {check, careful, kMostLinks}, place);
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
                                         Entry{std::string(name), is_folder, false, nullptr});
  Stamp(*place.parent);
}

void FolderCache::Removed(const Place& place) {
  // By the name on the host: it may have been found by its short one.
  auto& entries = place.parent->entries;
  entries.erase(entries.find(UpperCase(*place.host_name)));
  Stamp(*place.parent);
}

void FolderCache::Stamp(Folder& folder) const {
  struct stat status {};
  const bool known = fstatat(Root(), folder.host_path.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
  folder.changed = known ? status.st_mtim : timespec{};
}

}  // namespace tidemark::hosted
