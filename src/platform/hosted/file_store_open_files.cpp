// The open files of the file store: what CreateFileA, ReadFile, WriteFile and CloseHandle do.
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

#include "platform/hosted/file_store.h"
#include "platform/hosted/host_status.h"

namespace tidemark::hosted {
namespace {

constexpr DWORD kWriting = GENERIC_WRITE | FILE_APPEND_DATA;

}  // namespace

LONG FileStore::Open(std::string_view path, const OpenRequest& request, HANDLE& file,
                     bool& existed) {
  FolderCache::Place place;
  const LONG status = Find(path, true, place);
  existed = status == ERROR_SUCCESS;
  if (!existed && status != ERROR_FILE_NOT_FOUND) return status;
  const bool writing = (request.access & kWriting) != 0;
  if (existed) {
    if (request.disposition == CREATE_NEW) return ERROR_FILE_EXISTS;
    if (place.IsFolder()) return ERROR_ACCESS_DENIED;
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
  const char* const host_path = folders_.HostPath(place, name);
  HostFile host = existed && !writing && request.disposition != CREATE_ALWAYS
                      ? OpenForReading(folders_.Root(), host_path, O_NOFOLLOW)
                      : HostFile(openat(folders_.Root(), host_path, flags, 0666));
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
  if (!existed) {
    const std::string_view made = folders_.HostPath(place, name);
    opened->folder = made.substr(0, made.find_last_of('/'));
  }
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

LONG FileStore::Flush(HANDLE file) {
  OpenFile* const opened = Lookup(file);
  if (opened == nullptr) return ERROR_INVALID_HANDLE;
  if ((opened->access & kWriting) == 0) return ERROR_ACCESS_DENIED;
  if (before_flush) before_flush(opened->upper);
  if (fsync(opened->host.get()) != 0) return StatusOfHostError(errno);
  if (opened->folder.empty()) return ERROR_SUCCESS;
  const HostFile folder(openat(folders_.Root(), opened->folder.c_str(), O_RDONLY | O_DIRECTORY));
  if (!folder || fsync(folder.get()) != 0) return StatusOfHostError(errno);
  opened->folder.clear();
  return ERROR_SUCCESS;
}

LONG FileStore::SetTimes(HANDLE file, const FILETIME* accessed, const FILETIME* written) {
  OpenFile* const opened = Lookup(file);
  if (opened == nullptr) return ERROR_INVALID_HANDLE;
  const timespec times[] = {HostTimeOf(accessed), HostTimeOf(written)};
  return futimens(opened->host.get(), times) == 0 ? ERROR_SUCCESS : StatusOfHostError(errno);
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

LONG FileStore::Overwrite(std::string_view path, std::string_view bytes) {
  HANDLE file = nullptr;
  bool existed = false;
  if (const LONG status =
          Open(path, {GENERIC_WRITE, FILE_SHARE_READ, OPEN_ALWAYS, 0}, file, existed)) {
    return status;
  }
  DWORD written = 0;
  LONG status = Write(file, bytes.data(), static_cast<DWORD>(bytes.size()), written);
  if (status == ERROR_SUCCESS &&
      ftruncate(Lookup(file)->host.get(), static_cast<off_t>(bytes.size())) != 0) {
    status = StatusOfHostError(errno);
  }
  Close(file);
  return status;
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
