// The recycle bin of a hosted PC with a registry.reg: a folder of the host with two files for each
// file in the bin, "7", which is the file, and "7.info", which says in UTF-8 where it was:
//
//   path=C:\Folder\File.tmp
//   deleted=2006-11-04 13:05:09
//   attributes=32
#pragma once

#include <cstdint>
#include <filesystem>

#include "platform/hosted/recycle_bin.h"

namespace tidemark::hosted {

class FileStore;

class FolderRecycleBin : public RecycleBin {
 public:
  // Keeps both. The folder is made when the first file is thrown away.
  FolderRecycleBin(std::filesystem::path folder, FileStore& files);

  LONG Throw(std::string_view path, const SYSTEMTIME& time) override;
  std::vector<Item> List() const override;
  LONG Restore(std::size_t index) override;

 private:
  std::filesystem::path DataPath(const std::string& name) const;
  std::filesystem::path InfoPath(const std::string& name) const;
  std::vector<std::uint64_t> Numbers() const;
  LONG WriteRecord(const std::string& text, std::string& name);

  std::filesystem::path folder_;
  FileStore& files_;
  std::uint64_t last_number_ = 0;  // 0: not known
};

}  // namespace tidemark::hosted
