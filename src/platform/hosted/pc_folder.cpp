// The parts of a hosted PC that is a folder with registry.reg, drives/ and pc.ini.
#include <unistd.h>

#include <string>
#include <utility>

#include "platform/hosted/disk/windows_disk.h"
#include "platform/hosted/folder_recycle_bin.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/pc_parts.h"
#include "platform/hosted/script_registry.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

constexpr const char* kRegistryFile = "registry.reg";

[[noreturn]] void Refuse(const fs::path& path, const std::string& why) {
  throw HostedPcError(path.string() + ": " + why);
}

void Check(const fs::path& folder) {
  std::error_code error;
  const fs::path registry = folder / kRegistryFile;
  const bool has_registry = fs::exists(registry, error);
  if (!has_registry && !fs::is_directory(folder / "drives", error)) {
    const std::string disk = WindowsDisk::WhyNone(folder);
    if (!disk.empty()) Refuse(folder, disk);
    Refuse(folder, "is no hosted PC: it holds neither registry.reg nor drives, and no Windows");
  }
  if (access(folder.c_str(), R_OK | W_OK | X_OK) != 0) Refuse(folder, "can't be written");
  if (!has_registry) return;
  constexpr auto kWritable =
      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  // Whoever took all write permission away means it, also towards root, who may write anyway.
  if ((fs::status(registry, error).permissions() & kWritable) == fs::perms::none) {
    Refuse(registry, "is read-only, so what is changed could not be kept");
  }
  if (!fs::is_regular_file(registry, error)) Refuse(registry, "is no file");
}

// They are read before the registry, whose user they name.
class IniSettings : public SettingsSource {
 public:
  explicit IniSettings(PcSettings settings) : settings_(std::move(settings)) {}
  PcSettings Read(RegistryStore&) override { return settings_; }

 private:
  PcSettings settings_;
};

}  // namespace

PcParts PartsOfPcFolder(const fs::path& folder, PcSettings settings) {
  Check(folder);
  PcParts parts;
  parts.lock = std::make_unique<FolderLock>(folder);
  parts.registry = std::make_unique<ScriptRegistry>(folder / kRegistryFile, settings.user_sid);
  parts.settings = std::make_unique<IniSettings>(std::move(settings));
  parts.places = [folder](const PcSettings&) { return DrivePlaces(folder); };
  parts.is_sole_user = [lock = parts.lock.get()] { return lock->taken(); };
  parts.notes = [] { return std::vector<std::string>(); };
  parts.former_files = [] { return std::vector<fs::path>(); };
  parts.make_recycle_bin = [folder](const PcSettings&, FileStore& files) {
    return std::make_unique<FolderRecycleBin>(folder / "recycled", files);
  };
  return parts;
}

}  // namespace tidemark::hosted
