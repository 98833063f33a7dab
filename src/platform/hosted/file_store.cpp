#include "platform/hosted/file_store.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

#include "platform/hosted/pc_settings.h"
#include "platform/letter_case.h"

namespace tidemark::hosted {
namespace {

constexpr LONG kErrorWriteFault = 29;
constexpr LONG kErrorGeneralFailure = 31;
constexpr DWORD kKeptAttributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                                  FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;
constexpr DWORD kWriting = GENERIC_WRITE | FILE_APPEND_DATA;

LONG StatusOfHostError(int error) {
  switch (error) {
    case ENOENT:
      return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
      return ERROR_PATH_NOT_FOUND;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ELOOP:
      return ERROR_ACCESS_DENIED;
    case EEXIST:
      return ERROR_ALREADY_EXISTS;
    case ENOSPC:
    case EDQUOT:
      return ERROR_DISK_FULL;
    case ENAMETOOLONG:
    case EILSEQ:
    case EINVAL:
      return ERROR_INVALID_NAME;
    default:
      return kErrorGeneralFailure;
  }
}

bool IsFolder(const FolderCache::Place& place) { return S_ISDIR(place.status.st_mode); }

bool IsSameOrBelow(std::string_view path, std::string_view folder) {
  if (!path.starts_with(folder)) return false;
  return path.size() == folder.size() || folder.ends_with('\\') || path[folder.size()] == '\\';
}

std::string_view LastName(std::string_view path) {
  return path.substr(path.find_last_of('\\') + 1);
}

}  // namespace

FileStore::FileStore(const std::filesystem::path& pc_folder, const PcSettings& settings)
    : folders_(pc_folder) {
  SetCurrentFolder(settings.program_folder);
  for (const auto& [letter, drive] : settings.drives) {
    if (!drive.ready) drives_not_ready_.insert(letter);
  }
  for (const std::string& path : settings.denied_files) DenyFile(path);
  for (const auto& [path, attributes] : settings.attributes) {
    attributes_[UpperCase(FullPath(path))] = attributes;
  }
}

// The text in path_, the status of the path as such, and what is there.
LONG FileStore::Find(std::string_view path, bool careful, FolderCache::Place& place) {
  if (const LONG status = NormalisePath(path, current_folder_, path_)) return status;
  if (!drives_not_ready_.empty() && drives_not_ready_.contains(path_.upper[0])) {
    return ERROR_NOT_READY;
  }
  if (!denied_.empty() && IsDenied(path_.upper)) return ERROR_ACCESS_DENIED;
  const LONG status = folders_.Find(path_.upper, careful, place);
  if (status == ERROR_SUCCESS && path_.ends_in_backslash && !IsFolder(place)) {
    return ERROR_INVALID_NAME;
  }
  return status;
}

DWORD FileStore::AttributesOf(const FolderCache::Place& place) const {
  DWORD attributes = IsFolder(place) ? 0 : FILE_ATTRIBUTE_ARCHIVE;
  if (!attributes_.empty()) {
    if (const auto known = attributes_.find(path_.upper); known != attributes_.end()) {
      attributes = known->second;
    }
  }
  if (IsFolder(place)) return attributes | FILE_ATTRIBUTE_DIRECTORY;
  if ((place.status.st_mode & S_IWUSR) == 0) attributes |= FILE_ATTRIBUTE_READONLY;
  return attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes;
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
  if (!IsFolder(place)) {
    const bool read_only = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    const mode_t mode = place.status.st_mode & 07777U;
    const mode_t wanted = read_only ? mode & ~mode_t{S_IWUSR | S_IWGRP | S_IWOTH} : mode | S_IWUSR;
    if (wanted != mode && fchmodat(folders_.Root(), folders_.HostPath(place), wanted, 0) != 0) {
      return StatusOfHostError(errno);
    }
    attributes &= ~FILE_ATTRIBUTE_READONLY;
  }
  const DWORD initial = IsFolder(place) ? 0 : FILE_ATTRIBUTE_ARCHIVE;
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
  if (IsFolder(place) || (AttributesOf(place) & FILE_ATTRIBUTE_READONLY) != 0) {
    return ERROR_ACCESS_DENIED;
  }
  if (IsOpen(path_.upper)) return ERROR_SHARING_VIOLATION;
  if (unlinkat(folders_.Root(), folders_.HostPath(place), 0) != 0) return StatusOfHostError(errno);
  folders_.Removed(place);
  attributes_.erase(path_.upper);
  return ERROR_SUCCESS;
}

LONG FileStore::Copy(std::string_view from, std::string_view to, bool fail_if_exists) {
  FolderCache::Place source;
  if (const LONG status = Find(from, true, source)) return status;
  if (IsFolder(source)) return ERROR_ACCESS_DENIED;
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

LONG FileStore::Open(std::string_view path, const OpenRequest& request, HANDLE& file,
                     bool& existed) {
  FolderCache::Place place;
  const LONG status = Find(path, true, place);
  existed = status == ERROR_SUCCESS;
  if (!existed && status != ERROR_FILE_NOT_FOUND) return status;
  const bool writing = (request.access & kWriting) != 0;
  if (existed) {
    if (request.disposition == CREATE_NEW) return ERROR_FILE_EXISTS;
    if (IsFolder(place)) return ERROR_ACCESS_DENIED;
    const DWORD attributes = AttributesOf(place);
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0 &&
        (writing || request.disposition == CREATE_ALWAYS)) {
      return ERROR_ACCESS_DENIED;
    }
    // A hidden or system file is only overwritten by who knows that it is one.
    constexpr DWORD kGuarded = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    if (request.disposition == CREATE_ALWAYS &&
        (attributes & kGuarded & ~request.attributes) != 0) {
      return ERROR_ACCESS_DENIED;
    }
  } else if (request.disposition == OPEN_EXISTING || path_.ends_in_backslash) {
    return path_.ends_in_backslash ? ERROR_INVALID_NAME : ERROR_FILE_NOT_FOUND;
  }
  if (ConflictsWithOpenFiles(path_.upper, request.access, request.share)) {
    return ERROR_SHARING_VIOLATION;
  }
  const std::string_view name = LastName(path_.text);
  const int flags = (writing ? O_RDWR : O_RDONLY) | O_NOFOLLOW | O_CLOEXEC |
                    (existed ? 0 : O_CREAT | O_EXCL) |
                    (request.disposition == CREATE_ALWAYS ? O_TRUNC : 0);
  HostFile host(openat(folders_.Root(), folders_.HostPath(place, name), flags, 0666));
  if (!host) return StatusOfHostError(errno);
  if (!existed) {
    folders_.Added(place, name, false);
    const DWORD attributes = request.attributes & kKeptAttributes;
    if (attributes != 0) SetAttributes(path, attributes | FILE_ATTRIBUTE_ARCHIVE);
  }
  auto opened = std::make_unique<OpenFile>();
  opened->host = std::move(host);
  opened->upper = path_.upper;
  opened->access = request.access;
  opened->share = request.share;
  file = opened.get();
  open_files_.push_back(std::move(opened));
  return ERROR_SUCCESS;
}

LONG FileStore::Read(HANDLE file, void* data, DWORD size_bytes, DWORD& bytes_read) {
  bytes_read = 0;
  OpenFile* const opened = Lookup(file);
  if (opened == nullptr) return ERROR_INVALID_HANDLE;
  if ((opened->access & GENERIC_READ) == 0) return ERROR_ACCESS_DENIED;
  const ssize_t count = read(opened->host.get(), data, size_bytes);
  if (count < 0) return StatusOfHostError(errno);
  bytes_read = static_cast<DWORD>(count);
  return ERROR_SUCCESS;
}

LONG FileStore::Write(HANDLE file, const void* data, DWORD size_bytes, DWORD& bytes_written) {
  bytes_written = 0;
  OpenFile* const opened = Lookup(file);
  if (opened == nullptr) return ERROR_INVALID_HANDLE;
  if ((opened->access & kWriting) == 0) return ERROR_ACCESS_DENIED;
  if (std::exchange(fail_next_write_, false)) return kErrorWriteFault;
  const int host = opened->host.get();
  const bool appending = (opened->access & GENERIC_WRITE) == 0;
  if (appending) lseek(host, 0, SEEK_END);
  std::uint64_t growth = 0;
  if (bytes_left_) {
    struct stat status {};
    fstat(host, &status);
    const off_t end = lseek(host, 0, SEEK_CUR) + static_cast<off_t>(size_bytes);
    growth = static_cast<std::uint64_t>(std::max<off_t>(end - status.st_size, 0));
    if (growth > *bytes_left_) return ERROR_DISK_FULL;
  }
  while (bytes_written < size_bytes) {
    const ssize_t count =
        write(host, static_cast<const char*>(data) + bytes_written, size_bytes - bytes_written);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return StatusOfHostError(errno);
    bytes_written += static_cast<DWORD>(count);
  }
  if (bytes_left_) *bytes_left_ -= growth;
  return ERROR_SUCCESS;
}

LONG FileStore::Close(HANDLE file) {
  const auto known = std::find_if(open_files_.begin(), open_files_.end(),
                                  [file](const auto& opened) { return opened.get() == file; });
  if (known == open_files_.end()) return ERROR_INVALID_HANDLE;
  open_files_.erase(known);
  return ERROR_SUCCESS;
}

LONG FileStore::ReadWhole(std::string_view path, std::string& bytes) {
  HANDLE file = nullptr;
  bool existed = false;
  const OpenRequest request{GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING, 0};
  if (const LONG status = Open(path, request, file, existed)) return status;
  bytes.clear();
  LONG status = ERROR_SUCCESS;
  for (;;) {
    constexpr DWORD kBlock = 65536;
    const std::size_t size = bytes.size();
    bytes.resize(size + kBlock);
    DWORD count = 0;
    status = Read(file, bytes.data() + size, kBlock, count);
    bytes.resize(size + count);
    if (count == 0) break;
  }
  Close(file);
  return status;
}

LONG FileStore::WriteWhole(std::string_view path, std::string_view bytes) {
  HANDLE file = nullptr;
  bool existed = false;
  if (const LONG status =
          Open(path, {GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS, 0}, file, existed)) {
    return status;
  }
  constexpr std::size_t kMost = std::size_t{1} << 30U;  // one call writes at most a DWORD of bytes
  LONG status = ERROR_SUCCESS;
  while (status == ERROR_SUCCESS && !bytes.empty()) {
    DWORD written = 0;
    status = Write(file, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), kMost)), written);
    bytes.remove_prefix(written);
    if (written == 0 && status == ERROR_SUCCESS) status = ERROR_DISK_FULL;
  }
  Close(file);
  return status;
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

