#include "platform/hosted/hives/hive_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <system_error>
#include <utility>

#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_names.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Refuse(const fs::path& path, const std::error_code& error) {
  throw HostedPcError(path.string() + ": can't be read: " + error.message());
}

std::string ReadWhole(const fs::path& path) {
  std::error_code error;
  std::string bytes(fs::file_size(path, error), '\0');
  if (error) Refuse(path, error);
  std::ifstream file(path, std::ios::binary);
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file) Refuse(path, {errno, std::generic_category()});
  return bytes;
}

std::vector<fs::path> LogsOf(const fs::path& hive) {
  constexpr std::array kEndings = {".LOG", ".LOG1", ".LOG2"};
  std::vector<fs::path> logs;
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(hive.parent_path(), error)) {
    const std::string name = entry.path().filename().string();
    for (const char* ending : kEndings) {
      if (SameName(name, hive.filename().string() + ending)) logs.push_back(entry.path());
    }
  }
  if (error) Refuse(hive.parent_path(), error);
  std::sort(logs.begin(), logs.end());
  return logs;
}

}  // namespace

HiveFile ReadHive(const fs::path& path) {
  HiveFile hive{fs::absolute(path), {}, ReadWhole(path), {}};
  hive.logs = LogsOf(hive.path);
  std::vector<std::string> logs;
  for (const fs::path& log : hive.logs) logs.push_back(ReadWhole(log));
  hive.report = CheckHive(hive.bytes, logs);
  return hive;
}

}  // namespace tidemark::hosted
