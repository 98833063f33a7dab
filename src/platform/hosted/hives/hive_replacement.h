// A new hive file that takes the place of an old one, so that whatever happens on the way either
// the old state or the new one lies on the disk, never a mixture that Windows would replay.
#pragma once

#include <filesystem>
#include <memory>
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

// The name of a new file while it lies beside the hive.
std::filesystem::path NewHiveName(const std::filesystem::path& hive);

class NewHive {
 public:
  // Writes the bytes beside the hive, flushes them and reads them again. Throws HostedPcError.
  NewHive(HiveReplacement replacement, std::string_view bytes);
  // The file is gone again unless it was put in its place.
  ~NewHive();
  NewHive(const NewHive&) = delete;
  NewHive& operator=(const NewHive&) = delete;

  // Keeps the old hive under `former`, moves the logs aside and renames the new file into its
  // place. Throws HostedPcError when a step fails; unless is_in_place() nothing is left of it then
  // when this object goes.
  void PutInPlace();

  bool is_in_place() const { return in_place_; }
  const HiveReplacement& replacement() const { return replacement_; }

 private:
  class Undo;

  HiveReplacement replacement_;
  std::filesystem::path fresh_;
  std::unique_ptr<Undo> undo_;
  bool in_place_ = false;
};

// Called, if not null, before each step that changes the disk, with its name: tests stop there.
extern void (*before_hive_step)(const char* step);

}  // namespace tidemark::hosted
