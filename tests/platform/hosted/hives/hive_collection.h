// The collection of real, odd, dirty and damaged hives that may lie beside the repository: each
// with what its reader has to make of it.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/hosted/hives/hive_file.h"

namespace tidemark::hosted {

struct CollectedHive {
  std::string file;  // "odd/EmptyHive"
  HiveState state;
  std::size_t keys;  // with the root; 0 for one that may not be read
  std::size_t values;
};

// Empty when the collection is not there.
std::vector<CollectedHive> CollectedHives();
// A copy of it in the folder, with its logs and unpacked.
std::filesystem::path CopyOf(const CollectedHive& hive, const std::filesystem::path& folder);

}  // namespace tidemark::hosted
