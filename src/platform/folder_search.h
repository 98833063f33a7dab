// A search for the files and folders of a folder. The platform's own search with 8-bit names keeps
// 260 bytes for a name, which 90 Chinese letters exceed in UTF-8: it cuts such a name off, or ends
// there. This one gives every name whole.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/winapi.h"

namespace tidemark {

class FolderSearch {
 public:
  struct Entry {
    std::string name;  // "." and ".." too, of a folder below a root
    DWORD attributes = 0;
  };

  // Finds the first entry. The pattern may have "*" and "?" in its last name; through a file's
  // short name it may fit other names as well.
  explicit FolderSearch(const std::string& pattern);
  ~FolderSearch();
  FolderSearch(const FolderSearch&) = delete;
  FolderSearch& operator=(const FolderSearch&) = delete;

  // Whether an entry was found. If not, the last error says why: ERROR_NO_MORE_FILES behind the
  // last one, ERROR_FILE_NOT_FOUND when none fits, or what keeps the folder from being searched.
  explicit operator bool() const { return found_; }
  const Entry& operator*() const { return entry_; }
  const Entry* operator->() const { return &entry_; }
  void Next();

 private:
  struct Search;  // what each ground needs to go on

  std::unique_ptr<Search> search_;
  Entry entry_;
  bool found_ = false;
};

// Whether the name ends in a blank or a dot. Other systems can leave such names behind; as a path
// they mean what has the name without them.
inline bool MeansANamesake(std::string_view name) {
  return name.ends_with(' ') || name.ends_with('.');
}

}  // namespace tidemark
