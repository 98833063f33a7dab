#include "platform/hosted/folder_recycle_bin.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <optional>
#include <utility>

#include "platform/hosted/file_store.h"
#include "platform/hosted/host_file.h"
#include "platform/hosted/host_status.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kInfo = ".info";

std::string RecordText(const RecycleBin::Item& item) {
  char time[64] = "";
  const SYSTEMTIME& deleted = item.deleted;
  std::snprintf(time, sizeof(time), "%04u-%02u-%02u %02u:%02u:%02u", deleted.wYear, deleted.wMonth,
                deleted.wDay, deleted.wHour, deleted.wMinute, deleted.wSecond);
  return "path=" + item.path + "\ndeleted=" + time +
         "\nattributes=" + std::to_string(item.attributes) + '\n';
}

// Cuts the next line off, which has to begin with the name.
std::optional<std::string> TakeLine(std::istream& text, std::string_view name) {
  std::string line;
  if (!std::getline(text, line) || !line.starts_with(name)) return std::nullopt;
  return line.substr(name.size());
}

std::optional<SYSTEMTIME> ReadTime(const std::string& text) {
  unsigned parts[6] = {};
  int end = 0;
  if (std::sscanf(text.c_str(), "%4u-%2u-%2u %2u:%2u:%2u%n", &parts[0], &parts[1], &parts[2],
                  &parts[3], &parts[4], &parts[5], &end) != 6 ||
      static_cast<std::size_t>(end) != text.size()) {
    return std::nullopt;
  }
  SYSTEMTIME time{};
  WORD* const fields[] = {&time.wYear, &time.wMonth,  &time.wDay,
                          &time.wHour, &time.wMinute, &time.wSecond};
  for (std::size_t i = 0; i < 6; ++i) *fields[i] = static_cast<WORD>(parts[i]);
  return time;
}

std::optional<RecycleBin::Item> ReadRecord(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const auto path = TakeLine(stream, "path=");
  const auto deleted = TakeLine(stream, "deleted=");
  const auto attributes = TakeLine(stream, "attributes=");
  const auto time = deleted ? ReadTime(*deleted) : std::nullopt;
  if (!path || path->empty() || !time || !attributes) return std::nullopt;
  RecycleBin::Item item{*path, *time, 0, {}};
  const char* const end = attributes->data() + attributes->size();
  const auto read = std::from_chars(attributes->data(), end, item.attributes);
  if (read.ec != std::errc{} || read.ptr != end) return std::nullopt;
  return item;
}

}  // namespace

FolderRecycleBin::FolderRecycleBin(std::filesystem::path folder, FileStore& files)
    : folder_(std::move(folder)), files_(files) {}

fs::path FolderRecycleBin::DataPath(const std::string& name) const { return folder_ / name; }

fs::path FolderRecycleBin::InfoPath(const std::string& name) const {
  return folder_ / std::string(name).append(kInfo);
}

// Of all records, in order.
std::vector<std::uint64_t> FolderRecycleBin::Numbers() const {
  std::vector<std::uint64_t> numbers;
  std::error_code error;
  for (fs::directory_iterator entry(folder_, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    std::uint64_t number = 0;
    const auto read = std::from_chars(name.data(), name.data() + name.size(), number);
    if (read.ec == std::errc{} && read.ptr == name.data() + name.size() - kInfo.size() &&
        name.ends_with(kInfo)) {
      numbers.push_back(number);
    }
  }
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

// Under a number that nobody has taken, also no other process that works on the folder.
LONG FolderRecycleBin::WriteRecord(const std::string& text, std::string& name) {
  if (last_number_ == 0) {
    const std::vector<std::uint64_t> numbers = Numbers();
    if (!numbers.empty()) last_number_ = numbers.back();
  }
  for (;;) {
    name = std::to_string(++last_number_);
    const HostFile file(
        open(InfoPath(name).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file && errno == EEXIST) continue;
    if (!file) return StatusOfHostError(errno);
    const ssize_t written = write(file.get(), text.data(), text.size());
    if (written == static_cast<ssize_t>(text.size())) return ERROR_SUCCESS;
    unlink(InfoPath(name).c_str());
    return ERROR_DISK_FULL;
  }
}

LONG FolderRecycleBin::Throw(std::string_view path, const SYSTEMTIME& time) {
  Item item{files_.FullPath(path), time, 0, {}};
  if (const LONG status = files_.GetAttributes(path, item.attributes)) return status;
  std::error_code error;
  fs::create_directory(folder_, error);
  if (error) return StatusOfHostError(error.value());
  if (const LONG status = WriteRecord(RecordText(item), item.name)) return status;
  const LONG status = files_.MoveOut(path, DataPath(item.name), item.attributes);
  if (status != ERROR_SUCCESS) fs::remove(InfoPath(item.name), error);
  return status;
}

std::vector<RecycleBin::Item> FolderRecycleBin::List() const {
  std::vector<Item> items;
  for (const std::uint64_t number : Numbers()) {
    std::error_code error;
    const std::string name = std::to_string(number);
    std::optional<Item> item = ReadRecord(InfoPath(name));
    if (!item || !fs::is_regular_file(DataPath(name), error)) continue;
    item->name = name;
    items.push_back(std::move(*item));
  }
  return items;
}

LONG FolderRecycleBin::Restore(std::size_t index) {
  const std::vector<Item> items = List();
  if (index >= items.size()) return ERROR_FILE_NOT_FOUND;
  const Item& item = items[index];
  const LONG status = files_.MoveIn(DataPath(item.name), item.path, item.attributes);
  std::error_code error;
  if (status == ERROR_SUCCESS) fs::remove(InfoPath(item.name), error);
  return status;
}

}  // namespace tidemark::hosted
