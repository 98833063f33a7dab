// Files that are kept before they are deleted: copies under numbered names, and a list of where
// they came from ("files.txt", UTF-8, a file a line, the fields between tabs: name of the copy,
// attributes, times of making, last access and last write as file times, size in bytes, checksum,
// path, checksum of the line up to there; and "gone", with the copy's name, once the file has been
// deleted).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/winapi.h"
#include "registry/record_file.h"

namespace tidemark {

struct KeptFile {
  std::string copy;  // the name of the copy in the record's folder
  std::string path;
  DWORD attributes = 0;
  FILETIME created{};
  FILETIME accessed{};
  FILETIME written{};
  std::uint64_t size_bytes = 0;
  std::string checksum;
  bool gone = false;  // it was deleted after it was kept
};

class KeptFiles {
 public:
  explicit KeptFiles(std::string folder);

  // Copies the file; it and its line in the list are on the disk when this returns true.
  bool Keep(const std::string& path);
  // The same for what another record has kept.
  bool Keep(KeptFile file, std::string_view bytes);
  // To be called after the deletion; notes whether the last one has gone.
  void Deleted();
  // Instead: it is about to be replaced.
  void Replaced();

 private:
  std::string folder_;
  RecordFile list_;
  unsigned number_ = 0;
  KeptFile last_;
};

struct KeptFilesList {
  std::vector<KeptFile> files;
  std::size_t damaged = 0;  // lines that are not whole
};
KeptFilesList ReadKeptFiles(std::string_view list);

// The list in the folder of a record.
std::string KeptFilesPath(const std::string& folder);

// Whether a file in that folder has a copy's numbered name.
bool IsNameOfCopy(std::string_view name);

// What a copy holds, when it is whole.
bool ReadCopy(const std::string& folder, const KeptFile& file, std::string& bytes);

// Whether a file with these bytes, attributes and time of the last write stands at the path.
bool StandsAsKept(const KeptFile& file, std::string_view bytes);

// Puts the file back to where it was, with its folders, times and attributes. False when that
// can't be done whole; what stood there before still does then.
bool PutBackFile(const KeptFile& file, std::string_view bytes);

}  // namespace tidemark
