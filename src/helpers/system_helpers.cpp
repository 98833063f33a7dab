#include "helpers/system_helpers.h"

#include "helpers/text_helpers.h"
#include "platform/file_system_object.h"

namespace tidemark {
bool IsExistingFile(const std::string& path) { return FileSystemObject().FileExists(path); }

bool IsExistingFolder(const std::string& path) {
  return FileSystemObject().GetFolder(path) != FileSystemObject::kPathNotFound;
}

std::string ExpandEnvString(const std::string& text) {
  const DWORD needed = ExpandEnvironmentStringsA(text.c_str(), nullptr, 0);
  if (needed == 0) return {};
  // Some systems count 16-bit units, and cut off the rest: one unit takes up to three bytes.
  std::string expanded(std::size_t{needed} * 3, '\0');
  const auto room = static_cast<DWORD>(expanded.size());
  const DWORD written = ExpandEnvironmentStringsA(text.c_str(), expanded.data(), room);
  if (written == 0 || written > room) return {};
  return StripNull(expanded);
}

std::string GetSpecialFolderPath(int folder) {
  std::string path(std::size_t{MAX_PATH} * 3, '\0');  // 260 characters of up to 3 bytes
  if (SHGetFolderPathA(nullptr, folder | CSIDL_FLAG_CREATE, nullptr, 0, path.data()) != S_OK)
    return {};
  return StripNull(path);
}

std::string GetWindowsDir() {
  std::string folder(255, ' ');
  const UINT length = GetWindowsDirectoryA(folder.data(), static_cast<UINT>(folder.size()));
  if (length > folder.size()) return {};
  return std::string(TrimBlanks(std::string_view(folder).substr(0, length)));
}

void ShowFileProperties(const std::string& path) {
  if (path.empty()) return;
  SHELLEXECUTEINFOA info{};
  info.cbSize = sizeof info;
  info.fMask = SEE_MASK_INVOKEIDLIST;
  info.lpVerb = "properties";
  info.lpFile = path.c_str();
  info.nShow = SW_SHOW;
  ShellExecuteExA(&info);
}

void OpenWebPage(HWND owner, const std::string& site, std::string_view path, const char* verb,
                 const char* parameters, const char* folder, int show) {
  if (site.empty()) return;
  const std::string address = std::string(site).append(path);
  ShellExecuteA(owner, verb, address.c_str(), parameters, folder, show);
}

// On purpose: the object that would make it, "Scripting.FileSystemObj0ect", is on no system.
void CreateNewFolder(const std::string& /*path*/) {}

std::string AddBackslash(std::string_view path) {
  std::string result(path);
  if (!result.empty() && result.back() != '\\') result += '\\';
  return result;
}

}  // namespace tidemark