void FileStore::FailNextWrite() { fail_next_write_ = true; }

bool FileStore::IsDenied(std::string_view upper) const {
  return std::any_of(denied_.begin(), denied_.end(),
                     [upper](const std::string& denied) { return IsSameOrBelow(upper, denied); });
}

bool FileStore::IsOpen(std::string_view upper) const {
  return std::any_of(open_files_.begin(), open_files_.end(),
                     [upper](const auto& opened) { return opened->upper == upper; });
}

bool FileStore::ConflictsWithOpenFiles(std::string_view upper, DWORD access, DWORD share) const {
  const auto allows = [](DWORD shared, DWORD wanted) {
    return ((wanted & GENERIC_READ) == 0 || (shared & FILE_SHARE_READ) != 0) &&
           ((wanted & kWriting) == 0 || (shared & FILE_SHARE_WRITE) != 0);
  };
  return std::any_of(open_files_.begin(), open_files_.end(), [&](const auto& opened) {
    return opened->upper == upper &&
           (!allows(opened->share, access) || !allows(share, opened->access));
  });
}

FileStore::OpenFile* FileStore::Lookup(HANDLE file) {
  const auto known = std::find_if(open_files_.begin(), open_files_.end(),
                                  [file](const auto& opened) { return opened.get() == file; });
  return known == open_files_.end() ? nullptr : known->get();
}

}  // namespace tidemark::hosted
