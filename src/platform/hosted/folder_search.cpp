// The search in the hosted PC's folders. It takes the names of its folder once, when it starts, and
// looks at each file when its turn comes. Names come in the order of their capitals, "." and ".."
// of a folder below a root before all others. What the host holds but no path of the PC can name is
// passed over.
#include "platform/folder_search.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "platform/exact_text.h"
#include "platform/hosted/file_details.h"
#include "platform/hosted/file_store.h"
#include "platform/hosted/host_file.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/name_pattern.h"
#include "platform/hosted/pc_path.h"
#include "platform/hosted/registry_editor.h"
#include "platform/letter_case.h"

namespace tidemark {
namespace {

using hosted::FileDetails;
using hosted::FileStore;
using hosted::HostedPc;
using hosted::SearchPattern;

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
  const std::string_view name = entry.d_name;
  const bool kind_fits =
      entry.d_type == DT_REG || entry.d_type == DT_DIR || entry.d_type == DT_UNKNOWN;
  return kind_fits && name != "." && name != ".." && hosted::IsPcName(name);
}

std::string WithoutWildCards(std::string_view pattern) {
  const auto end = pattern.find_last_not_of(" .");
  std::string name(pattern.substr(0, end + 1));
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == '*' || c == '?'; }, 'x');
  return name;
}

LONG ReadNames(int folder, const SearchPattern& pattern, std::vector<Name>& names) {
  const int copy = hosted::OpenForReading(folder, ".", O_DIRECTORY).Release();
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

// With what the registry editor has written by now.
FileStore& Files() {
  HostedPc& pc = HostedPc::Current();
  pc.editor().CatchUp();
  return pc.files();
}

}  // namespace

struct FolderSearch::Search {
  LONG Open(std::string_view pattern);
  bool Advance(Entry& entry);

  FileStore::OpenFolder folder;
  std::vector<Name> names;
  std::size_t next = 0;
};

LONG FolderSearch::Search::Open(std::string_view pattern) {
  constexpr std::size_t kRootSize = 3;
  if (pattern.size() > MAX_PATH && Utf16Length(pattern) > MAX_PATH) {
    return ERROR_FILENAME_EXCED_RANGE;
  }
  if (pattern.ends_with('\\') || pattern.ends_with('/')) return ERROR_FILE_NOT_FOUND;
  const auto cut = pattern.find_last_of("\\/:");
  const std::string_view last = pattern.substr(cut == std::string_view::npos ? 0 : cut + 1);
  if (!hosted::HasWildCards(last)) {
    Name name;
    const LONG status = Files().OpenFolderOf(pattern, folder, name.name);
    name.upper = UpperCase(name.name);
    names.push_back(std::move(name));
    return status;
  }
  if (!hosted::IsPcName(WithoutWildCards(last))) return ERROR_INVALID_NAME;
  const std::string_view place = pattern.substr(0, pattern.size() - last.size());
  if (const LONG status = Files().OpenFolderAt(place.empty() ? "." : place, folder)) return status;
  const SearchPattern wanted(last);
  if (const LONG status = ReadNames(folder.host.get(), wanted, names)) return status;
  if (folder.upper.size() > kRootSize) {
    for (const char* const dots : {"..", "."}) {
      if (wanted.Matches(dots)) names.insert(names.begin(), {dots, dots});
    }
  }
  return ERROR_SUCCESS;
}

bool FolderSearch::Search::Advance(Entry& entry) {
  while (next < names.size()) {
    const Name& name = names[next++];
    FileDetails details;
    mode_t mode = 0;
    // Deleted since, or nothing that is there for the PC.
    if (!ReadHostDetails(folder.host.get(), name.name.c_str(), mode, details)) continue;
    entry = {name.name, Files().AttributesIn(folder, name.upper, mode)};
    return true;
  }
  return false;
}

FolderSearch::FolderSearch(const std::string& pattern) : search_(std::make_unique<Search>()) {
  const LONG status = search_->Open(pattern);
  found_ = status == ERROR_SUCCESS && search_->Advance(entry_);
  if (!found_)
    SetLastError(status != ERROR_SUCCESS ? static_cast<DWORD>(status) : ERROR_FILE_NOT_FOUND);
}

FolderSearch::~FolderSearch() = default;

void FolderSearch::Next() {
  found_ = search_->Advance(entry_);
  if (!found_) SetLastError(ERROR_NO_MORE_FILES);
}

}  // namespace tidemark
