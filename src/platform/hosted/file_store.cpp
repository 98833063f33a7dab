#include "platform/hosted/file_store.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "platform/hosted/host_status.h"
#include "platform/hosted/pc_settings.h"
#include "platform/letter_case.h"

namespace tidemark::hosted {
namespace {

constexpr LONG kErrorDirectory = 267;  // a file where a folder is needed
constexpr int kOpenFolder = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

// Also from one disk of the host to another.
LONG MoveHostFile(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (rename(from.c_str(), to.c_str()) == 0) return ERROR_SUCCESS;
  if (errno != EXDEV) return StatusOfHostError(errno);
  std::error_code error;
  const auto changed = std::filesystem::last_write_time(from, error);
  if (!error) std::filesystem::copy_file(from, to, error);
  if (!error) std::filesystem::last_write_time(to, changed, error);
  if (!error) std::filesystem::remove(from, error);
  if (!error) return ERROR_SUCCESS;
  const LONG status = StatusOfHostError(error.value());
  std::filesystem::remove(to, error);
  return status;
}

bool IsSameOrBelow(std::string_view path, std::string_view folder) {
  if (!path.starts_with(folder)) return false;
  return path.size() == folder.size() || folder.ends_with('\\') || path[folder.size()] == '\\';
}

}  // namespace

FileStore::FileStore(const DrivePlaces& places, const PcSettings& settings)
    : pc_folder_(places.folder), folders_(places) {
  SetCurrentFolder(settings.program_folder);
  for (const char letter : settings.unknown_drives) SetDriveStatus(letter, ERROR_NOT_READY);
  for (const auto& [letter, drive] : settings.drives) {
    SetDriveStatus(letter, drive.status);
  }
  for (const std::string& path : settings.denied_files) DenyFile(path);
  for (const auto& [path, attributes] : settings.attributes) {
    attributes_[UpperCase(FullPath(path))] = attributes;
  }
}

// The text in path_, and the status of the path as such. What a name may hold, and how long it may
// be, is for the drive's file system to say, and a drive that fails has none.
LONG FileStore::Resolve(std::string_view path) {
  const LONG status = NormalisePath(path, current_folder_, path_);
  if (failing_drives_.empty()) return status;
  const auto failing = failing_drives_.find(DriveOf(path, current_folder_));
  return failing == failing_drives_.end() ? status : failing->second;
}

// The same, and what is there.
LONG FileStore::Find(std::string_view path, bool careful, FolderCache::Place& place) {
  if (const LONG status = Resolve(path)) return status;
  if (!denied_.empty() && IsDenied(path_.upper)) return ERROR_ACCESS_DENIED;
  const LONG status = folders_.Find(path_.upper, careful, place);
  if (status == ERROR_SUCCESS && path_.ends_in_backslash && !place.IsFolder()) {
    return ERROR_INVALID_NAME;
  }
  return status;
}

DWORD FileStore::AttributesOf(const FolderCache::Place& place) const {
  return AttributesOf(path_.upper, place.status.st_mode);
}

DWORD FileStore::AttributesOf(const std::string& upper, mode_t mode) const {
  DWORD attributes = S_ISDIR(mode) ? 0 : FILE_ATTRIBUTE_ARCHIVE;
  if (!attributes_.empty()) {
    if (const auto known = attributes_.find(upper); known != attributes_.end()) {
      attributes = known->second;
    }
  }
  if (S_ISDIR(mode)) return attributes | FILE_ATTRIBUTE_DIRECTORY;
  if ((mode & S_IWUSR) == 0) attributes |= FILE_ATTRIBUTE_READONLY;
  return attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes;
}

DWORD FileStore::AttributesIn(const OpenFolder& folder, std::string_view upper_name,
                              mode_t mode) const {
  if (attributes_.empty()) return AttributesOf(folder.upper, mode);
  PcPath path;
  static_cast<void>(NormalisePath(upper_name, folder.upper, path));
  return AttributesOf(path.upper, mode);
}

LONG FileStore::OpenFolderAt(std::string_view path, OpenFolder& folder) {
  FolderCache::Place place;
  const LONG status = Find(path, false, place);
  if (status == ERROR_FILE_NOT_FOUND) return ERROR_PATH_NOT_FOUND;
  if (place.host_name != nullptr && !place.IsFolder()) return kErrorDirectory;
  if (status != ERROR_SUCCESS) return status;
  folder.host = HostFile(openat(folders_.Root(), folders_.HostPath(place), kOpenFolder));
  if (!folder.host) return StatusOfHostError(errno);
  folder.upper = path_.upper;
  return ERROR_SUCCESS;
}

LONG FileStore::OpenFolderOf(std::string_view path, OpenFolder& folder, std::string& name) {
  if (const LONG status = Resolve(path)) return status;
  const auto cut = path_.upper.find_last_of('\\') + 1;
  if (cut == path_.upper.size()) return ERROR_FILE_NOT_FOUND;  // a root lies in no folder
  const std::string upper = path_.upper;
  FolderCache::Place place;
  if (const LONG status = folders_.Find(upper, false, place)) return status;
  name = *place.host_name;
  return OpenFolderAt(upper.substr(0, cut), folder);
}

LONG FileStore::GetDetails(std::string_view path, FileDetails& details) {
  FolderCache::Place place;
  if (const LONG status = Find(path, false, place)) return status;
  mode_t mode = 0;
  if (!ReadHostDetails(folders_.Root(), folders_.HostPath(place), mode, details)) {
    return ERROR_FILE_NOT_FOUND;
  }
  details.attributes = AttributesOf(path_.upper, mode);
  return ERROR_SUCCESS;
}

LONG FileStore::GetAttributes(std::string_view path, DWORD& attributes) {
  FolderCache::Place place;
  const LONG status = Find(path, false, place);
  if (status == ERROR_SUCCESS) attributes = AttributesOf(place);
  return status;
}

LONG FileStore::SetAttributes(std::string_view path, DWORD attributes) {
  FolderCache::Place place;
  if (const LONG status = Find(path, true, place)) return status;
  return StoreAttributes(place, attributes);
}

LONG FileStore::StoreAttributes(const FolderCache::Place& place, DWORD attributes) {
  attributes &= kKeptAttributes;
  if (!place.IsFolder()) {
    const bool read_only = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    const mode_t mode = place.status.st_mode & 07777U;
    const mode_t wanted = read_only ? mode & ~mode_t{S_IWUSR | S_IWGRP | S_IWOTH} : mode | S_IWUSR;
    if (wanted != mode && fchmodat(folders_.Root(), folders_.HostPath(place), wanted, 0) != 0) {
      return StatusOfHostError(errno);
    }
    attributes &= ~FILE_ATTRIBUTE_READONLY;
  }
  const DWORD initial = place.IsFolder() ? 0 : FILE_ATTRIBUTE_ARCHIVE;
  if (attributes == initial) {
    attributes_.erase(path_.upper);
  } else {
    attributes_[path_.upper] = attributes;
  }
  return ERROR_SUCCESS;
}

LONG FileStore::Delete(std::string_view path) {
  FolderCache::Place place;
  if (const LONG status = Find(path, true, place)) return status;
  if (place.IsFolder() || (AttributesOf(place) & FILE_ATTRIBUTE_READONLY) != 0) {
    return ERROR_ACCESS_DENIED;
  }
  if (IsOpen(path_.upper)) return ERROR_SHARING_VIOLATION;
  if (unlinkat(folders_.Root(), folders_.HostPath(place), 0) != 0) return StatusOfHostError(errno);
  folders_.Removed(place);
  attributes_.erase(path_.upper);
  return ERROR_SUCCESS;
}

LONG FileStore::GetHostPath(std::string_view path, std::filesystem::path& host_path) {
  FolderCache::Place place;
  const LONG status = Find(path, true, place);
  if (status == ERROR_SUCCESS) host_path = pc_folder_ / folders_.HostPath(place);
  return status;
}

LONG FileStore::MoveOut(std::string_view path, const std::filesystem::path& to, DWORD& attributes) {
  FolderCache::Place place;
  if (const LONG status = Find(path, true, place)) return status;
  if (place.IsFolder()) return ERROR_ACCESS_DENIED;
  if (IsOpen(path_.upper)) return ERROR_SHARING_VIOLATION;
  attributes = AttributesOf(place);
  if (const LONG status = MoveHostFile(pc_folder_ / folders_.HostPath(place), to)) return status;
  folders_.Removed(place);
  attributes_.erase(path_.upper);
  return ERROR_SUCCESS;
}

LONG FileStore::MoveIn(const std::filesystem::path& from, std::string_view path, DWORD attributes) {
  if (const LONG status = MakeFolders(path)) return status;
  FolderCache::Place place;
  const LONG found = Find(path, true, place);
  if (found != ERROR_FILE_NOT_FOUND) return found == ERROR_SUCCESS ? ERROR_FILE_EXISTS : found;
  const std::string_view name = LastName(path_.text);
  const std::filesystem::path to = pc_folder_ / folders_.HostPath(place, name);
  if (const LONG status = MoveHostFile(from, to)) return status;
  folders_.Added(place, name, false);
  return SetAttributes(path, attributes);
}

// All above the last name.
LONG FileStore::MakeFolders(std::string_view path) {
  constexpr std::size_t kRootSize = 3;
  const std::string full = FullPath(path);
  for (auto end = full.find('\\', kRootSize); end != std::string::npos;
       end = full.find('\\', end + 1)) {
    const LONG status = MakeFolder(full.substr(0, end));
    if (status != ERROR_SUCCESS && status != ERROR_ALREADY_EXISTS) return status;
  }
  return ERROR_SUCCESS;
}

LONG FileStore::Copy(std::string_view from, std::string_view to, bool fail_if_exists) {
  FolderCache::Place source;
  if (const LONG status = Find(from, true, source)) return status;
  if (source.IsFolder()) return ERROR_ACCESS_DENIED;
  const DWORD attributes = AttributesOf(source);
  const std::string source_upper = path_.upper;
  std::string bytes;
  if (const LONG status = ReadWhole(from, bytes)) return status;
  FolderCache::Place target;
  const LONG found = Find(to, true, target);
  if (found == ERROR_SUCCESS) {
    if (path_.upper == source_upper) return ERROR_SHARING_VIOLATION;
    if (fail_if_exists) return ERROR_FILE_EXISTS;
  } else if (found != ERROR_FILE_NOT_FOUND) {
    return found;
  }
  if (const LONG status = WriteWhole(to, bytes)) return status;
  return SetAttributes(to, attributes | FILE_ATTRIBUTE_ARCHIVE);
}

LONG FileStore::Move(std::string_view from, std::string_view to, bool replace) {
  FolderCache::Place target;
  const LONG found = Find(to, true, target);
  if (found != ERROR_SUCCESS && found != ERROR_FILE_NOT_FOUND) return found;
  const bool existed = found == ERROR_SUCCESS;
  if (existed) {
    if (!replace) return ERROR_ALREADY_EXISTS;
    const bool read_only = (AttributesOf(target) & FILE_ATTRIBUTE_READONLY) != 0;
    if (target.IsFolder() || read_only || IsOpen(path_.upper)) return ERROR_ACCESS_DENIED;
  }
  const std::filesystem::path host_path =
      pc_folder_ /
      (existed ? folders_.HostPath(target) : folders_.HostPath(target, LastName(path_.text)));
  DWORD attributes = 0;
  if (const LONG status = MoveOut(from, host_path, attributes)) return status;
  if (!existed && Find(to, true, target) == ERROR_FILE_NOT_FOUND) {
    folders_.Added(target, LastName(path_.text), false);
  }
  return SetAttributes(to, attributes);
}

LONG FileStore::MakeFolder(std::string_view path) {
  FolderCache::Place place;
  const LONG status = Find(path, true, place);
  // A file in the way is no less in the way for a backslash behind its name.
  if (status == ERROR_SUCCESS || place.host_name != nullptr) return ERROR_ALREADY_EXISTS;
  if (status != ERROR_FILE_NOT_FOUND) return status;
  const std::string_view name = LastName(path_.text);
  if (mkdirat(folders_.Root(), folders_.HostPath(place, name), 0777) != 0) {
    return StatusOfHostError(errno);
  }
  folders_.Added(place, name, true);
  return ERROR_SUCCESS;
}

LONG FileStore::RemoveFolder(std::string_view path) {
  FolderCache::Place place;
  if (const LONG status = Find(path, true, place)) return status;
  if (!place.IsFolder()) return kErrorDirectory;
  if (unlinkat(folders_.Root(), folders_.HostPath(place), AT_REMOVEDIR) != 0) {
    return errno == ENOTEMPTY ? ERROR_DIR_NOT_EMPTY : StatusOfHostError(errno);
  }
  folders_.Removed(place);
  attributes_.erase(path_.upper);
  return ERROR_SUCCESS;
}

std::string FileStore::FullPath(std::string_view path) {
  PcPath full;
  return NormalisePath(path, current_folder_, full) == ERROR_SUCCESS ? full.text : std::string();
}

void FileStore::SetCurrentFolder(std::string_view path) {
  std::string full = FullPath(path);
  if (!full.empty()) current_folder_ = std::move(full);
}

void FileStore::DenyFile(std::string_view path) { denied_.push_back(UpperCase(FullPath(path))); }

void FileStore::AllowAllFiles() { denied_.clear(); }

void FileStore::FillDisk(std::optional<std::uint64_t> bytes_left) { bytes_left_ = bytes_left; }

void FileStore::SetDriveStatus(char letter, LONG status) {
  if (status == ERROR_SUCCESS) {
    failing_drives_.erase(letter);
  } else {
    failing_drives_[letter] = status;
  }
}

bool FileStore::IsDenied(std::string_view upper) const {
  return std::any_of(denied_.begin(), denied_.end(),
                     [upper](const std::string& denied) { return IsSameOrBelow(upper, denied); });
}

}  // namespace tidemark::hosted
