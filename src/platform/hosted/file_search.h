// Searches of the hosted PC's folders: what FindFirstFileA, FindNextFileA and FindClose do. A
// search takes the names of its folder once, when it starts, and looks at each file when its turn
// comes.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>

#include "platform/winapi.h"

namespace tidemark::hosted {

class FileStore;

class FileSearches {
 public:
  explicit FileSearches(FileStore& files);
  ~FileSearches();
  FileSearches(const FileSearches&) = delete;
  FileSearches& operator=(const FileSearches&) = delete;

  // All give ERROR_SUCCESS or the status that the platform's call leaves as the last error. Names
  // come in the order of their capitals, "." and ".." of a folder below a root before all others.
  // What the host holds but no path of the PC can name is passed over, and so are names that the
  // record has no room for: cut off they would name another file.
  LONG Start(std::string_view pattern, HANDLE& search, WIN32_FIND_DATAA& found);
  LONG Next(HANDLE search, WIN32_FIND_DATAA& found);
  LONG Close(HANDLE search);

 private:
  struct Search;

  LONG Open(std::string_view pattern, Search& search);
  LONG Advance(Search& search, WIN32_FIND_DATAA& found);

  FileStore& files_;
  std::unordered_map<HANDLE, std::unique_ptr<Search>> open_;
  std::uintptr_t last_handle_ = 0;  // none is given twice: a stale handle finds nothing
};

}  // namespace tidemark::hosted
