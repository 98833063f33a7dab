// The hosted PC's shell reads and changes link files itself.
#include "platform/shell_link.h"

#include "platform/file_system_object.h"
#include "platform/hosted/link_file.h"
#include "platform/hosted/pc_path.h"
#include "platform/link_names.h"
#include "platform/winapi.h"

namespace tidemark {
namespace {

constexpr std::int32_t kMaximized = 3;
constexpr std::int32_t kMinimized = 7;

bool IsThere(const std::string& file) {
  return IsFullPath(file) && FileSystemObject().FileExists(file);
}

std::string FolderOf(const std::string& file) { return file.substr(0, file.find_last_of("\\/")); }

std::string Expanded(const std::string& text) {
  if (text.empty()) return {};
  std::string expanded(ExpandEnvironmentStringsA(text.c_str(), nullptr, 0), '\0');
  ExpandEnvironmentStringsA(text.c_str(), expanded.data(), static_cast<DWORD>(expanded.size()));
  expanded.resize(expanded.find('\0'));
  return expanded;
}

// A relative path starts where the link stands.
std::string FullPath(const std::string& relative_path, const std::string& file) {
  hosted::PcPath folder;
  hosted::PcPath path;
  if (hosted::NormalisePath(FolderOf(file) + '\\', file, folder) != ERROR_SUCCESS ||
      hosted::NormalisePath(relative_path, folder.text, path) != ERROR_SUCCESS) {
    return {};
  }
  return path.text;
}

// The first that the link has: the item list, which the shell prefers, then link info, then paths
// that depend on who reads it and where it stands.
std::string TargetOf(const hosted::LinkFile& link, const std::string& file) {
  if (link.advertised) return {};
  for (const std::string& path : {link.item_list_path, link.local_path, link.network_path}) {
    if (!path.empty()) return path;
  }
  if (!link.environment_path.empty()) return Expanded(link.environment_path);
  return link.relative_path.empty() ? std::string() : FullPath(link.relative_path, file);
}

std::int32_t ShownAs(std::int32_t command) {
  return command == kMaximized || command == kMinimized ? command : SW_SHOWNORMAL;
}

}  // namespace

LinkStatus ReadLinkFile(const std::string& file, LinkFields& fields) {
  if (!IsThere(file)) return LinkStatus::kNoItem;
  const auto bytes = FileSystemObject().ReadAll(file);
  const auto link = bytes ? hosted::ParseLinkFile(*bytes) : std::nullopt;
  if (!link) return LinkStatus::kFailed;
  fields.target = TargetOf(*link, file);
  fields.arguments = link->arguments;
  fields.name = LinkNameOf(file);
  fields.description = link->description;
  fields.hot_key = link->hot_key;
  fields.show_command = ShownAs(link->show_command);
  fields.working_directory = link->working_directory;
  fields.icon_file = link->icon_file;
  fields.icon_index = link->icon_index;
  return LinkStatus::kDone;
}

LinkStatus ChangeLinkFile(const std::string& file, const LinkFields& fields) {
  if (!IsThere(file)) return LinkStatus::kNoItem;
  FileSystemObject files;
  const auto bytes = files.ReadAll(file);
  const auto old = bytes ? hosted::ParseLinkFile(*bytes) : std::nullopt;
  if (!old) return LinkStatus::kFailed;
  hosted::LinkFile link;
  link.header_middle = old->header_middle;
  const bool is_network = fields.target.starts_with("\\\\");
  (is_network ? link.network_path : link.local_path) = fields.target;
  link.arguments = fields.arguments;
  link.description = fields.description;
  link.hot_key = fields.hot_key;
  link.show_command = ShownAs(fields.show_command);
  link.working_directory = fields.working_directory;
  link.icon_file = fields.icon_file.empty() ? old->icon_file : fields.icon_file;
  link.icon_index = fields.icon_file.empty() ? old->icon_index : fields.icon_index;
  return files.WriteAll(file, hosted::FormatLinkFile(link)) ? LinkStatus::kDone
                                                            : LinkStatus::kFailed;
}

}  // namespace tidemark
