// The file-system object: file, folder and drive work with the answers that the platform's
// scripting runtime gives. Written once, on the plain calls.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/winapi.h"

namespace tidemark {

class FileSystemObject {
 public:
  // The error numbers that scripts see; 0 is none.
  enum Error : int {
    kNone = 0,
    kInvalidCall = 5,
    kBadFileName = 52,
    kFileNotFound = 53,
    kFileExists = 58,
    kDiskFull = 61,
    kDeviceUnavailable = 68,
    kPermissionDenied = 70,
    kDiskNotReady = 71,
    kPathNotFound = 76,
  };

  class Drive;
  class Folder;
  class File;

  // All drives that there are, by letter, ready or not.
  std::vector<Drive> Drives() const;
  // "C", "C:" or "C:\": kInvalidCall for any other text, kDeviceUnavailable when there is no such
  // drive.
  Error GetDrive(std::string_view drive, Drive& result) const;

  // Reads the folder too: fails as GetFolder below does, and with kPermissionDenied when what is in
  // it can't be listed.
  Error GetFolder(const std::string& path, Folder& result) const;

  // kFileNotFound for what is no file, kPermissionDenied, kDiskNotReady, kDeviceUnavailable;
  // kInvalidCall for the empty text.
  Error GetFile(const std::string& path, File& result) const;

  // True for a file; a folder, or any failure, gives false.
  bool FileExists(const std::string& path) const;
  bool FolderExists(const std::string& path) const;

  // What GetFolder fails with: kPathNotFound for a missing folder, for a file, and for a text that
  // can be no path; kInvalidCall for the empty text; kDiskNotReady, kPermissionDenied, and
  // kDeviceUnavailable for whatever else hides what is there.
  Error GetFolder(const std::string& path) const;

  // What stands at the path, by one look: what FileExists and GetFolder would say of it together.
  enum class Kind {
    kFile,
    kFolder,
    kMissing,  // GetFolder fails with kPathNotFound
    kUnknown,  // GetFolder fails in another way
  };
  Kind KindOf(const std::string& path) const;

  Error CreateFolder(const std::string& path);
  // Overwrites what is at `to`, unless that is read-only (kPermissionDenied). A `to` that ends in a
  // backslash is a folder.
  Error CopyFile(const std::string& from, const std::string& to);
  // With force also a read-only file goes.
  Error DeleteFile(const std::string& path, bool force);

  // All bytes; no value when the file can't be opened or read.
  std::optional<std::string> ReadAll(const std::string& path) const;
  // Truncates or creates. False when not all bytes could be written.
  bool WriteAll(const std::string& path, std::string_view bytes);
  // Creates the file if there is none. False when not all bytes could be written.
  bool Append(const std::string& path, std::string_view bytes);
};

// Asks the platform at each call, so the answers are those of the moment.
class FileSystemObject::Drive {
 public:
  enum Type { kUnknown, kRemovable, kFixed, kRemote, kCdRom, kRamDisk };

  explicit Drive(char letter = 'A') : letter_(letter) {}

  std::string DriveLetter() const { return {letter_}; }  // "C"
  Type DriveType() const;
  // Whether there is a disk in it, or a server behind it.
  bool IsReady() const;
  std::string RootFolder() const { return {letter_, ':', '\\'}; }
  // The disk's label, which may be empty; no value when the drive is not ready.
  std::optional<std::string> VolumeName() const;
  // "\\\\server\\share" of a network drive; else empty.
  std::string ShareName() const;

 private:
  char letter_;
};

// What was in a folder when it was got, as names in the platform's order.
class FileSystemObject::Folder {
 public:
  const std::string& Path() const {
    return path_;
  }  // without a backslash at its end, but that of a root
  const std::vector<std::string>& SubFolders() const { return sub_folders_; }
  const std::vector<std::string>& Files() const { return files_; }
  // The path of one of them.
  std::string PathOf(std::string_view name) const;

 private:
  friend class FileSystemObject;
  std::string path_;
  std::vector<std::string> sub_folders_;
  std::vector<std::string> files_;
};

// Asks the platform at each call: no value when the file has gone meanwhile, or can't be read.
class FileSystemObject::File {
 public:
  const std::string& Path() const { return path_; }
  std::optional<std::uint64_t> Size() const;  // bytes
  // "Text Document", as the shell's list of files says; empty when it can't say.
  std::string Type() const;
  std::optional<DWORD> Attributes() const;        // 0 for a file with none
  std::optional<SYSTEMTIME> DateCreated() const;  // local time
  std::optional<SYSTEMTIME> DateLastModified() const;
  // At once and for good. With force also a read-only file goes.
  Error Delete(bool force) const;

 private:
  friend class FileSystemObject;
  std::string path_;
};

}  // namespace tidemark
