// The files of the hosted PC: what the file calls do, on paths of the PC, with the platform's
// statuses. The faults that can be asked for are here too.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/hosted/file_details.h"
#include "platform/hosted/folder_cache.h"
#include "platform/hosted/host_file.h"
#include "platform/hosted/pc_path.h"
#include "platform/winapi.h"

namespace tidemark::hosted {

struct PcSettings;

class FileStore {
 public:
  // Does not keep the settings: drive kinds, attributes and denied files are copied.
  FileStore(const DrivePlaces& places, const PcSettings& settings);

  // All give ERROR_SUCCESS or the status that the platform's call leaves as the last error. They
  // are plain acts: the registry editor, which runs beside the program, uses them too.
  LONG GetAttributes(std::string_view path, DWORD& attributes);
  LONG GetDetails(std::string_view path, FileDetails& details);
  LONG SetAttributes(std::string_view path, DWORD attributes);
  LONG Delete(std::string_view path);
  // Takes a file, read-only or not, out of the PC to a path of the host, and puts it back with all
  // folders above it. `attributes` are those that the host does not keep.
  LONG MoveOut(std::string_view path, const std::filesystem::path& to, DWORD& attributes);
  LONG MoveIn(const std::filesystem::path& from, std::string_view path, DWORD attributes);
  // Where on the host lies what the path names.
  LONG GetHostPath(std::string_view path, std::filesystem::path& host_path);
  LONG Copy(std::string_view from, std::string_view to, bool fail_if_exists);
  // A file, with its times and attributes.
  LONG Move(std::string_view from, std::string_view to, bool replace);
  LONG MakeFolder(std::string_view path);
  // An empty one.
  LONG RemoveFolder(std::string_view path);

  struct OpenRequest {
    DWORD access = GENERIC_READ;
    DWORD share = FILE_SHARE_READ;
    DWORD disposition = OPEN_EXISTING;
    DWORD attributes = 0;  // of a file that is made
  };
  // `existed` tells whether the file was there before.
  LONG Open(std::string_view path, const OpenRequest& request, HANDLE& file, bool& existed);
  LONG Read(HANDLE file, void* data, DWORD size_bytes, DWORD& bytes_read);
  LONG Write(HANDLE file, const void* data, DWORD size_bytes, DWORD& bytes_written);
  // To the host's disk: what was written, and the name of a file that was made.
  LONG Flush(HANDLE file);
  // Null leaves a time as it is. The host keeps no time of making that can be set.
  LONG SetTimes(HANDLE file, const FILETIME* accessed, const FILETIME* written);
  LONG Close(HANDLE file);
  // Called, if set, before a flush, with the path of the file in capitals: tests pull the plug
  // there.
  std::function<void(const std::string& upper_path)> before_flush;

  // The whole of a file. Writing truncates or creates it.
  LONG ReadWhole(std::string_view path, std::string& bytes);
  LONG WriteWhole(std::string_view path, std::string_view bytes);
  // Writes over what is there, whose attributes stay; when there is no room for the bytes, the old
  // ones stay too.
  LONG Overwrite(std::string_view path, std::string_view bytes);

  // For a search: a folder of the host that is open, and its path in capitals ("C:\").
  struct OpenFolder {
    HostFile host;
    std::string upper;
  };
  LONG OpenFolderAt(std::string_view path, OpenFolder& folder);
  // The folder that holds what the path names, and that one's name as it is written there.
  LONG OpenFolderOf(std::string_view path, OpenFolder& folder, std::string& name);
  // Of an entry of the folder, "." and ".." included, which the host says is of that mode.
  DWORD AttributesIn(const OpenFolder& folder, std::string_view upper_name, mode_t mode) const;

  // "C:\Folder\File" of any path; empty when the text can be no path.
  std::string FullPath(std::string_view path);
  void SetCurrentFolder(std::string_view path);

  // From here on every call on the file or folder, or on what lies below it, answers
  // ERROR_ACCESS_DENIED.
  void DenyFile(std::string_view path);
  void AllowAllFiles();
  // Leaves so many bytes on the disks; no value: they are as large as the host's again.
  void FillDisk(std::optional<std::uint64_t> bytes_left);
  // What every call on the drive fails with from now on; ERROR_SUCCESS for none.
  void SetDriveStatus(char letter, LONG status);

 private:
  static constexpr DWORD kKeptAttributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                                           FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;

  struct OpenFile {
    HostFile host;
    std::string upper;
    DWORD access = 0;
    DWORD share = 0;
    std::string folder = {};  // of the host, when the file was made and its name is not on the disk
  };

  LONG Resolve(std::string_view path);
  LONG Find(std::string_view path, bool careful, FolderCache::Place& place);
  LONG MakeFolders(std::string_view path);
  bool IsDenied(std::string_view upper) const;
  bool IsOpen(std::string_view upper) const;
  bool ConflictsWithOpenFiles(std::string_view upper, DWORD access, DWORD share) const;
  DWORD AttributesOf(const FolderCache::Place& place) const;
  DWORD AttributesOf(const std::string& upper, mode_t mode) const;
  LONG StoreAttributes(const FolderCache::Place& place, DWORD attributes);
  OpenFile* Lookup(HANDLE file);

  std::filesystem::path pc_folder_;
  FolderCache folders_;
  std::string current_folder_ = "C:\\";
  std::map<char, LONG> failing_drives_;
  PcPath path_;  // the path of the call at work; kept for its memory
  // Hidden, system and archive of the files whose attributes are not just "archive", and read-only
  // of folders, by path in capitals. The read-only of a file is the host's write permission.
  std::unordered_map<std::string, DWORD> attributes_;
  std::vector<std::string> denied_;
  std::vector<std::unique_ptr<OpenFile>> open_files_;
  std::optional<std::uint64_t> bytes_left_;
};

}  // namespace tidemark::hosted
