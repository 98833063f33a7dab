#include "platform/file_system_object.h"

#include <algorithm>

#include "platform/unique_handle.h"
#include "platform/winapi.h"

namespace tidemark {
namespace {

using Error = FileSystemObject::Error;

// What the scripting runtime makes of the last error.
Error ErrorOf(DWORD status) {
  switch (status) {
    case ERROR_FILE_NOT_FOUND:
      return Error::kFileNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
      return Error::kPermissionDenied;
    case ERROR_NOT_READY:
      return Error::kDiskNotReady;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return Error::kFileExists;
    case ERROR_DISK_FULL:
      return Error::kDiskFull;
    case ERROR_INVALID_NAME:
      return Error::kBadFileName;
    default:
      return Error::kPathNotFound;
  }
}

// What GetFolder makes of attributes just asked for.
Error FolderError(DWORD attributes) {
  if (attributes != INVALID_FILE_ATTRIBUTES) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? Error::kNone : Error::kPathNotFound;
  }
  switch (GetLastError()) {
    case ERROR_NOT_READY:
      return Error::kDiskNotReady;
    case ERROR_ACCESS_DENIED:
      return Error::kPermissionDenied;
    default:
      return Error::kPathNotFound;
  }
}

UniqueFile Open(const std::string& path, DWORD access, DWORD share, DWORD disposition) {
  return UniqueFile(CreateFileA(path.c_str(), access, share, nullptr, disposition,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
}

bool WriteTo(const UniqueFile& file, std::string_view bytes) {
  // One call writes at most a DWORD of bytes.
  constexpr std::size_t kMost = 1U << 30;
  while (file && !bytes.empty()) {
    const auto size = static_cast<DWORD>(std::min(bytes.size(), kMost));
    DWORD written = 0;
    if (WriteFile(file.Get(), bytes.data(), size, &written, nullptr) == FALSE || written != size) {
      return false;
    }
    bytes.remove_prefix(size);
  }
  return static_cast<bool>(file);
}

std::string_view NameIn(std::string_view path) {
  return path.substr(path.find_last_of("\\/:") + 1);
}

}  // namespace

bool FileSystemObject::FileExists(const std::string& path) const {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool FileSystemObject::FolderExists(const std::string& path) const {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

Error FileSystemObject::GetFile(const std::string& path, File& result) const {
  if (path.empty()) return kInvalidCall;
  const DWORD attributes = GetFileAttributesA(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    const Error error = ErrorOf(GetLastError());
    return error == kPermissionDenied || error == kDiskNotReady ? error : kFileNotFound;
  }
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return kFileNotFound;
  result.path_ = path;
  return kNone;
}

Error FileSystemObject::GetFolder(const std::string& path) const {
  if (path.empty()) return kInvalidCall;
  return FolderError(GetFileAttributesA(path.c_str()));
}

FileSystemObject::Kind FileSystemObject::KindOf(const std::string& path) const {
  if (path.empty()) return Kind::kUnknown;
  const DWORD attributes = GetFileAttributesA(path.c_str());
  switch (FolderError(attributes)) {
    case kNone:
      return Kind::kFolder;
    case kPathNotFound:
      return attributes == INVALID_FILE_ATTRIBUTES ? Kind::kMissing : Kind::kFile;
    default:
      return Kind::kUnknown;
  }
}

Error FileSystemObject::CreateFolder(const std::string& path) {
  if (path.empty()) return kInvalidCall;
  return CreateDirectoryA(path.c_str(), nullptr) != FALSE ? kNone : ErrorOf(GetLastError());
}

Error FileSystemObject::CopyFile(const std::string& from, const std::string& to) {
  if (from.empty() || to.empty()) return kInvalidCall;
  const bool into_folder = to.ends_with('\\') || to.ends_with('/');
  const std::string target = into_folder ? to + std::string(NameIn(from)) : to;
  // A folder is no file to copy, nor one to overwrite.
  if (FolderExists(from)) return kFileNotFound;
  if (FolderExists(target)) return kPermissionDenied;
  return CopyFileA(from.c_str(), target.c_str(), FALSE) != FALSE ? kNone : ErrorOf(GetLastError());
}

Error FileSystemObject::DeleteFile(const std::string& path, bool force) {
  if (path.empty()) return kInvalidCall;
  const DWORD attributes = GetFileAttributesA(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return ErrorOf(GetLastError());
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return kFileNotFound;
  const bool read_only = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  if (force && read_only) SetFileAttributesA(path.c_str(), attributes & ~FILE_ATTRIBUTE_READONLY);
  if (DeleteFileA(path.c_str()) != FALSE) return kNone;
  const Error error = ErrorOf(GetLastError());
  // It stays, so it stays as it was.
  if (force && read_only) SetFileAttributesA(path.c_str(), attributes);
  return error;
}

std::optional<std::string> FileSystemObject::ReadAll(const std::string& path) const {
  const UniqueFile file =
      Open(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
  if (!file) return std::nullopt;
  std::string bytes;
  for (;;) {
    constexpr DWORD kBlock = 65536;
    const std::size_t size = bytes.size();
    bytes.resize(size + kBlock);
    DWORD count = 0;
    const BOOL read = ReadFile(file.Get(), bytes.data() + size, kBlock, &count, nullptr);
    bytes.resize(size + count);
    if (read == FALSE) return std::nullopt;
    if (count == 0) return bytes;
  }
}

bool FileSystemObject::WriteAll(const std::string& path, std::string_view bytes) {
  return WriteTo(Open(path, GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS), bytes);
}

bool FileSystemObject::Append(const std::string& path, std::string_view bytes) {
  return WriteTo(Open(path, FILE_APPEND_DATA, FILE_SHARE_READ, OPEN_ALWAYS), bytes);
}

}  // namespace tidemark
