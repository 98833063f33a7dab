#include "platform/hosted/link_target.h"

#include <algorithm>

#include "platform/hosted/pc_path.h"

namespace tidemark::hosted {
namespace {

std::string Capitals(std::string_view path) {
  PcPath full;
  return NormalisePath(path, "C:\\", full) == ERROR_SUCCESS ? full.upper : std::string();
}

}  // namespace

std::string TargetOfLink(std::string_view text, std::string_view folder,
                         const DrivePlaces& places) {
  constexpr std::string_view kDevices = "\\??\\";
  std::string path(text);
  std::replace(path.begin(), path.end(), '/', '\\');
  if (path.starts_with(kDevices)) path.erase(0, kDevices.size());
  if (path.size() >= 2 && path[1] == ':') return Capitals(path);
  if (!path.starts_with('\\')) return Capitals(std::string(folder) + path);
  for (const auto& [letter, place] : places.drives) {
    const std::string& top = place.native();
    if (!text.starts_with(top)) continue;
    if (text.size() > top.size() && text[top.size()] != '/') continue;
    return Capitals(std::string{letter, ':', '\\'} + path.substr(top.size()));
  }
  return {};
}

}  // namespace tidemark::hosted
