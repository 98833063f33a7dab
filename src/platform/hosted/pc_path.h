// Paths of the PC as text: the platform's rules of what a path means and which can be none (Windows
// documentation, "Naming Files, Paths, and Namespaces").
#pragma once

#include <string>
#include <string_view>

#include "platform/winapi.h"

namespace tidemark::hosted {

struct PcPath {
  std::string text;   // "C:\Folder\File"; a drive's root is "C:\"
  std::string upper;  // the same in capitals, by which it is looked up
  bool ends_in_backslash = false;
};

// Makes a full path of any path: forward slashes, doubled separators, "." and "..", trailing blanks
// and dots, relative paths and those of a drive ("C:x"). Gives ERROR_SUCCESS, or the status that
// every file call answers to a path that can be none; `result`, whose memory is used again, is then
// undefined.
LONG NormalisePath(std::string_view path, std::string_view current_folder, PcPath& result);

}  // namespace tidemark::hosted
