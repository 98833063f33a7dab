#include "helpers/modShortcut.h"

#include <limits>
#include <string_view>

#include "helpers/link_template.h"
#include "helpers/system_helpers.h"
#include "helpers/text_helpers.h"
#include "platform/file_system_object.h"
#include "platform/letter_case.h"
#include "platform/shell_link.h"

namespace tidemark {
namespace {

// The three letters count, not the dot in front of them.
std::string WithLinkExtension(std::string name) {
  if (!UpperCase(name).ends_with("LNK")) name += ".lnk";
  return name;
}

void DeleteIfThere(const std::string& file) {
  if (IsExistingFile(file)) FileSystemObject().DeleteFile(file, false);
}

// False when the hot key's text is no number that a hot key can be.
bool SetFields(const NewShortcut& shortcut, LinkFields& fields) {
  fields.target = shortcut.target;
  fields.arguments = shortcut.arguments;
  fields.description = shortcut.description;
  if (!shortcut.hot_key.empty()) {
    const std::int32_t number = RoundToLong(NumberOf(shortcut.hot_key).value_or(-1)).value_or(-1);
    if (number < 0 || number > std::numeric_limits<std::uint16_t>::max()) return false;
    fields.hot_key = static_cast<std::uint16_t>(number);
  }
  fields.show_command = shortcut.show_command;
  fields.working_directory = shortcut.working_directory;
  fields.icon_file = shortcut.icon_file;
  fields.icon_index = shortcut.icon_index;
  return true;
}

}  // namespace

void ReadShortcut(std::string link_file, Shortcut& shortcut) {
  LinkFields fields;
  if (ReadLinkFile(WithLinkExtension(std::move(link_file)), fields) != LinkStatus::kDone) return;
  shortcut.target = fields.target;
  shortcut.arguments = fields.arguments;
  shortcut.name = fields.name;
  shortcut.hot_key = std::to_string(fields.hot_key);
  shortcut.show_command = fields.show_command;
  shortcut.working_directory = fields.working_directory;
}

bool WriteShortcut(FrontEnd& front_end, std::string& link_file, AskBeforeReplacing ask,
                   const NewShortcut& shortcut) {
  link_file = WithLinkExtension(std::move(link_file));
  if (!WriteLinkTemplate(front_end, link_file, ask)) return false;
  // Only a link that the shell finds can fail for its hot key.
  LinkFields fields;
  LinkStatus status = ReadLinkFile(link_file, fields);
  if (status == LinkStatus::kDone) {
    status = SetFields(shortcut, fields) ? ChangeLinkFile(link_file, fields) : LinkStatus::kFailed;
  }
  if (status == LinkStatus::kFailed) DeleteIfThere(link_file);
  return status == LinkStatus::kDone;
}

bool WriteLinkTemplate(FrontEnd& front_end, const std::string& link_file, AskBeforeReplacing ask) {
  const bool exists = IsExistingFile(link_file);
  if (exists && ask == AskBeforeReplacing::kYes) {
    front_end.Beep();
    const std::string question = "The link file: \"" + link_file + "\" exists. Replace it?";
    if (!front_end.AskYesNo(question, "Tidemark")) return false;
  }
  FileSystemObject files;
  const std::string_view bytes(reinterpret_cast<const char*>(kLinkTemplate.data()),
                               kLinkTemplate.size());
  const bool deleted = !exists || files.DeleteFile(link_file, false) == FileSystemObject::kNone;
  if (deleted && files.WriteAll(link_file, bytes)) return true;
  DeleteIfThere(link_file);
  return false;
}

}  // namespace tidemark
