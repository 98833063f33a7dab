// What the shell calls the type of a file: "Text Document".
#pragma once

#include <string>

namespace tidemark {

// By the registry's file types; for an extension without one, the extension in capitals and "File".
// Empty when there is no such file.
std::string FileTypeText(const std::string& path);

}  // namespace tidemark
