#include "platform/hosted/disk/disk_registry.h"

#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <set>
#include <utility>

#include "platform/hosted/disk/former_hives.h"
#include "platform/hosted/file_replacement.h"
#include "platform/hosted/fingerprint.h"
#include "platform/hosted/hives/hive_file.h"
#include "platform/hosted/hives/hive_replacement.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_settings.h"
#include "platform/hosted/registry_store.h"
#include "platform/hosted/registry_text.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFirstSettings =
    "Windows Registry Editor Version 5.00\r\n\r\n"
    "[HKEY_CURRENT_USER\\Software\\Tidemark\\Tidemark]\r\n\"Startup\"=\"0\"\r\n";
constexpr const char* kSettings = "HKEY_CURRENT_USER\\Software\\Tidemark";
// Of a profile: since Windows Vista, and before.
constexpr std::array kClassesFiles = {
    "\\AppData\\Local\\Microsoft\\Windows\\UsrClass.dat",
    "\\Local Settings\\Application Data\\Microsoft\\Windows\\UsrClass.dat"};

std::string Judgement(const fs::path& file, const HiveReport& report) {
  if (report.state != HiveState::kDirty) return file.string() + ": " + report.why;
  return file.string() + ": " + report.why +
         ": start Windows and shut it down in full once (shutdown /s /t 0)";
}

RegistryKey& MakeKey(RegistryStore& registry, std::string_view full_name) {
  bool made = false;
  const std::string_view root = full_name.substr(0, full_name.find('\\'));
  return *registry.Create(registry.Root(root), full_name.substr(root.size()), &made).top;
}

// Whatever order the values were made in.
bool HoldTheSame(const RegistryKey& left, const RegistryKey& right) {
  if (left.value_count() != right.value_count() || left.key_count() != right.key_count()) {
    return false;
  }
  for (std::size_t i = 0; i < left.value_count(); ++i) {
    const RegistryValue& value = left.value(i);
    const RegistryValue* const other = right.FindValue(value.name());
    if (other == nullptr || other->type() != value.type() || other->data() != value.data() ||
        other->odd_byte() != value.odd_byte()) {
      return false;
    }
  }
  for (std::size_t i = 0; i < left.key_count(); ++i) {
    const RegistryKey* const other = right.FindKey(left.key(i).name());
    if (other == nullptr || !HoldTheSame(left.key(i), *other)) return false;
  }
  return true;
}

// In units of 100 ns since 1601.
std::uint64_t Now() {
  constexpr std::uint64_t kTo1970 = 116'444'736'000'000'000;
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return kTo1970 + static_cast<std::uint64_t>(
                       std::chrono::duration_cast<std::chrono::nanoseconds>(now).count() / 100);
}

}  // namespace

struct DiskRegistry::Change {
  Mounted* mounted = nullptr;
  std::uint64_t fingerprint = 0;  // of what lies there afterwards
  fs::path former;                // is put back; empty when there is a new hive
  std::string bytes;              // of that, until it is written
  std::vector<fs::path> logs;
  std::unique_ptr<NewHive> file;

  bool is_one() const { return !former.empty() || !bytes.empty(); }
};

DiskRegistry::DiskRegistry(std::shared_ptr<DiskPc> pc) : pc_(std::move(pc)) {}

std::unique_ptr<RegistryStore> DiskRegistry::Load() {
  why_read_only_ = pc_->disk.WhyReadOnly();
  auto registry = std::make_unique<RegistryStore>(".DEFAULT");
  const fs::path& config = pc_->disk.config();
  Mount(*registry, "HKEY_LOCAL_MACHINE\\SOFTWARE", FindIgnoringCase(config, "SOFTWARE"),
        Need::kRequired);
  const fs::path system = FindIgnoringCase(config, "SYSTEM");
  if (system.empty()) throw HostedPcError(config.string() + ": holds no hive SYSTEM");
  Mount(*registry, "HKEY_LOCAL_MACHINE\\SYSTEM", system, Need::kRequired);
  LinkControlSet(*registry);
  const std::string windows =
      RegistryText(*registry, "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion",
                   "SystemRoot")
          .value_or("");
  if (windows.size() > 1 && windows[1] == ':') pc_->letter = static_cast<char>(windows[0] & ~0x20);
  Mount(*registry, "HKEY_USERS\\.DEFAULT", FindIgnoringCase(config, "DEFAULT"), Need::kOther);
  const std::vector<DiskUser> users = ReadDiskUsers(*registry);
  ChooseUser(*registry, users);
  for (const DiskUser& user : users) MountUser(*registry, user);
  LoadSettings(*registry);
  registry->MarkSaved();
  return registry;
}

