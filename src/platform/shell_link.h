// Shell link files (".lnk") as the shell's objects read and change them. One interface, two
// implementations: the shell itself on Windows, a reader and writer of the published Shell Link
// Binary File Format ([MS-SHLLINK]) on a hosted PC. A file of any bytes at all gives a result or a
// failure.
#pragma once

#include <cstdint>
#include <string>

namespace tidemark {

// A full path, as for all of this header.
enum class LinkStatus {
  kDone,
  kNoItem,  // the shell finds no file of that name
  kFailed,  // the file is no link, or can't be read or written
};

struct LinkFields {
  std::string target = {};  // empty for a link whose target is no path, such as an advertised one
  std::string arguments = {};
  std::string name = {};  // the shell's name of the link file: without its ".lnk"
  std::string description = {};
  std::uint16_t hot_key = 0;      // key code in the low byte, modifiers in the high one
  std::int32_t show_command = 1;  // 1 normal, 3 maximised, 7 minimised
  std::string working_directory = {};
  std::string icon_file = {};
  std::int32_t icon_index = 0;
};

// `fields` is left as it is when the status is not kDone.
LinkStatus ReadLinkFile(const std::string& file, LinkFields& fields);

// Opens an existing link, sets all fields but the name, and saves it. An empty icon file leaves the
// icon.
LinkStatus ChangeLinkFile(const std::string& file, const LinkFields& fields);

}  // namespace tidemark
