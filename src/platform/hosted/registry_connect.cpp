// The connection to another machine's registry: a hosted PC has no network, so only its own name
// answers.
#include <string_view>

#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/pc_settings.h"
#include "platform/letter_case.h"
#include "platform/winapi.h"

LSTATUS RegConnectRegistryA(LPCSTR machine, HKEY root, PHKEY result) {
  using tidemark::hosted::HostedPc;
  if (result == nullptr) return ERROR_INVALID_PARAMETER;
  std::string_view name = machine == nullptr ? "" : machine;
  if (name.starts_with("\\\\")) name.remove_prefix(2);
  const std::string* own_name = HostedPc::Current().settings().Variable("COMPUTERNAME");
  const bool is_own =
      name.empty() || (own_name != nullptr && tidemark::CompareIgnoringCase(name, *own_name) == 0);
  if (!is_own) return ERROR_BAD_NETPATH;
  return RegOpenKeyExA(root, nullptr, 0, KEY_ALL_ACCESS, result);
}