RegistryKey* DiskRegistry::Mount(RegistryStore& registry, const std::string& key,
                                 const fs::path& file, Need need) {
  if (file.empty()) return nullptr;
  const HiveFile hive = ReadHive(file);
  if (!hive.report.readable()) {
    const bool classes = need == Need::kClasses && hive.report.state != HiveState::kDirty;
    if (need != Need::kOther && !classes) throw HostedPcError(Judgement(file, hive.report));
    pc_->notes.push_back("left out " + Judgement(file, hive.report));
    if (classes) registry.DenyKey(key, KEY_ALL_ACCESS);
    return classes ? &MakeKey(registry, key) : nullptr;
  }
  if (!hive.report.writable()) pc_->notes.push_back(Judgement(file, hive.report));
  RegistryKey& top = MakeKey(registry, key);
  LoadHive(hive, top, why_read_only_.empty());
  registry.Mount(top);
  mounted_.push_back({file, &top, FingerprintOf(hive.bytes)});
  return &top;
}

// The set that Select\Current names.
void DiskRegistry::LinkControlSet(RegistryStore& registry) {
  RegistryKey& system = MakeKey(registry, "HKEY_LOCAL_MACHINE\\SYSTEM");
  const RegistryKey* const select = system.FindKey("Select");
  const RegistryValue* const current = select == nullptr ? nullptr : select->FindValue("Current");
  unsigned number = 1;
  if (current != nullptr && current->type() == REG_DWORD && !current->data().empty()) {
    number = static_cast<unsigned char>(current->data()[0]);
  }
  std::array<char, 32> name{};
  std::snprintf(name.data(), name.size(), "ControlSet%03u", number);
  RegistryKey* const set = system.FindKey(name.data());
  if (set != nullptr) registry.Link(system, "CurrentControlSet", *set);
}

void DiskRegistry::ChooseUser(RegistryStore& registry, const std::vector<DiskUser>& users) {
  std::vector<DiskUser> there;
  std::string names;
  for (const DiskUser& user : users) {
    if (!user.IsPerson() || pc_->HostPath(user.profile + "\\NTUSER.DAT").empty()) continue;
    there.push_back(user);
    names += (names.empty() ? "" : ", ") + user.name;
  }
  const std::string& wanted = pc_->choice.user;
  const DiskUser* const chosen = ChooseDiskUser(there, registry, wanted);
  if (chosen != nullptr) {
    pc_->user = *chosen;
  } else if (!wanted.empty()) {
    throw HostedPcError(pc_->disk.folder().string() + ": there is no user " + wanted +
                        " on it; those who are: " + (names.empty() ? "nobody" : names));
  }
  registry.SetUser(pc_->user.sid);
}

void DiskRegistry::MountUser(RegistryStore& registry, const DiskUser& user) {
  const bool chosen = user.sid == pc_->user.sid;
  const std::string key = "HKEY_USERS\\" + user.sid;
  RegistryKey* const top = Mount(registry, key, pc_->HostPath(user.profile + "\\NTUSER.DAT"),
                                 chosen ? Need::kRequired : Need::kOther);
  if (top == nullptr) return;
  for (const char* const file : kClassesFiles) {
    const fs::path path = pc_->HostPath(user.profile + file);
    if (path.empty()) continue;
    RegistryKey* const classes =
        Mount(registry, key + "_Classes", path, chosen ? Need::kClasses : Need::kOther);
    if (classes != nullptr)
      registry.Link(MakeKey(registry, key + "\\Software"), "Classes", *classes);
    return;
  }
}

