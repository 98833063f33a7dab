#include "platform/hosted/capture.h"

#include <fstream>
#include <ostream>
#include <string>

#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_names.h"
#include "platform/hosted/registry_settings.h"
#include "platform/hosted/registry_store.h"
#include "platform/hosted/registry_text.h"

namespace tidemark::hosted {
namespace {

std::string CapturedUser(RegistryStore& registry, const std::string& usual) {
  constexpr std::string_view kPerson = "S-1-5-21-";
  std::string first;
  const RegistryKey& users = *registry.Root("HKEY_USERS").top;
  for (std::size_t i = 0; i < users.key_count(); ++i) {
    const RegistryKey& user = users.key(i);
    const std::string& sid = user.name();
    const bool is_person =
        sid.size() > kPerson.size() && SameName(sid.substr(0, kPerson.size()), kPerson) &&
        sid.find_first_not_of("0123456789-", kPerson.size()) == std::string::npos;
    if (!is_person || (user.key_count() == 0 && user.value_count() == 0)) continue;
    if (user.FindKey("Volatile Environment") != nullptr) return sid;
    if (first.empty()) first = sid;
  }
  return first.empty() ? usual : first;
}

}  // namespace

void CaptureSettings(std::string_view registry_export, std::string_view drives, std::ostream& out) {
  const std::string usual = PcSettings().user_sid;
  RegistryStore registry(usual);
  ImportRegistryText(registry_export, registry);
  PcSettings settings = SettingsOfRegistry(registry, CapturedUser(registry, usual));
  const auto kinds = std::move(settings.drives);
  settings.drives.clear();
  for (const char letter : drives) {
    const auto known = kinds.find(letter);
    settings.drives[letter] = known == kinds.end() ? PcDrive{} : known->second;
  }
  out << "; Captured from another PC.\n\n";
  settings.Write(out);
}

void CapturePc(HostedPc& pc, const std::filesystem::path& folder) {
  pc.registry().CopyLinkedKeys();
  pc.registry().Save(folder / "registry.reg");
  PcSettings settings = pc.settings();
  settings.program_folder = PcSettings().program_folder;
  std::ofstream out(folder / "pc.ini");
  out << "; Captured from a disk.\n\n";
  settings.Write(out);
  if (!out.flush()) throw HostedPcError((folder / "pc.ini").string() + ": can't be written");
}

}  // namespace tidemark::hosted
