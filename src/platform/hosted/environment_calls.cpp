// The environment and the special folders of the hosted PC.
#include <cstring>
#include <string>
#include <string_view>

#include "platform/hosted/file_store.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/pc_settings.h"
#include "platform/winapi.h"

namespace {

using tidemark::hosted::FileStore;
using tidemark::hosted::HostedPc;
using tidemark::hosted::PcSettings;

// The HRESULTs of SHGetFolderPath.
constexpr HRESULT kInvalidArgument = static_cast<HRESULT>(0x80070057);
constexpr HRESULT kFileNotFound = static_cast<HRESULT>(0x80070002);

HRESULT FromStatus(LONG status) {
  return static_cast<HRESULT>(0x80070000U | static_cast<DWORD>(status));
}

std::string Expanded(std::string_view text) {
  const PcSettings& settings = HostedPc::Current().settings();
  std::string expanded;
  while (!text.empty()) {
    const auto start = text.find('%');
    expanded += text.substr(0, start);
    if (start == std::string_view::npos) break;
    text.remove_prefix(start);
    const auto end = text.find('%', 1);
    const std::string* const value =
        end == std::string_view::npos ? nullptr : settings.Variable(text.substr(1, end - 1));
    if (value != nullptr) {
      expanded += *value;
      text.remove_prefix(end + 1);
    } else {
      // Unknown: the sign stands for itself, and the next one may begin a name.
      expanded += '%';
      text.remove_prefix(1);
    }
  }
  return expanded;
}

// The size with the NUL; the text is copied if it fits.
DWORD CopyOut(std::string_view text, char* buffer, DWORD size) {
  const auto needed = static_cast<DWORD>(text.size() + 1);
  if (buffer != nullptr && needed <= size) {
    text.copy(buffer, text.size());
    buffer[text.size()] = '\0';
  }
  return needed;
}

bool IsFolder(FileStore& files, std::string_view path) {
  DWORD attributes = 0;
  return files.GetAttributes(path, attributes) == ERROR_SUCCESS &&
         (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool MakeWithParents(FileStore& files, std::string_view path) {
  const auto cut = path.find_last_of('\\');
  if (cut != std::string_view::npos && cut > 2 && !IsFolder(files, path.substr(0, cut)) &&
      !MakeWithParents(files, path.substr(0, cut))) {
    return false;
  }
  return files.MakeFolder(path) == ERROR_SUCCESS;
}

}  // namespace

DWORD ExpandEnvironmentStringsA(LPCSTR text, LPSTR expanded, DWORD size) {
  return CopyOut(Expanded(text), expanded, size);
}

UINT GetWindowsDirectoryA(LPSTR folder, UINT size) {
  const std::string& windows = HostedPc::Current().settings().windows_folder;
  const DWORD needed = CopyOut(windows, folder, size);
  return needed <= size ? needed - 1 : needed;
}

HRESULT SHGetFolderPathA(HWND, int folder, HANDLE, DWORD, LPSTR path) {
  constexpr int kFlags = 0xFF00;
  path[0] = '\0';
  HostedPc& pc = HostedPc::Current();
  const auto known = pc.settings().special_folders.find(folder & ~kFlags);
  if (known == pc.settings().special_folders.end()) return kInvalidArgument;
  FileStore& files = pc.files();
  DWORD attributes = 0;
  const LONG status = files.GetAttributes(known->second, attributes);
  if (status == ERROR_NOT_READY || status == ERROR_ACCESS_DENIED) return FromStatus(status);
  // Who only looks at a disk leaves no folders there.
  const bool is_disk = pc.settings().hidden_drive != '\0';
  const bool makes = (folder & CSIDL_FLAG_CREATE) != 0;
  if (!IsFolder(files, known->second) &&
      (!makes || (!is_disk && !MakeWithParents(files, known->second)))) {
    return kFileNotFound;
  }
  CopyOut(known->second, path, MAX_PATH);
  return S_OK;
}
