// Helpers that wrap one platform call each. None of them fails aloud: a failure gives false or an
// empty text.
#pragma once

#include <string>
#include <string_view>

#include "platform/winapi.h"

namespace tidemark {

// True when the path is a file.
bool IsExistingFile(const std::string& path);

// False only when the platform says that the folder's path is not found; true for a folder and for
// any other answer, such as that of a drive that is not ready.
bool IsExistingFolder(const std::string& path);

// %NAME% replaced by the environment's text; a variable that is not known stays as it is written.
std::string ExpandEnvString(const std::string& text);

// The folder of that number (CSIDL), made if it is missing; empty when there is none.
std::string GetSpecialFolderPath(int folder);

// The Windows folder, without a trailing backslash.
std::string GetWindowsDir();

// Opens the shell's properties box of the file; an empty path opens nothing.
void ShowFileProperties(const std::string& path);

// Opens a page of a web site in the user's browser; nothing where there is no site. The other
// parameters are those of ShellExecuteA.
void OpenWebPage(HWND owner, const std::string& site, std::string_view path, const char* verb,
                 const char* parameters, const char* folder, int show);

// Makes no folder.
void CreateNewFolder(const std::string& path);

// With exactly the backslash that is lacking at its end, if one is; empty stays empty.
std::string AddBackslash(std::string_view path);

}  // namespace tidemark
