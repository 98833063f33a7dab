#include "helpers/key_names.h"

#include <array>

#include "helpers/text_helpers.h"

namespace tidemark {
namespace {

struct RootName {
  HKEY root;
  std::string_view name;
};

// Predefined handles are no constant expressions on Windows.
const std::array<RootName, 7>& RootNames() {
  static const std::array<RootName, 7> kNames = {{
      {HKEY_CLASSES_ROOT, "HKEY_CLASSES_ROOT"},
      {HKEY_CURRENT_USER, "HKEY_CURRENT_USER"},
      {HKEY_LOCAL_MACHINE, "HKEY_LOCAL_MACHINE"},
      {HKEY_USERS, "HKEY_USERS"},
      {HKEY_PERFORMANCE_DATA, "HKEY_PERFORMANCE_DATA"},
      {HKEY_CURRENT_CONFIG, "HKEY_CURRENT_CONFIG"},
      {HKEY_DYN_DATA, "HKEY_DYN_DATA"},
  }};
  return kNames;
}

constexpr std::string_view kNoSubKey = "abcdefgh";

}  // namespace

HKEY StripHkey(std::string_view full_key) {
  const std::size_t backslash = full_key.find('\\');
  if (backslash == std::string_view::npos) return nullptr;
  const std::string_view name = TrimBlanks(full_key.substr(0, backslash));
  for (const RootName& root : RootNames()) {
    if (root.name == name) return root.root;
  }
  return nullptr;
}

std::string_view HkeyText(HKEY root) {
  for (const RootName& known : RootNames()) {
    if (known.root == root) return known.name;
  }
  return {};
}

std::string SplitSubKey(std::string_view full_key) {
  const std::size_t backslash = full_key.find('\\');
  const std::string_view sub_key =
      backslash == std::string_view::npos ? full_key : full_key.substr(backslash + 1);
  return std::string(TrimBlanks(sub_key).empty() ? kNoSubKey : sub_key);
}

}  // namespace tidemark
