#include "platform/hosted/hosted_pc.h"

#include <string>
#include <utility>

#include "platform/hosted/clock.h"
#include "platform/hosted/disk/windows_disk.h"
#include "platform/hosted/file_store.h"
#include "platform/hosted/pc_parts.h"
#include "platform/hosted/pc_settings.h"
#include "platform/hosted/registry_editor.h"
#include "platform/hosted/registry_store.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

HostedPc* current_pc = nullptr;

fs::path Checked(const fs::path& folder) {
  std::error_code error;
  if (!fs::is_directory(folder, error)) {
    const std::string disk = WindowsDisk::WhyNone(folder);
    throw HostedPcError(folder.string() + ": " + (disk.empty() ? "there is no such folder" : disk));
  }
  // Also a disk that is reached through a link lies where it lies.
  return fs::canonical(folder);
}

PcParts PartsOf(const fs::path& folder, DiskChoice choice) {
  choice.folder = folder;
  if (WindowsDisk::IsOne(folder)) return PartsOfDisk(choice);
  PcSettings settings = PcSettings::Read(folder / "pc.ini");
  if (settings.disk.folder.empty()) return PartsOfPcFolder(folder, std::move(settings));
  if (!choice.user.empty()) settings.disk.user = choice.user;
  settings.disk.drives.merge(choice.drives);
  settings.disk.folder = Checked(settings.disk.folder);
  settings.disk.pc_folder = folder;
  return PartsOfDisk(settings.disk);
}

}  // namespace

HostedPc::HostedPc(const std::filesystem::path& folder, DiskChoice choice)
    : folder_(Checked(folder)),
      parts_(std::make_unique<PcParts>(PartsOf(folder_, std::move(choice)))),
      registry_(parts_->registry->Load()),
      settings_(std::make_unique<PcSettings>(parts_->settings->Read(*registry_))),
      clock_(std::make_unique<Clock>()),
      files_(std::make_unique<FileStore>(parts_->places(*settings_), *settings_)),
      recycle_bin_(parts_->make_recycle_bin(*settings_, *files_)),
      editor_(std::make_unique<RegistryEditor>()) {
  if (current_pc != nullptr) throw std::logic_error("another hosted PC is switched on");
  for (const std::string& key : settings_->denied_keys) registry_->DenyKey(key, KEY_ALL_ACCESS);
  editor_->SetPresent(settings_->editor_present);
  editor_->SetStartUp(settings_->editor_start_up_ms);
  editor_->SetDuration(settings_->editor_duration_ms);
  editor_->SetEightBit(!settings_->editor_writes_utf16);
  current_pc = this;
}

HostedPc::~HostedPc() { current_pc = nullptr; }

void HostedPc::ShutDown() {
  editor_->Finish();
  if (registry_->changed() && IsSoleUser()) parts_->registry->Save(*registry_);
}

bool HostedPc::IsSoleUser() const { return parts_->is_sole_user(); }

const std::string& HostedPc::WhyReadOnly() const { return parts_->why_read_only; }

std::vector<std::string> HostedPc::Notes() const { return parts_->notes(); }

std::vector<fs::path> HostedPc::FormerFiles() const { return parts_->former_files(); }

HostedPc& HostedPc::Current() {
  if (current_pc == nullptr) throw std::logic_error("no hosted PC is switched on");
  return *current_pc;
}

}  // namespace tidemark::hosted
