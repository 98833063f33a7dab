// Reading and making link files. A link is made in two stages: a fixed template of 275 bytes is
// laid down, a link to a boot file, and the shell then overwrites its fields.
#pragma once

#include <cstdint>
#include <string>

#include "toolkit/front_end.h"

namespace tidemark {

struct Shortcut {
  std::string target = {};  // empty: none, or the link could not be read
  std::string arguments = {};
  std::string name = {};     // the shell's name of the link file, not a text of the link
  std::string hot_key = {};  // decimal
  std::int32_t show_command = 0;
  std::string working_directory = {};
};

// Reads the link's fields; ".lnk" is added to a name that does not end in the three letters. On
// failure the fields stay as they were.
void ReadShortcut(std::string link_file, Shortcut& shortcut);

enum class AskBeforeReplacing { kNo, kYes };

struct NewShortcut {
  std::string target = {};
  std::string arguments = {};
  std::string description = {};
  std::string hot_key = {};  // decimal; empty leaves it
  std::int32_t show_command = 1;
  std::string working_directory = {};
  std::string icon_file = {};  // empty leaves the icon
  std::int32_t icon_index = 0;
};

// Makes a link file, replacing one that is there. The name gets its ".lnk" for the caller too.
// False when it was not saved; no half-made link stays, but for one case: the shell that finds no
// item where the template was just laid down leaves the template.
bool WriteShortcut(FrontEnd& front_end, std::string& link_file, AskBeforeReplacing ask,
                   const NewShortcut& shortcut);

// Lays the template down. False when the person does not want a file replaced, or when it could not
// be written; then no file is left.
bool WriteLinkTemplate(FrontEnd& front_end, const std::string& link_file, AskBeforeReplacing ask);

}  // namespace tidemark
