#include "platform/hosted/file_search.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "platform/exact_text.h"
#include "platform/hosted/file_details.h"
#include "platform/hosted/file_store.h"
#include "platform/hosted/host_file.h"
#include "platform/hosted/name_pattern.h"
#include "platform/hosted/pc_path.h"
#include "platform/letter_case.h"

namespace tidemark::hosted {
namespace {

struct Name {
  std::string upper;
  std::string name;  // as on the host
};

struct CloseFolder {
  void operator()(DIR* stream) const { closedir(stream); }
};

// In the order of the capitals' 16-bit code units; of equals the one that is there comes first.
bool ComesBefore(const Name& left, const Name& right) {
  const auto [a, b] =
      std::mismatch(left.upper.begin(), left.upper.end(), right.upper.begin(), right.upper.end());
  if (b == right.upper.end()) return a == left.upper.end() && left.name < right.name;
  if (a == left.upper.end()) return true;
  const auto byte_a = static_cast<unsigned char>(*a);
  const auto byte_b = static_cast<unsigned char>(*b);
  if (byte_a < 0x80 || byte_b < 0x80) return byte_a < byte_b;
  return CompareIgnoringCase(left.upper, right.upper) < 0;
}

bool CanBeListed(const dirent& entry) {
  constexpr std::size_t kMost = sizeof(WIN32_FIND_DATAA::cFileName) - 1;
  const std::string_view name = entry.d_name;
  const bool kind_fits =
      entry.d_type == DT_REG || entry.d_type == DT_DIR || entry.d_type == DT_UNKNOWN;
  return kind_fits && name != "." && name != ".." && name.size() <= kMost && IsPcName(name);
}

std::string WithoutWildCards(std::string_view pattern) {
  const auto end = pattern.find_last_not_of(" .");
  std::string name(pattern.substr(0, end + 1));
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == '*' || c == '?'; }, 'x');
  return name;
}

LONG ReadNames(int folder, const SearchPattern& pattern, std::vector<Name>& names) {
  const int copy = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  const std::unique_ptr<DIR, CloseFolder> stream(copy < 0 ? nullptr : fdopendir(copy));
  if (!stream) return ERROR_ACCESS_DENIED;
  while (const dirent* const entry = readdir(stream.get())) {
    if (!CanBeListed(*entry)) continue;
    Name name{UpperCase(std::string_view(entry->d_name)), entry->d_name};
    if (pattern.Matches(name.upper)) names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end(), ComesBefore);
  const auto doubles = std::unique(names.begin(), names.end(),
                                   [](const Name& a, const Name& b) { return a.upper == b.upper; });
  names.erase(doubles, names.end());
  return ERROR_SUCCESS;
}

}  // namespace

struct FileSearches::Search {
  FileStore::OpenFolder folder;
  std::vector<Name> names;
  std::size_t next = 0;
};

FileSearches::FileSearches(FileStore& files) : files_(files) {}
FileSearches::~FileSearches() = default;

LONG FileSearches::Open(std::string_view pattern, Search& search) {
  constexpr std::size_t kRootSize = 3;
  if (pattern.size() > MAX_PATH && Utf16Length(pattern) > MAX_PATH) {
    return ERROR_FILENAME_EXCED_RANGE;
  }
  if (pattern.ends_with('\\') || pattern.ends_with('/')) return ERROR_FILE_NOT_FOUND;
  const auto cut = pattern.find_last_of("\\/:");
  const std::string_view last = pattern.substr(cut == std::string_view::npos ? 0 : cut + 1);
  if (!HasWildCards(last)) {
    Name name;
    const LONG status = files_.OpenFolderOf(pattern, search.folder, name.name);
    name.upper = UpperCase(name.name);
    search.names.push_back(std::move(name));
    return status;
  }
  if (!IsPcName(WithoutWildCards(last))) return ERROR_INVALID_NAME;
  const std::string_view folder = pattern.substr(0, pattern.size() - last.size());
  if (const LONG status = files_.OpenFolderAt(folder.empty() ? "." : folder, search.folder)) {
    return status;
  }
  const SearchPattern wanted(last);
  if (const LONG status = ReadNames(search.folder.host.get(), wanted, search.names)) return status;
  if (search.folder.upper.size() > kRootSize) {
    for (const char* const dots : {"..", "."}) {
      if (wanted.Matches(dots)) search.names.insert(search.names.begin(), {dots, dots});
    }
  }
  return search.names.empty() ? ERROR_FILE_NOT_FOUND : ERROR_SUCCESS;
}

LONG FileSearches::Advance(Search& search, WIN32_FIND_DATAA& found) {
  while (search.next < search.names.size()) {
    const Name& name = search.names[search.next++];
    FileDetails details;
    mode_t mode = 0;
    // Deleted since, or nothing that is there for the PC.
    if (!ReadHostDetails(search.folder.host.get(), name.name.c_str(), mode, details)) continue;
    details.attributes = files_.AttributesIn(search.folder, name.upper, mode);
    found = WIN32_FIND_DATAA{};
    CopyDetails(details, found);
    std::memcpy(&found.cFileName[0], name.name.c_str(), name.name.size() + 1);
    return ERROR_SUCCESS;
  }
  return ERROR_NO_MORE_FILES;
}

LONG FileSearches::Start(std::string_view pattern, HANDLE& search, WIN32_FIND_DATAA& found) {
  auto started = std::make_unique<Search>();
  if (const LONG status = Open(pattern, *started)) return status;
  if (Advance(*started, found) != ERROR_SUCCESS) return ERROR_FILE_NOT_FOUND;
  search = reinterpret_cast<HANDLE>(++last_handle_);  // NOLINT(performance-no-int-to-ptr)
  open_.emplace(search, std::move(started));
  return ERROR_SUCCESS;
}

LONG FileSearches::Next(HANDLE search, WIN32_FIND_DATAA& found) {
  const auto known = open_.find(search);
  return known == open_.end() ? ERROR_INVALID_HANDLE : Advance(*known->second, found);
}

LONG FileSearches::Close(HANDLE search) {
  return open_.erase(search) == 0 ? ERROR_INVALID_HANDLE : ERROR_SUCCESS;
}

}  // namespace tidemark::hosted
