// The recycle bin of the hosted PC: a folder of the host with two files for each file in the bin,
// "7", which is the file, and "7.info", which says in UTF-8 where it was:
//
//   path=C:\Folder\File.tmp
//   deleted=2006-11-04 13:05:09
//   attributes=32
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/winapi.h"

namespace tidemark::hosted {

class FileStore;

class RecycleBin {
 public:
  // Keeps both. The folder is made when the first file is thrown away.
  RecycleBin(std::filesystem::path folder, FileStore& files);

  // Gives ERROR_SUCCESS, or why the file, which is then where it was, could not be taken.
  LONG Throw(std::string_view path, const SYSTEMTIME& time);

  struct Item {
    std::string path;  // where it was
    SYSTEMTIME deleted{};
    DWORD attributes = 0;
    std::uint64_t number = 0;
  };
  // The first one thrown away comes first. What is no record of the bin's is passed over.
  std::vector<Item> List() const;

  // Puts the file with that index of List() back to where it was; folders that are gone meanwhile
  // are made. ERROR_FILE_EXISTS when there is a file again.
  LONG Restore(std::size_t index);

 private:
  std::filesystem::path DataPath(std::uint64_t number) const;
  std::filesystem::path InfoPath(std::uint64_t number) const;
  std::vector<std::uint64_t> Numbers() const;
  LONG WriteRecord(const std::string& text, std::uint64_t& number);

  std::filesystem::path folder_;
  FileStore& files_;
  std::uint64_t last_number_ = 0;  // 0: not known
};

}  // namespace tidemark::hosted