// The program's key is a link to one that stands in no hive.
void DiskRegistry::LoadSettings(RegistryStore& registry) {
  const DiskChoice& choice = pc_->choice;
  pc_->own_folder = choice.pc_folder.empty() ? FolderBesideThePerson(registry, choice.data_folder)
                                             : choice.pc_folder;
  pc_->own_lock = std::make_unique<FolderLock>(pc_->own_folder);
  pc_->notes.push_back("its settings and undo files lie in " + pc_->own_folder.string());
  if (!why_read_only_.empty()) pc_->notes.push_back(why_read_only_);
  RegistryKey& software = MakeKey(registry, "HKEY_CURRENT_USER\\Software");
  registry.Link(software, "Tidemark", registry.Aside());
  registry.Mount(registry.Aside());
  std::ifstream file(pc_->own_folder / "settings.reg", std::ios::binary);
  const std::string text(std::istreambuf_iterator<char>(file), {});
  // From the beginning the program is not to start with the PC: it does not stand on the disk.
  ImportRegistryText(text.empty() ? kFirstSettings : text, registry);
}

void DiskRegistry::SaveSettings(RegistryStore& registry) const {
  const fs::path file = pc_->own_folder / "settings.reg";
  const fs::path fresh = file.string() + ".new";
  std::ofstream out(fresh, std::ios::binary | std::ios::trunc);
  out << ExportRegistryText(registry, kSettings, ScriptForm::kVersion5);
  out.close();
  if (!out) throw HostedPcError(fresh.string() + ": can't be written");
  ReplaceFile(fresh, file);
}

void DiskRegistry::Save(RegistryStore& registry) {
  if (registry.ChangedBelow(registry.Aside())) SaveSettings(registry);
  std::vector<Change> changes;
  for (Mounted& mounted : mounted_) {
    if (!why_read_only_.empty() || !registry.ChangedBelow(*mounted.key)) continue;
    Change change = ChangeOf(mounted);
    if (change.is_one()) changes.push_back(std::move(change));
  }
  Replace(changes);
  for (const Change& change : changes) change.mounted->fingerprint = change.fingerprint;
  registry.MarkSaved();
}

DiskRegistry::Change DiskRegistry::ChangeOf(Mounted& mounted) {
  const HiveFile hive = ReadHive(mounted.file);
  const std::uint64_t fingerprint = FingerprintOf(hive.bytes);
  if (fingerprint != mounted.fingerprint) {
    throw HostedPcError(mounted.file.string() +
                        ": was changed by another program meanwhile, so it is left as it is");
  }
  Change change;
  change.mounted = &mounted;
  if (!DiffersFromHive(hive, *mounted.key) || FindFormer(mounted, change)) return change;
  change.bytes = WriteHive(hive, *mounted.key, Now());
  change.fingerprint = FingerprintOf(change.bytes);
  change.logs = hive.logs;
  return change;
}

// Back over all repairs in a row: several may have been undone at once.
bool DiskRegistry::FindFormer(const Mounted& mounted, Change& change) const {
  const FormerHives formers(pc_->own_folder / "hives", pc_->disk.folder());
  std::set<std::uint64_t> seen;
  change.fingerprint = mounted.fingerprint;
  while (seen.insert(change.fingerprint).second) {
    change.former = formers.FormerOf(mounted.file, change.fingerprint);
    if (change.former.empty()) return false;
    const HiveFile before = ReadHive(change.former);
    change.fingerprint = FingerprintOf(before.bytes);
    RegistryKey held(nullptr, "");
    if (before.report.writable()) LoadHive(before, held);
    if (before.report.writable() && HoldTheSame(held, *mounted.key)) return true;
  }
  change.former.clear();
  return false;
}

void DiskRegistry::Replace(std::vector<Change>& changes) {
  try {
    for (Change& change : changes) {
      if (!change.former.empty()) continue;
      const fs::path& hive = change.mounted->file;
      change.file = std::make_unique<NewHive>(
          HiveReplacement{hive, FormerHives::NextName(hive), change.logs}, change.bytes);
      change.bytes.clear();
    }
    FormerHives formers(pc_->own_folder / "hives", pc_->disk.folder());
    for (const Change& change : changes) {
      if (!change.file) continue;
      formers.Note(change.mounted->file, change.fingerprint, change.file->replacement().former);
      change.file->PutInPlace();
    }
  } catch (const HostedPcError& error) {
    for (Change& change : changes) {
      const bool is_new = change.file && change.file->is_in_place();
      if (is_new) FormerHives::PutBack(change.mounted->file, change.file->replacement().former);
      change.file.reset();
    }
    throw HostedPcError(std::string(error.what()) + "; the disk's registry stays as it was");
  }
  // These need no room.
  for (const Change& change : changes) {
    if (!change.former.empty()) FormerHives::PutBack(change.mounted->file, change.former);
  }
}

}  // namespace tidemark::hosted
