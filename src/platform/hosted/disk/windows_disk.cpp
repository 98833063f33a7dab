#include "platform/hosted/disk/windows_disk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <memory>

#include "platform/hosted/host_file.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/letter_case.h"
#include "platform/registry_rules.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kConfig = "Windows\\System32\\config";

struct CloseFolder {
  void operator()(DIR* stream) const { closedir(stream); }
};

std::string NameIn(const fs::path& folder, std::string_view name) {
  std::error_code error;
  if (fs::exists(folder / name, error)) return std::string(name);
  HostFile host = OpenForReading(AT_FDCWD, folder.c_str(), O_DIRECTORY);
  const std::unique_ptr<DIR, CloseFolder> stream(host ? fdopendir(host.get()) : nullptr);
  if (!stream) return {};
  static_cast<void>(host.Release());  // the stream's now
  std::string first;
  while (const dirent* const entry = readdir(stream.get())) {
    const std::string_view found = entry->d_name;
    if (CompareIgnoringCase(found, name) == 0 && (first.empty() || found < first)) first = found;
  }
  return first;
}

// The bytes at the file's beginning, as far as there are so many.
std::string Beginning(const fs::path& file, std::size_t size_bytes) {
  std::string bytes(size_bytes, '\0');
  const HostFile host = OpenForReading(AT_FDCWD, file.c_str(), O_NONBLOCK);
  const ssize_t count = host ? read(host.get(), bytes.data(), bytes.size()) : -1;
  bytes.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
  return bytes;
}

}  // namespace

fs::path FindIgnoringCase(const fs::path& folder, std::string_view path) {
  fs::path found = folder;
  for (std::string_view part = NextPart(path); !part.empty(); part = NextPart(path)) {
    const std::string name = NameIn(found, part);
    if (name.empty()) return {};
    found /= name;
  }
  return found;
}

bool WindowsDisk::IsOne(const fs::path& folder) {
  return !FindIgnoringCase(folder, std::string(kConfig) + "\\SOFTWARE").empty();
}

std::string WindowsDisk::WhyNone(const fs::path& given) {
  std::error_code error;
  if (!fs::is_directory(given, error)) {
    // The name of a volume's kind stands behind its first jump (the boot sector's OEM name).
    constexpr std::size_t kNameAt = 3;
    constexpr std::size_t kNameSize = 8;
    const std::string start = Beginning(given, kNameAt + kNameSize);
    const std::string name = start.size() < kNameAt ? std::string() : start.substr(kNameAt);
    if (name == "-FVE-FS-") {
      return "is locked by BitLocker: unlock the volume and mount it, and name the folder";
    }
    if (name == "NTFS    ") return "is a volume that is not mounted: mount it and name the folder";
    return {};
  }
  if (fs::exists(given / "dislocker-file", error)) {
    return "holds an unlocked BitLocker volume: mount its dislocker-file and name that folder";
  }
  if (!FindIgnoringCase(given, kConfig).empty()) return "holds a Windows without its registry";
  if (!FindIgnoringCase(given, "System32\\config\\SOFTWARE").empty()) {
    return "is the folder of Windows itself: name the one above it";
  }
  if (!FindIgnoringCase(given, "System Volume Information").empty()) {
    return "is a disk of Windows without a Windows on it: name the disk that holds the folder "
           "Windows";
  }
  return {};
}

WindowsDisk::WindowsDisk(const fs::path& folder)
    : folder_(folder), config_(FindIgnoringCase(folder, kConfig)) {
  const fs::path sleep = Find("hiberfil.sys");
  if (sleep.empty()) return;
  const std::string state = UpperCase(Beginning(sleep, 4));
  if (state == "HIBR" || state == "RSTR") {
    throw HostedPcError(sleep.string() +
                        ": Windows is hibernated or was shut down for a fast start: start it and "
                        "shut it down in full once (shutdown /s /t 0)");
  }
}

fs::path WindowsDisk::Find(std::string_view path) const { return FindIgnoringCase(folder_, path); }

std::string WindowsDisk::WhyReadOnly() const {
  struct statvfs status {};
  if (statvfs(config_.c_str(), &status) == 0 && (status.f_flag & ST_RDONLY) != 0) {
    return folder_.string() + " is mounted read-only, so nothing on it can be changed.";
  }
  if (access(config_.c_str(), W_OK) == 0) return {};
  return config_.string() + " can't be written (" + std::strerror(errno) +
         "), so nothing on the disk can be changed.";
}

}  // namespace tidemark::hosted
