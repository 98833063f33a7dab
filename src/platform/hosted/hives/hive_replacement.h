// Puts a new hive file in the place of an old one, so that whatever happens on the way either the
// old state or the new one lies on the disk, never a mixture that Windows would replay.
#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace tidemark::hosted {

struct HiveReplacement {
  std::filesystem::path hive;
  std::filesystem::path former;  // where the old hive is kept; nothing lies there yet
  // Those of the hive that are there, moved to their names with the ending of `former`
  // (SOFTWARE.LOG1 to SOFTWARE.LOG1.tidemark-1).
  std::vector<std::filesystem::path> logs;
};

// Writes the bytes beside the hive, flushes them, reads them again, keeps the old hive under
// `former`, moves the logs aside and renames the new file into its place. Throws HostedPcError,
// with the old hive in its place, when a step fails.
void ReplaceHive(const HiveReplacement& replacement, std::string_view bytes);

// Called, if not null, before each step that changes the disk, with its name: tests stop there.
extern void (*before_hive_step)(const char* step);

}  // namespace tidemark::hosted
