// The drives, folders and files that the file-system object hands out.
#include <algorithm>

#include "platform/file_system_object.h"
#include "platform/file_times.h"
#include "platform/file_type_text.h"
#include "platform/folder_search.h"
#include "platform/winapi.h"

namespace tidemark {
namespace {

using Error = FileSystemObject::Error;

std::optional<WIN32_FILE_ATTRIBUTE_DATA> DetailsOf(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA details{};
  if (GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &details) == FALSE) {
    return std::nullopt;
  }
  return details;
}

char CapitalLetter(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 0x20) : letter;
}

}  // namespace

std::vector<FileSystemObject::Drive> FileSystemObject::Drives() const {
  std::vector<Drive> drives;
  DWORD letters = GetLogicalDrives();
  for (char letter = 'A'; letters != 0; ++letter, letters >>= 1U) {
    if ((letters & 1U) != 0) drives.emplace_back(letter);
  }
  return drives;
}

Error FileSystemObject::GetDrive(std::string_view drive, Drive& result) const {
  const char letter = drive.empty() ? '\0' : CapitalLetter(drive[0]);
  const std::string_view rest = drive.substr(std::min<std::size_t>(drive.size(), 1));
  if (letter < 'A' || letter > 'Z' || (!rest.empty() && rest != ":" && rest != ":\\")) {
    return kInvalidCall;
  }
  if ((GetLogicalDrives() >> static_cast<unsigned>(letter - 'A') & 1U) == 0) {
    return kDeviceUnavailable;
  }
  result = Drive(letter);
  return kNone;
}

FileSystemObject::Drive::Type FileSystemObject::Drive::DriveType() const {
  switch (GetDriveTypeA(RootFolder().c_str())) {
    case DRIVE_REMOVABLE:
      return kRemovable;
    case DRIVE_FIXED:
      return kFixed;
    case DRIVE_REMOTE:
      return kRemote;
    case DRIVE_CDROM:
      return kCdRom;
    case DRIVE_RAMDISK:
      return kRamDisk;
    default:
      return kUnknown;
  }
}

bool FileSystemObject::Drive::IsReady() const { return VolumeName().has_value(); }

std::optional<std::string> FileSystemObject::Drive::VolumeName() const {
  std::string label(MAX_PATH + 1, '\0');
  if (GetVolumeInformationA(RootFolder().c_str(), label.data(), static_cast<DWORD>(label.size()),
                            nullptr, nullptr, nullptr, nullptr, 0) == FALSE) {
    return std::nullopt;
  }
  label.resize(label.find('\0'));
  return label;
}

std::string FileSystemObject::Drive::ShareName() const {
  constexpr DWORD kLongest = 1024;
  std::string share(kLongest, '\0');
  auto size = kLongest;
  if (WNetGetConnectionA((DriveLetter() + ':').c_str(), share.data(), &size) != ERROR_SUCCESS) {
    return {};
  }
  share.resize(share.find('\0'));
  return share;
}

Error FileSystemObject::GetFolder(const std::string& path, Folder& result) const {
  if (const Error error = GetFolder(path)) return error;
  constexpr std::size_t kRootSize = 3;
  Folder folder;
  folder.path_ = path;
  while (folder.path_.size() > kRootSize && folder.path_.ends_with('\\')) folder.path_.pop_back();
  FolderSearch found(folder.PathOf("*"));
  // An empty root holds not even ".".
  if (!found && GetLastError() != ERROR_FILE_NOT_FOUND) return kPermissionDenied;
  for (; found; found.Next()) {
    if (found->name == "." || found->name == "..") continue;
    const bool is_folder = (found->attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    (is_folder ? folder.sub_folders_ : folder.files_).push_back(found->name);
  }
  result = std::move(folder);
  return kNone;
}

std::string FileSystemObject::Folder::PathOf(std::string_view name) const {
  std::string path = path_;
  if (!path.ends_with('\\') && !path.ends_with('/')) path += '\\';
  return path.append(name);
}

std::optional<std::uint64_t> FileSystemObject::File::Size() const {
  const auto details = DetailsOf(path_);
  if (!details) return std::nullopt;
  return std::uint64_t{details->nFileSizeHigh} << 32U | details->nFileSizeLow;
}

std::string FileSystemObject::File::Type() const { return FileTypeText(path_); }

std::optional<DWORD> FileSystemObject::File::Attributes() const {
  const DWORD attributes = GetFileAttributesA(path_.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return std::nullopt;
  return attributes & ~FILE_ATTRIBUTE_NORMAL;
}

std::optional<SYSTEMTIME> FileSystemObject::File::DateCreated() const {
  const auto details = DetailsOf(path_);
  return details ? LocalTimeOf(details->ftCreationTime) : std::nullopt;
}

std::optional<SYSTEMTIME> FileSystemObject::File::DateLastModified() const {
  const auto details = DetailsOf(path_);
  return details ? LocalTimeOf(details->ftLastWriteTime) : std::nullopt;
}

Error FileSystemObject::File::Delete(bool force) const {
  return FileSystemObject().DeleteFile(path_, force);
}

}  // namespace tidemark
