// The hosted PC's shell reads and changes link files itself.
#include "platform/shell_link.h"

#include "platform/file_system_object.h"
#include "platform/hosted/link_writer.h"
#include "platform/link_names.h"
#include "platform/winapi.h"

namespace tidemark {
namespace {

constexpr std::int32_t kMaximized = 3;
constexpr std::int32_t kMinimized = 7;

bool IsThere(const std::string& file) {
  return IsFullPath(file) && FileSystemObject().FileExists(file);
}

std::int32_t ShownAs(std::int32_t command) {
  return command == kMaximized || command == kMinimized ? command : SW_SHOWNORMAL;
}

}  // namespace

LinkStatus ReadLinkFile(const std::string& file, LinkFields& fields) {
  if (!IsThere(file)) return LinkStatus::kNoItem;
  const auto bytes = FileSystemObject().ReadAll(file);
  const auto link = bytes ? ParseLinkFile(*bytes) : std::nullopt;
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
  const auto old = bytes ? ParseLinkFile(*bytes) : std::nullopt;
  if (!old) return LinkStatus::kFailed;
  LinkFile link;
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
