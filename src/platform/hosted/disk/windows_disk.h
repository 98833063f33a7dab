// A disk that Windows is installed on, mounted on the host: where its files lie, and whether it may
// be worked on. Nothing here writes.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tidemark::hosted {

class WindowsDisk {
 public:
  // Whether the folder holds Windows\System32\config\SOFTWARE, in any case.
  static bool IsOne(const std::filesystem::path& folder);

  // What a person can do about a path that is no disk, as one line without the path: a volume that
  // is locked or not mounted, the wrong folder of a disk. Empty when nothing points to a disk.
  static std::string WhyNone(const std::filesystem::path& given);

  // Throws HostedPcError when Windows on it sleeps, and will go on where it was.
  explicit WindowsDisk(const std::filesystem::path& folder);

  const std::filesystem::path& folder() const { return folder_; }
  const std::filesystem::path& config() const { return config_; }
  // What lies there, looked up ignoring case: "Users\anna\NTUSER.DAT". Empty when nothing does.
  std::filesystem::path Find(std::string_view path) const;
  // Why nothing on it can be changed, as one line; empty when it can.
  std::string WhyReadOnly() const;

 private:
  std::filesystem::path folder_;
  std::filesystem::path config_;
};

// Below any folder of the host.
std::filesystem::path FindIgnoringCase(const std::filesystem::path& folder, std::string_view path);

}  // namespace tidemark::hosted
