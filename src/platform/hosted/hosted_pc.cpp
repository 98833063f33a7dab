#include "platform/hosted/hosted_pc.h"

#include <string>

#include "platform/hosted/clock.h"
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
    throw HostedPcError(folder.string() + ": there is no such folder");
  }
  return fs::absolute(folder);
}

}  // namespace

HostedPc::HostedPc(const std::filesystem::path& folder)
    : folder_(Checked(folder)),
      parts_(std::make_unique<PcParts>(PartsOfPcFolder(folder_))),
      registry_(parts_->registry->Load()),
      settings_(std::make_unique<PcSettings>(parts_->settings->Read(*registry_))),
      clock_(std::make_unique<Clock>()),
      files_(std::make_unique<FileStore>(folder_, *settings_)),
      recycle_bin_(parts_->make_recycle_bin(*files_)),
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

bool HostedPc::IsSoleUser() const { return parts_->lock->taken(); }

HostedPc& HostedPc::Current() {
  if (current_pc == nullptr) throw std::logic_error("no hosted PC is switched on");
  return *current_pc;
}

}  // namespace tidemark::hosted
