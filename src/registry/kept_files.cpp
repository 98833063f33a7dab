#include "registry/kept_files.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <optional>

#include "helpers/text_helpers.h"
#include "platform/file_system_object.h"
#include "platform/unique_handle.h"

namespace tidemark {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kGone = "gone";
constexpr DWORD kSettable = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                            FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                            FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

std::uint64_t NumberOf(FILETIME time) {
  return std::uint64_t{time.dwHighDateTime} << 32U | time.dwLowDateTime;
}

FILETIME TimeOf(std::uint64_t number) {
  return {static_cast<DWORD>(number), static_cast<DWORD>(number >> 32U)};
}

// ".lnk" of "C:\x.lnk".
std::string_view Extension(std::string_view path) {
  const std::string_view name = path.substr(path.find_last_of("\\/:") + 1);
  const auto dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string_view() : name.substr(dot);
}

bool TakeDetails(KeptFile& file) {
  WIN32_FILE_ATTRIBUTE_DATA found{};
  if (GetFileAttributesExA(file.path.c_str(), GetFileExInfoStandard, &found) == FALSE) return false;
  if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return false;
  file.attributes = found.dwFileAttributes;
  file.created = found.ftCreationTime;
  file.accessed = found.ftLastAccessTime;
  file.written = found.ftLastWriteTime;
  return true;
}

DWORD SettableOf(const KeptFile& file) {
  const DWORD attributes = file.attributes & kSettable;
  return attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes;
}

std::string LineOf(const KeptFile& file) {
  std::string line = file.copy;
  for (const std::uint64_t number :
       {std::uint64_t{file.attributes}, NumberOf(file.created), NumberOf(file.accessed),
        NumberOf(file.written), file.size_bytes}) {
    line += '\t' + std::to_string(number);
  }
  line += '\t' + file.checksum + '\t' + file.path;
  return line + '\t' + Checksum::Of(line);
}

std::optional<KeptFile> FileOf(std::string_view line, const std::vector<std::string>& fields) {
  constexpr std::size_t kFields = 9;
  if (fields.size() != kFields) return std::nullopt;
  std::array<std::uint64_t, 5> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const std::string& text = fields[i + 1];
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), numbers[i]);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  }
  // A copy lies in the record's own folder.
  if (fields[0].find_first_of("\\/:") != std::string::npos) return std::nullopt;
  KeptFile file;
  file.copy = fields[0];
  file.attributes = static_cast<DWORD>(numbers[0]);
  file.created = TimeOf(numbers[1]);
  file.accessed = TimeOf(numbers[2]);
  file.written = TimeOf(numbers[3]);
  file.size_bytes = numbers[4];
  file.checksum = fields[6];
  file.path = fields[7];
  return LineOf(file) == line ? std::optional(file) : std::nullopt;
}

