#include "registry/real_keys.h"

#include "helpers/key_names.h"
#include "platform/letter_case.h"
#include "platform/registry_rules.h"
#include "registry/exact_registry.h"

namespace tidemark {
namespace {

std::string CleanPath(std::string_view path) {
  std::string clean;
  for (std::string_view part = NextPart(path); !part.empty(); part = NextPart(path)) {
    if (!clean.empty()) clean += '\\';
    clean += part;
  }
  return clean;
}

// A key that can't be opened is there all the same.
bool IsThere(const RealKey& key) {
  ExactKey opened;
  const LSTATUS status = ExactKey::Open(key.root, key.path, opened);
  return status == ERROR_SUCCESS || status == ERROR_ACCESS_DENIED;
}

}  // namespace

std::string FullName(const RealKey& key) {
  return std::string(HkeyText(key.root)).append("\\").append(key.path);
}

std::string Identity(const RealKey& key) { return UpperCase(FullName(key)); }

std::optional<RealKey> KeyOfFullName(std::string_view full_name) {
  const HKEY root = StripHkey(full_name);
  if (root == nullptr) return std::nullopt;
  RealKey key{root, CleanPath(full_name.substr(full_name.find('\\')))};
  if (key.path.empty()) return std::nullopt;
  return key;
}

std::vector<RealKey> PossiblePlaces(HKEY root, std::string_view sub_key) {
  const std::string path = CleanPath(sub_key);
  if (root != HKEY_CLASSES_ROOT) return {{root, path}};
  const std::string below_classes = "Software\\Classes\\" + path;
  return {{HKEY_CURRENT_USER, below_classes}, {HKEY_LOCAL_MACHINE, below_classes}};
}

std::vector<RealKey> RealPlaces(HKEY root, std::string_view sub_key) {
  std::vector<RealKey> places = PossiblePlaces(root, sub_key);
  std::erase_if(places, [](const RealKey& key) { return !IsThere(key); });
  if (places.empty()) places.push_back({root, CleanPath(sub_key)});
  return places;
}

}  // namespace tidemark
