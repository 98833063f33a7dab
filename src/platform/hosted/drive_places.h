// Where the drives of a hosted PC lie on the host.
#pragma once

#include <filesystem>
#include <map>
#include <utility>

namespace tidemark::hosted {

struct DrivePlaces {
  // A hosted PC's folder, with a folder drives/ that holds one for each drive.
  DrivePlaces(const std::filesystem::path& pc_folder) : folder(pc_folder) {}  // NOLINT
  // Folders of the host, mounted disks of Windows among them: in these, symbolic links lead where
  // they do for Windows, and what the file system can't tell is not taken for gone.
  explicit DrivePlaces(std::map<char, std::filesystem::path> folders)
      : drives(std::move(folders)) {}

  std::filesystem::path folder;
  std::map<char, std::filesystem::path> drives;  // by capital letter; absolute paths

  bool are_disks() const { return !drives.empty(); }
};

}  // namespace tidemark::hosted
