#include "platform/folder_search.h"

#include "platform/unique_handle.h"
#include "platform/windows/wide_text.h"

namespace tidemark {
namespace {

struct SearchPolicy {
  using Handle = HANDLE;
  static Handle Invalid() { return INVALID_HANDLE_VALUE; }
  static void Close(Handle handle) { FindClose(handle); }
};

}  // namespace

struct FolderSearch::Search {
  UniqueHandle<SearchPolicy> handle;
  WIN32_FIND_DATAW record{};

  void Tell(Entry& entry) const {
    entry.name = Narrow(&record.cFileName[0]);
    entry.attributes = record.dwFileAttributes;
  }
};

FolderSearch::FolderSearch(const std::string& pattern) : search_(std::make_unique<Search>()) {
  search_->handle.Reset(FindFirstFileW(Wide(pattern).c_str(), &search_->record));
  found_ = static_cast<bool>(search_->handle);
  if (found_) search_->Tell(entry_);
}

FolderSearch::~FolderSearch() = default;

void FolderSearch::Next() {
  found_ = FindNextFileW(search_->handle.Get(), &search_->record) != FALSE;
  if (found_) search_->Tell(entry_);
}

}  // namespace tidemark
