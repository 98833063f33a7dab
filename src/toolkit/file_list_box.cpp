#include "toolkit/file_list_box.h"

#include <algorithm>

#include "platform/file_system_object.h"
#include "platform/folder_search.h"
#include "platform/letter_case.h"
#include "platform/winapi.h"

namespace tidemark {
namespace {

std::vector<std::string> FilesOf(const std::string& folder, const std::string& pattern) {
  const std::string all = folder + (folder.ends_with('\\') ? "*" : "\\*");
  std::vector<std::string> names;
  for (FolderSearch found(all); found; found.Next()) {
    constexpr DWORD kNotListed =
        FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    if ((found->attributes & kNotListed) == 0 &&
        PathMatchSpecA(found->name.c_str(), pattern.c_str()) != FALSE) {
      names.push_back(found->name);
    }
  }
  std::sort(names.begin(), names.end(), [](const std::string& left, const std::string& right) {
    return CompareIgnoringCase(left, right) < 0;
  });
  return names;
}

}  // namespace

bool FileListBox::SetPath(const std::string& path) {
  if (!FileSystemObject().FolderExists(path)) return false;
  path_ = path;
  Refresh();
  return true;
}

void FileListBox::SetPattern(std::string pattern) {
  pattern_ = std::move(pattern);
  Refresh();
}

void FileListBox::Refresh() {
  list_index_ = -1;
  names_.clear();
  if (!path_.empty()) names_ = FilesOf(path_, pattern_);
}

std::string FileListBox::List(int index) const {
  if (index < 0 || index >= ListCount()) return {};
  return names_[static_cast<std::size_t>(index)];
}

}  // namespace tidemark
