// The hives that Tidemark replaced. Each is kept beside the new one, as SOFTWARE.tidemark-1 and so
// on with its logs, until the person lets it go. As long as the hive on the disk is what Tidemark
// wrote, the former one can be put back as it was, with all that the registry's calls can't tell.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tidemark::hosted {

class FormerHives {
 public:
  // The file, beside the person, that tells which hive replaced which. A line that can't be
  // understood is passed over.
  FormerHives(std::filesystem::path record, std::filesystem::path disk);

  // Where the hive is to be kept that is replaced next: nothing of that number lies there.
  static std::filesystem::path NextName(const std::filesystem::path& hive);

  // Notes what will lie at `hive` while its former one lies at `former`. Throws HostedPcError.
  void Note(const std::filesystem::path& hive, std::uint64_t fingerprint,
            const std::filesystem::path& former);
  // The former hive of what lies there now; empty when Tidemark did not write that, or the former
  // one is gone.
  std::filesystem::path FormerOf(const std::filesystem::path& hive,
                                 std::uint64_t fingerprint) const;
  // Puts the former hive and its logs in the place of the present one, which is then gone. Throws
  // HostedPcError; one of the two then lies there, whole.
  static void PutBack(const std::filesystem::path& hive, const std::filesystem::path& former);

  // All that are still kept, with their logs, and what a repair that was cut off has left.
  std::vector<std::filesystem::path> Kept() const;

 private:
  struct Replacement {
    std::string hive;    // below the disk's folder
    std::string former;  // likewise
    std::uint64_t fingerprint;
  };

  std::filesystem::path record_;
  std::filesystem::path disk_;
  std::vector<Replacement> replacements_;
};

}  // namespace tidemark::hosted
