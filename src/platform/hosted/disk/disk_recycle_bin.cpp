#include "platform/hosted/disk/disk_recycle_bin.h"

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <optional>
#include <random>
#include <utility>

#include "platform/exact_text.h"
#include "platform/hosted/clock.h"
#include "platform/hosted/file_store.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kForm = 2;
constexpr std::size_t kHeaderSize = 28;
constexpr std::int64_t kSecondsTo1970 = 11'644'473'600;

void AppendNumber(std::uint64_t number, int size_bytes, std::string& bytes) {
  for (int i = 0; i < size_bytes; ++i, number >>= 8U) bytes += static_cast<char>(number & 0xFFU);
}

std::uint64_t NumberAt(std::string_view bytes, std::size_t at, int size_bytes) {
  std::uint64_t number = 0;
  for (int i = size_bytes - 1; i >= 0; --i) {
    number = number << 8U | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
  }
  return number;
}

std::uint64_t FileTime(const SYSTEMTIME& local) {
  std::tm time{};
  time.tm_year = local.wYear - 1900;
  time.tm_mon = local.wMonth - 1;
  time.tm_mday = local.wDay;
  time.tm_hour = local.wHour;
  time.tm_min = local.wMinute;
  time.tm_sec = local.wSecond;
  time.tm_isdst = -1;
  return static_cast<std::uint64_t>(std::mktime(&time) + kSecondsTo1970) * 10'000'000 +
         local.wMilliseconds * 10'000U;
}

SYSTEMTIME LocalTime(std::uint64_t file_time) {
  const auto seconds = static_cast<std::time_t>(file_time / 10'000'000) - kSecondsTo1970;
  std::tm local{};
  localtime_r(&seconds, &local);
  return CalendarTime((static_cast<std::int64_t>(file_time / 10'000'000) + local.tm_gmtoff) * 1000 +
                      static_cast<std::int64_t>(file_time / 10'000 % 1000));
}

std::string Record(const std::string& path, std::uint64_t size_bytes, const SYSTEMTIME& time) {
  std::string name;
  AppendAsUtf16(path, name);
  AppendNumber(0, 2, name);
  std::string record;
  AppendNumber(kForm, 8, record);
  AppendNumber(size_bytes, 8, record);
  AppendNumber(FileTime(time), 8, record);
  AppendNumber(name.size() / 2, 4, record);
  return record + name;
}

std::optional<RecycleBin::Item> ReadRecord(std::string_view record) {
  if (record.size() < kHeaderSize || NumberAt(record, 0, 8) != kForm) return std::nullopt;
  const std::uint64_t units = NumberAt(record, 24, 4);
  const std::string_view name = record.substr(kHeaderSize);
  if (units == 0 || name.size() / 2 != units) return std::nullopt;
  RecycleBin::Item item;
  AppendFromUtf16(name, item.path);
  item.path.resize(std::min(item.path.size(), item.path.find('\0')));
  item.deleted = LocalTime(NumberAt(record, 16, 8));
  return item;
}

std::string Extension(std::string_view path) {
  const auto dot = path.find_last_of(".\\");
  const bool has_one = dot != std::string_view::npos && path[dot] == '.';
  return has_one ? std::string(path.substr(dot)) : std::string();
}

std::string RandomName() {
  constexpr std::string_view kSigns = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  static std::random_device source;
  std::string name;
  for (int i = 0; i < 6; ++i) name += kSigns[source() % kSigns.size()];
  return name;
}

}  // namespace

DiskRecycleBin::DiskRecycleBin(std::string user_sid, char no_bin, FileStore& files)
    : user_sid_(std::move(user_sid)), no_bin_(no_bin), files_(files) {}

std::string DiskRecycleBin::FolderOn(char drive) const {
  return std::string(1, drive) + ":\\$Recycle.Bin\\" + user_sid_;
}

bool DiskRecycleBin::TakesWhatIsDeleted(std::string_view path) const {
  const std::string full = files_.FullPath(path);
  return !full.empty() && full.front() != no_bin_;
}

LONG DiskRecycleBin::Throw(std::string_view path, const SYSTEMTIME& time) {
  const std::string full = files_.FullPath(path);
  FileDetails details;
  if (const LONG status = files_.GetDetails(full, details)) return status;
  if ((details.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return ERROR_ACCESS_DENIED;
  if (full.front() == no_bin_) return files_.Delete(full);
  const std::string folder = FolderOn(full.front());
  for (const std::string& part : {folder.substr(0, folder.rfind('\\')), folder}) {
    const LONG status = files_.MakeFolder(part);
    if (status != ERROR_SUCCESS && status != ERROR_ALREADY_EXISTS) return status;
  }
  const std::string name = RandomName() + Extension(full);
  const std::string info = folder + "\\$I" + name;
  DWORD attributes = 0;
  if (files_.GetAttributes(info, attributes) == ERROR_SUCCESS) return Throw(path, time);
  fs::path host_folder;
  if (const LONG status = files_.GetHostPath(folder, host_folder)) return status;
  LONG status = files_.WriteWhole(info, Record(full, details.size_bytes, time));
  if (status == ERROR_SUCCESS)
    status = files_.MoveOut(full, host_folder / ("$R" + name), attributes);
  if (status != ERROR_SUCCESS) static_cast<void>(files_.Delete(info));
  return status;
}

std::vector<RecycleBin::Item> DiskRecycleBin::List() const {
  std::vector<Item> items;
  for (char drive = 'A'; drive <= 'Z'; ++drive) {
    fs::path folder;
    if (drive == no_bin_ || files_.GetHostPath(FolderOn(drive), folder) != ERROR_SUCCESS) continue;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
      const std::string name = entry->path().filename().string();
      std::string record;
      if (!name.starts_with("$I") ||
          files_.ReadWhole(FolderOn(drive) + "\\" + name, record) != ERROR_SUCCESS) {
        continue;
      }
      std::optional<Item> item = ReadRecord(record);
      if (!item || !fs::is_regular_file(folder / ("$R" + name.substr(2)), error)) continue;
      item->name = FolderOn(drive) + "\\$I" + name.substr(2);
      items.push_back(std::move(*item));
    }
  }
  const auto when = [](const Item& item) {
    const SYSTEMTIME& at = item.deleted;
    return std::make_tuple(at.wYear, at.wMonth, at.wDay, at.wHour, at.wMinute, at.wSecond,
                           at.wMilliseconds, item.path);
  };
  std::sort(items.begin(), items.end(),
            [&](const Item& left, const Item& right) { return when(left) < when(right); });
  return items;
}

LONG DiskRecycleBin::Restore(std::size_t index) {
  const std::vector<Item> items = List();
  if (index >= items.size()) return ERROR_FILE_NOT_FOUND;
  std::string data = items[index].name;
  data[data.rfind('\\') + 2] = 'R';
  fs::path file;
  if (const LONG status = files_.GetHostPath(data, file)) return status;
  const LONG status = files_.MoveIn(file, items[index].path, FILE_ATTRIBUTE_ARCHIVE);
  if (status == ERROR_SUCCESS) static_cast<void>(files_.Delete(items[index].name));
  return status;
}

}  // namespace tidemark::hosted