// Makes a file of that name, and what it holds is on the disk.
bool WriteNew(const std::string& path, std::string_view bytes) {
  const UniqueFile file(CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                    CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
  return file && WriteBytes(file.Get(), bytes) && FlushFileBuffers(file.Get()) != FALSE;
}

// The same in the folder of that path, under a name that nothing has; the new path, or an empty
// one. The name is shorter than any link's.
std::string WriteBeside(const std::string& path, std::string_view bytes) {
  const std::string folder = path.substr(0, path.find_last_of("\\/:") + 1);
  std::string beside;
  for (int number = 0;
       beside.empty() || GetFileAttributesA(beside.c_str()) != INVALID_FILE_ATTRIBUTES; ++number) {
    beside = folder + "~" + std::to_string(number);
  }
  if (WriteNew(beside, bytes)) return beside;
  DeleteFileA(beside.c_str());
  return "";
}

void SetTimes(const std::string& path, const KeptFile& file) {
  const UniqueFile open(CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (open) SetFileTime(open.Get(), &file.created, &file.accessed, &file.written);
}

// A read-only file can't be replaced; one that could not be is as it was.
bool Replace(const std::string& from, const std::string& path) {
  KeptFile standing;
  standing.path = path;
  const bool stands = TakeDetails(standing);
  if (stands) SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  if (MoveFileExA(from.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) !=
      FALSE) {
    return true;
  }
  if (stands) SetFileAttributesA(path.c_str(), SettableOf(standing));
  return false;
}

void MakeFoldersAbove(const std::string& path) {
  for (auto end = path.find('\\', 3); end != std::string::npos; end = path.find('\\', end + 1)) {
    CreateDirectoryA(path.substr(0, end).c_str(), nullptr);
  }
}

}  // namespace

KeptFiles::KeptFiles(std::string folder)
    : folder_(std::move(folder)), list_(KeptFilesPath(folder_), {}, std::string(kLineEnd)) {}

bool KeptFiles::Keep(const std::string& path) {
  KeptFile file;
  file.path = path;
  last_ = {};
  if (path.find_first_of("\t\r\n") != std::string::npos || !TakeDetails(file)) return false;
  const auto bytes = FileSystemObject().ReadAll(path);
  return bytes && Keep(std::move(file), *bytes);
}

bool KeptFiles::Keep(KeptFile file, std::string_view bytes) {
  last_ = std::move(file);
  last_.size_bytes = bytes.size();
  last_.checksum = Checksum::Of(bytes);
  do {
    std::array<char, 16> number{};
    std::snprintf(number.data(), number.size(), "%06u", ++number_);
    last_.copy = std::string(number.data()).append(Extension(last_.path));
  } while (FileSystemObject().FileExists(folder_ + "\\" + last_.copy));
  return WriteNew(folder_ + "\\" + last_.copy, bytes) &&
         list_.Append(LineOf(last_).append(kLineEnd)) && list_.Flush();
}

void KeptFiles::Deleted() {
  if (!FileSystemObject().FileExists(last_.path)) Replaced();
}

void KeptFiles::Replaced() {
  if (last_.copy.empty()) return;
  const std::string line = std::string(kGone) + '\t' + last_.copy;
  list_.Append(line + '\t' + Checksum::Of(line) + std::string(kLineEnd));
  last_ = {};
}

KeptFilesList ReadKeptFiles(std::string_view text) {
  KeptFilesList list;
  while (!text.empty()) {
    const auto end = text.find(kLineEnd);
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + kLineEnd.size());
    if (line.empty()) continue;
    const std::vector<std::string> fields = Split(line, '\t');
    const std::string_view without_sum = line.substr(0, line.rfind('\t'));
    if (fields.size() == 3 && fields[0] == kGone && fields[2] == Checksum::Of(without_sum)) {
      for (KeptFile& file : list.files) file.gone = file.gone || file.copy == fields[1];
    } else if (auto file = FileOf(line, fields)) {
      list.files.push_back(*std::move(file));
    } else {
      ++list.damaged;
    }
  }
  return list;
}

std::string KeptFilesPath(const std::string& folder) { return folder + "\\files.txt"; }

bool IsNameOfCopy(std::string_view name) {
  constexpr std::size_t kDigits = 6;
  const auto end = std::min(name.find_first_not_of("0123456789"), name.size());
  return end >= kDigits && (end == name.size() || name[end] == '.');
}

bool ReadCopy(const std::string& folder, const KeptFile& file, std::string& bytes) {
  auto read = FileSystemObject().ReadAll(folder + "\\" + file.copy);
  if (!read || read->size() != file.size_bytes || Checksum::Of(*read) != file.checksum)
    return false;
  bytes = *std::move(read);
  return true;
}

bool StandsAsKept(const KeptFile& file, std::string_view bytes) {
  KeptFile standing;
  standing.path = file.path;
  return TakeDetails(standing) && SettableOf(standing) == SettableOf(file) &&
         NumberOf(standing.written) == NumberOf(file.written) &&
         FileSystemObject().ReadAll(file.path) == bytes;
}

bool PutBackFile(const KeptFile& file, std::string_view bytes) {
  MakeFoldersAbove(file.path);
  const std::string beside = WriteBeside(file.path, bytes);
  if (beside.empty()) return false;
  SetTimes(beside, file);
  if (!Replace(beside, file.path)) {
    DeleteFileA(beside.c_str());
    return false;
  }
  // The platform may have given it the time of making of the one that stood there.
  SetTimes(file.path, file);
  SetFileAttributesA(file.path.c_str(), SettableOf(file));
  return true;
}

}  // namespace tidemark
