// The file-system object: file, folder and drive work with the answers that the platform's
// scripting runtime gives. Written once, on the plain calls.
#pragma once

#include <optional>
#include <string>
#include <string_view>

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
    kPermissionDenied = 70,
    kDiskNotReady = 71,
    kPathNotFound = 76,
  };

  // True for a file; a folder, or any failure, gives false.
  bool FileExists(const std::string& path) const;
  bool FolderExists(const std::string& path) const;

  // What GetFolder fails with: kPathNotFound for a missing folder, for a file, and for a text that
  // can be no path; kInvalidCall for the empty text; kDiskNotReady, kPermissionDenied.
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

}  // namespace tidemark
