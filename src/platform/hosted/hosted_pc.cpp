#include "platform/hosted/hosted_pc.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "platform/hosted/clock.h"
#include "platform/hosted/file_search.h"
#include "platform/hosted/file_store.h"
#include "platform/hosted/folder_lock.h"
#include "platform/hosted/host_file.h"
#include "platform/hosted/pc_settings.h"
#include "platform/hosted/recycle_bin.h"
#include "platform/hosted/registry_editor.h"
#include "platform/hosted/registry_store.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

HostedPc* current_pc = nullptr;

constexpr const char* kRegistryFile = "registry.reg";

[[noreturn]] void Refuse(const fs::path& path, const std::string& why) {
  throw HostedPcError(path.string() + ": " + why);
}

fs::path Checked(const fs::path& folder) {
  std::error_code error;
  if (!fs::is_directory(folder, error)) Refuse(folder, "there is no such folder");
  const fs::path registry = folder / kRegistryFile;
  const bool has_registry = fs::exists(registry, error);
  if (!has_registry && !fs::is_directory(folder / "drives", error)) {
    Refuse(folder, "is no hosted PC: it holds neither registry.reg nor drives");
  }
  if (access(folder.c_str(), R_OK | W_OK | X_OK) != 0) Refuse(folder, "can't be written");
  if (has_registry) {
    constexpr auto kWritable =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    // Whoever took all write permission away means it, also towards root, who may write anyway.
    if ((fs::status(registry, error).permissions() & kWritable) == fs::perms::none) {
      Refuse(registry, "is read-only, so what is changed could not be kept");
    }
    if (!fs::is_regular_file(registry, error)) Refuse(registry, "is no file");
  }
  return fs::absolute(folder);
}

// What was written is on the disk before the name changes, and the name before the PC is off.
void Flush(const fs::path& path, int flags) {
  const HostFile file(open(path.c_str(), flags | O_CLOEXEC));
  if (!file || fsync(file.get()) != 0) Refuse(path, std::strerror(errno));
}

}  // namespace

void (*HostedPc::before_rename)() = nullptr;

HostedPc::HostedPc(const std::filesystem::path& folder)
    : folder_(Checked(folder)),
      lock_(std::make_unique<FolderLock>(folder_)),
      settings_(std::make_unique<PcSettings>(PcSettings::Read(folder_ / "pc.ini"))),
      clock_(std::make_unique<Clock>()),
      files_(std::make_unique<FileStore>(folder_, *settings_)),
      searches_(std::make_unique<FileSearches>(*files_)),
      recycle_bin_(std::make_unique<RecycleBin>(folder_ / "recycled", *files_)),
      registry_(std::make_unique<RegistryStore>(settings_->user_sid)),
      editor_(std::make_unique<RegistryEditor>()) {
  if (current_pc != nullptr) throw std::logic_error("another hosted PC is switched on");
  std::error_code ignored;
  const fs::path registry = folder_ / kRegistryFile;
  if (fs::exists(registry, ignored)) registry_->Load(registry);
  for (const std::string& key : settings_->denied_keys) registry_->DenyKey(key, KEY_ALL_ACCESS);
  editor_->SetStartUp(settings_->editor_start_up_ms);
  editor_->SetDuration(settings_->editor_duration_ms);
  editor_->SetEightBit(!settings_->editor_writes_utf16);
  current_pc = this;
}

HostedPc::~HostedPc() { current_pc = nullptr; }

void HostedPc::ShutDown() {
  editor_->Finish();
  if (!registry_->changed() || !IsSoleUser()) return;
  const fs::path registry = folder_ / kRegistryFile;
  const fs::path fresh = folder_ / "registry.reg.new";
  try {
    registry_->Save(fresh);
    struct stat former {};
    if (stat(registry.c_str(), &former) == 0) chmod(fresh.c_str(), former.st_mode & 07777U);
    Flush(fresh, O_RDONLY);
    if (before_rename != nullptr) before_rename();
    if (rename(fresh.c_str(), registry.c_str()) != 0) Refuse(registry, std::strerror(errno));
    Flush(folder_, O_RDONLY | O_DIRECTORY);
  } catch (const HostedPcError&) {
    unlink(fresh.c_str());
    throw;
  }
}

bool HostedPc::IsSoleUser() const { return lock_->taken(); }

HostedPc& HostedPc::Current() {
  if (current_pc == nullptr) throw std::logic_error("no hosted PC is switched on");
  return *current_pc;
}

}  // namespace tidemark::hosted
