#include "tests/platform/hosted/hives/hive_collection.h"

#include <cstdlib>
#include <sstream>

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

const fs::path kFolder = "../shared/data/hives";

// Files, those that may be read with their keys and values.
const struct {
  HiveState state;
  const char* files;
} kTable[] = {
    {HiveState::kSound, R"(
user/NTUSER.DAT 1597 2310  user/SAM 76 84  user/SECURITY 101 110
user/UsrClass.dat.xz 7505 19987  win10/SOFTWARE.xz 20821 27791  win10/SYSTEM.xz 3112 13778
wine8/NTUSER.DAT.xz 79 498  wine8/SOFTWARE.xz 10318 22738  wine8/SYSTEM.xz 197 859
odd/BigDataHive 2 2  odd/BogusKeyNamesHive 3 0  odd/CompHive 4 0  odd/DeletedDataHive 2 1
odd/DeletedTreeHive 3 0  odd/DupNameHive 2 0  odd/EmptyHive 1 0  odd/ExtendedASCIIHive 2 1
odd/HealedHive 4 1  odd/ManySubkeysHive 5003 0  odd/MultiSzHive 2 2  odd/NewFlagsHive 3 0
odd/OffHive 1 0  odd/PairHive 4 0  odd/ReallocValueHive 2 1  odd/RemnantData 2 15
odd/RemnantsHive 1 0  odd/SlackHive 5003 0  odd/StringValuesHive 2 4
odd/TruncatedPairHive 4 0  odd/TruncatedPairHive2 6 5  odd/TwoOwnersHive 3 0
odd/UnicodeHive 3 0  odd/UpcaseHive 4 0  odd/ValuesOrderHive 1 3
dirty/NewDirtyHive1/RecoveredHive_Windows10 5 1
dirty/OldDirtyHive/RecoveredHive_Windows7 5003 1  made/sound 6 6
made/value_string_odd_length 6 6)"},
    {HiveState::kReadOnly, R"(
damaged/WrongOrderHive 11 0)"},
    {HiveState::kDirty, R"(
dirty/BadBaseBlockHive/BadBaseBlockHive  dirty/BadLogHive1/BadLogHive
dirty/BadLogHive2/BadLogHive  dirty/BadLogHive3/BadLogHive  dirty/NewDirtyHive1/NewDirtyHive
dirty/NewDirtyHive2/NewDirtyHive  dirty/OldDirtyHive/OldDirtyHive  made/sequence_differs)"},
    {HiveState::kDamaged, R"(
damaged/BadListHive  damaged/BadSubkeyHive  damaged/DeletedDataHiveTruncated
damaged/DuplicateSubkeysHive  damaged/EffectiveSizeHive  damaged/GarbageHive
damaged/InvalidParentHive  damaged/TruncatedDirtyHive  damaged/TruncatedHive
damaged/TruncatedNameHive  made/checksum_wrong  made/hbins_size_over_end  made/cut_in_bin
made/root_offset_wild  made/cell_size_wild  made/key_list_wild  made/key_list_to_ancestor
made/key_in_two_lists  made/key_count_huge  made/parent_wrong  made/value_count_huge
made/value_list_wild  made/value_data_wild  made/value_data_longer_than_cell
made/value_data_shared  made/value_name_longer_than_cell  made/class_offset_wild
made/security_offset_wild  made/security_ring_wild)"},
    {HiveState::kNoHive, R"(
user/NTUSER.DAT.LOG  odd/System_Delta  odd/USER.DAT  dirty/OldLogWithRemnantData
damaged/TruncatedHiveBin)"},
};

}  // namespace

std::vector<CollectedHive> CollectedHives() {
  std::vector<CollectedHive> hives;
  if (!fs::exists(kFolder)) return hives;
  for (const auto& [state, files] : kTable) {
    std::istringstream in(files);
    const bool counted = state == HiveState::kSound || state == HiveState::kReadOnly;
    for (CollectedHive hive{{}, state, 0, 0}; in >> hive.file;) {
      if (counted) in >> hive.keys >> hive.values;
      hives.push_back(hive);
    }
  }
  return hives;
}

fs::path CopyOf(const CollectedHive& hive, const fs::path& folder) {
  const fs::path from = kFolder / hive.file;
  fs::path to = folder / fs::path(hive.file).parent_path();
  fs::create_directories(to);
  to /= from.filename();
  if (to.extension() == ".xz") {
    const std::string packed = fs::absolute(from).string();
    to.replace_extension();
    if (std::system(("xz -dc '" + packed + "' > '" + to.string() + "'").c_str()) != 0) return {};
    return to;
  }
  for (const char* ending : {"", ".LOG", ".LOG1", ".LOG2"}) {
    std::error_code missing;
    fs::copy_file(from.string() + ending, to.string() + ending,
                  fs::copy_options::overwrite_existing, missing);
  }
  return to;
}

}  // namespace tidemark::hosted
