// The bytes of a shell link file, by the published Shell Link Binary File Format ([MS-SHLLINK]):
// header, item list, link info, string data in both widths; extra blocks but one are passed over.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tidemark::hosted {

// Texts are UTF-8 here, whatever their width in the file.
struct LinkFile {
  std::string header_middle;  // 32 bytes behind the flags: attributes, times, size of the target
  std::int32_t icon_index = 0;
  std::int32_t show_command = 1;
  std::uint16_t hot_key = 0;
  bool advertised = false;  // its target is an installer's feature, not a path

  std::string item_list_path;    // what the item list says, if it is all drive and file items
  std::string local_path;        // link info: base path and suffix
  std::string network_path;      // link info: share, or the drive it was connected as, and suffix
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

// The same link with 16-bit string data, its target in the link info: local_path or, where that is
// empty, network_path; no item list and no extra blocks.
std::string FormatLinkFile(const LinkFile& link);

}  // namespace tidemark::hosted
