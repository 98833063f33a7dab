// Where deleted files go, from where they can be put back. Each kind of hosted PC has its own.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/winapi.h"

namespace tidemark::hosted {

class RecycleBin {
 public:
  RecycleBin() = default;
  virtual ~RecycleBin() = default;
  RecycleBin(const RecycleBin&) = delete;
  RecycleBin& operator=(const RecycleBin&) = delete;

  // Gives ERROR_SUCCESS, or why the file, which is then where it was, could not be taken.
  virtual LONG Throw(std::string_view path, const SYSTEMTIME& time) = 0;

  struct Item {
    std::string path;  // where it was
    SYSTEMTIME deleted{};
    DWORD attributes = 0;
    std::string name;  // of its files in the bin
  };
  // The first one thrown away comes first. What is no record of the bin's is passed over.
  virtual std::vector<Item> List() const = 0;

  // Puts the file with that index of List() back to where it was; folders that are gone meanwhile
  // are made. ERROR_FILE_EXISTS when there is a file again.
  virtual LONG Restore(std::size_t index) = 0;

  // Whether the file goes there also when a program deletes it for good.
  virtual bool TakesWhatIsDeleted(std::string_view /*path*/) const { return false; }
};

}  // namespace tidemark::hosted
