// Where a link leads.
#include <array>

#include "platform/link_file.h"
#include "platform/link_names.h"
#include "platform/winapi.h"

namespace tidemark {
namespace {

std::string Expanded(const std::string& text) {
  std::string expanded(ExpandEnvironmentStringsA(text.c_str(), nullptr, 0), '\0');
  ExpandEnvironmentStringsA(text.c_str(), expanded.data(), static_cast<DWORD>(expanded.size()));
  expanded.resize(expanded.find('\0'));
  return expanded;
}

std::string FullPath(const std::string& path) {
  std::array<char, 32768> full{};
  const DWORD size = GetFullPathNameA(path.c_str(), full.size(), full.data(), nullptr);
  return size < full.size() ? full.data() : std::string();
}

}  // namespace

std::string TargetOf(const LinkFile& link, const std::string& file) {
  if (link.advertised) return {};
  for (const std::string* const path :
       {&link.item_list_path, &link.local_path, &link.network_path}) {
    if (!path->empty()) return *path;
  }
  if (!link.environment_path.empty()) return Expanded(link.environment_path);
  if (link.relative_path.empty() || IsFullPath(link.relative_path)) return link.relative_path;
  return FullPath(file.substr(0, file.find_last_of("\\/") + 1) + link.relative_path);
}

}  // namespace tidemark
