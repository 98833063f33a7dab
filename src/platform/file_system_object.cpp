#include "platform/file_system_object.h"

#include <algorithm>

#include "platform/unicode.h"
#include "platform/unique_handle.h"
#include "platform/winapi.h"

namespace tidemark {
namespace {

using Error = FileSystemObject::Error;

// What the scripting runtime makes of the last error. Where it knows no more, the device is to
// blame: an offline server, a locked volume, a disk that can't be read.
Error ErrorOf(DWORD status) {
  switch (status) {
    case ERROR_FILE_NOT_FOUND:
      return Error::kFileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_PATHNAME:
    case ERROR_INVALID_DRIVE:
      return Error::kPathNotFound;
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
      return Error::kDeviceUnavailable;
  }
}

// Whether nothing can be at the path. Any other error says that it could not be looked at.
bool IsMissing(Error error) {
  return error == Error::kFileNotFound || error == Error::kPathNotFound ||
         error == Error::kBadFileName;
}

// Whether a path can look like this, which a command line mostly can't.
bool IsPathByForm(std::string_view text) {
  constexpr std::string_view kForbidden = "\"*<>?|";
  constexpr int kLongestName = 255;  // characters
  int name = 0;
  for (std::size_t position = 0; position < text.size(); ++position) {
    const char c = text[position];
    const bool is_control = static_cast<unsigned char>(c) < 0x20;
    if (is_control || kForbidden.find(c) != std::string_view::npos) return false;
    if (c == ':' && position != 1) return false;
    if (c == '\\' || c == '/') {
      name = 0;
    } else if (!ContinuesCharacter(c) && ++name > kLongestName) {
      return false;
    }
  }
  return true;
}

// What looking at the root of the drive that the text begins with, quoted or not, ends with.
DWORD StatusOfDrive(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of("\" "), text.size()));
  if (text.size() < 2 || text[1] != ':') return ERROR_SUCCESS;
  const std::string root = {text[0], ':', '\\'};
  return GetFileAttributesA(root.c_str()) == INVALID_FILE_ATTRIBUTES ? GetLastError()
                                                                     : ERROR_SUCCESS;
}

// What GetFolder makes of attributes just asked for.
Error FolderError(const std::string& path, DWORD attributes) {
  if (attributes != INVALID_FILE_ATTRIBUTES) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? Error::kNone : Error::kPathNotFound;
  }
  DWORD status = GetLastError();
  // Too long for the call, it was not looked for: what can be a path may be there, and anything on
  // a drive that does not answer.
  if (status == ERROR_FILENAME_EXCED_RANGE && !IsPathByForm(path)) {
    status = StatusOfDrive(path);
    if (status == ERROR_SUCCESS) return Error::kPathNotFound;
  }
  const Error error = ErrorOf(status);
  return IsMissing(error) ? Error::kPathNotFound : error;
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
    return IsMissing(error) ? kFileNotFound : error;
  }
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return kFileNotFound;
  result.path_ = path;
  return kNone;
}

Error FileSystemObject::GetFolder(const std::string& path) const {
  if (path.empty()) return kInvalidCall;
  return FolderError(path, GetFileAttributesA(path.c_str()));
}

FileSystemObject::Kind FileSystemObject::KindOf(const std::string& path) const {
  if (path.empty()) return Kind::kUnknown;
  const DWORD attributes = GetFileAttributesA(path.c_str());
  switch (FolderError(path, attributes)) {
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
