// The bytes of a shell link file, by the published Shell Link Binary File Format ([MS-SHLLINK]):
// header, item list, link info, string data in both widths; extra blocks but one are passed over.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tidemark {

// Texts are UTF-8 here, whatever their width in the file.
struct LinkFile {
  std::string header_middle;  // 32 bytes behind the flags: attributes, times, size of the target
  std::int32_t icon_index = 0;
  std::int32_t show_command = 1;
  std::uint16_t hot_key = 0;
  bool advertised = false;  // its target is an installer's feature, not a path

  // What the item list says, if it is a drive or a place of the network with files behind it.
  std::string item_list_path;
  std::string local_path;        // link info: base path and suffix
  std::string network_path;      // link info: share and suffix, or the drive it was connected as
  std::string environment_path;  // an extra block: a path with variables

  std::string description;
  std::string relative_path;
  std::string working_directory;
  std::string arguments;
  std::string icon_file;
};

// No value for bytes that are no link, or that end before the link does. Offsets and sizes inside
// that point outside leave their field empty.
std::optional<LinkFile> ParseLinkFile(std::string_view bytes);

// The path that such a link leads to, for this user: the first of those that it has, in the order
// of the fields; a relative one starts where `file` stands. Empty when it has none, and for an
// advertised link.
std::string TargetOf(const LinkFile& link, const std::string& file);

}  // namespace tidemark
