// The sample PC as a switched-off PC: the files of its drive C as a disk of Windows, with its
// registry in hives, and drive D beside it.
#pragma once

#include <filesystem>

#include "platform/hosted/pc_choice.h"

namespace tidemark {

struct SampleDisk {
  // All lies in the folder, which is there.
  explicit SampleDisk(const std::filesystem::path& folder);

  std::filesystem::path disk;
  std::filesystem::path config;
  std::filesystem::path profile;  // of the one person, anna
  std::filesystem::path own;      // below it the program makes its folder for the disk
  hosted::DiskChoice choice;      // names drive D and the program's folder
};

}  // namespace tidemark
