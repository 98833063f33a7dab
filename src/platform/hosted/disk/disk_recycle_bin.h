// The recycle bin of a Windows disk, in the form that Windows Vista began and Windows 10 changed
// last: $Recycle.Bin\<sid> on the file's own drive, with two files for each file in the bin,
// "$R7K2QX1.txt", which is the file, and "$I7K2QX1.txt", which says where it was:
//
//   8 bytes   2
//   8 bytes   the file's size in bytes
//   8 bytes   when it was deleted, in 100 ns since 1601, UTC
//   4 bytes   how many 16-bit characters the path has, with its NUL
//   n bytes   the path
#pragma once

#include <string>

#include "platform/hosted/recycle_bin.h"

namespace tidemark::hosted {

class FileStore;

class DiskRecycleBin : public RecycleBin {
 public:
  // `no_bin` is the drive whose files are not the disk's; what is deleted there is gone.
  DiskRecycleBin(std::string user_sid, char no_bin, FileStore& files);

  LONG Throw(std::string_view path, const SYSTEMTIME& time) override;
  // Of all drives.
  std::vector<Item> List() const override;
  LONG Restore(std::size_t index) override;
  // What a repair deletes on the disk is to be found there too.
  bool TakesWhatIsDeleted(std::string_view path) const override;

 private:
  std::string FolderOn(char drive) const;

  std::string user_sid_;
  char no_bin_;
  FileStore& files_;
};

}  // namespace tidemark::hosted
