// The drives of the hosted PC: those that pc.ini names, and those that have a folder.
#include <string>
#include <string_view>

#include "platform/hosted/file_store.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/pc_settings.h"
#include "platform/winapi.h"

namespace {

using tidemark::hosted::HostedPc;
using tidemark::hosted::PcDrive;

constexpr DWORD kErrorBadLength = 24;
constexpr DWORD kErrorDirNotRoot = 144;
constexpr DWORD kErrorBadDevice = 1200;
constexpr DWORD kErrorNotConnected = 2250;

LONG RootStatus(char letter) {
  DWORD attributes = 0;
  return HostedPc::Current().files().GetAttributes(std::string{letter, ':', '\\'}, attributes);
}

const PcDrive* Named(char letter) {
  const auto& drives = HostedPc::Current().settings().drives;
  const auto found = drives.find(letter);
  return found == drives.end() ? nullptr : &found->second;
}

bool IsThere(char letter) {
  const auto& settings = HostedPc::Current().settings();
  if (letter == settings.hidden_drive || settings.unknown_drives.contains(letter)) return false;
  return Named(letter) != nullptr || RootStatus(letter) != ERROR_PATH_NOT_FOUND;
}

// The capital letter of "c:" or "c:\"; 0 for a text that begins with none.
char LetterOf(std::string_view root) {
  if (root.size() < 2 || root[1] != ':') return '\0';
  const char letter = static_cast<char>(root[0] & ~0x20);
  return letter >= 'A' && letter <= 'Z' ? letter : '\0';
}

bool CopyOut(std::string_view text, LPSTR buffer, DWORD size) {
  if (buffer == nullptr) return true;
  if (text.size() >= size) return false;
  text.copy(buffer, text.size());
  buffer[text.size()] = '\0';
  return true;
}

DWORD VolumeStatus(std::string_view root) {
  const char letter = LetterOf(root);
  if (letter == '\0' || !root.ends_with('\\')) return ERROR_INVALID_NAME;
  if (!IsThere(letter)) return ERROR_PATH_NOT_FOUND;
  if (root.size() != 3) return kErrorDirNotRoot;
  const LONG status = RootStatus(letter);
  // A drive that pc.ini names and that has no folder has no disk in it.
  return static_cast<DWORD>(status == ERROR_PATH_NOT_FOUND ? ERROR_NOT_READY : status);
}

}  // namespace

DWORD GetLogicalDrives() {
  DWORD letters = 0;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if (IsThere(letter)) letters |= DWORD{1} << static_cast<unsigned>(letter - 'A');
  }
  return letters;
}

UINT GetDriveTypeA(LPCSTR root) {
  const std::string_view text = root == nullptr ? "\\" : root;
  const std::string full = HostedPc::Current().files().FullPath(text);
  const char letter = LetterOf(full);
  if (letter == '\0' || full.size() != 3 || !IsThere(letter)) return DRIVE_NO_ROOT_DIR;
  const PcDrive* const drive = Named(letter);
  return drive == nullptr ? DRIVE_FIXED : drive->kind;
}

BOOL GetVolumeInformationA(LPCSTR root, LPSTR label, DWORD label_size, LPDWORD serial,
                           LPDWORD longest_name, LPDWORD flags, LPSTR file_system,
                           DWORD file_system_size) {
  constexpr DWORD kKeepsCaseAndUnicode = 0x06;
  std::string text = root == nullptr ? "\\" : root;
  if (text == "\\") text = HostedPc::Current().files().FullPath(text);
  DWORD status = VolumeStatus(text);
  if (status == ERROR_SUCCESS) {
    const PcDrive* const drive = Named(LetterOf(text));
    const bool optical = drive != nullptr && drive->kind == DRIVE_CDROM;
    const bool fits = CopyOut(drive == nullptr ? "" : drive->label, label, label_size) &&
                      CopyOut(optical ? "CDFS" : "NTFS", file_system, file_system_size);
    if (!fits) status = kErrorBadLength;
  }
  if (status != ERROR_SUCCESS) {
    SetLastError(status);
    return FALSE;
  }
  if (serial != nullptr) *serial = 0;
  if (longest_name != nullptr) *longest_name = 255;
  if (flags != nullptr) *flags = kKeepsCaseAndUnicode;
  return TRUE;
}

DWORD WNetGetConnectionA(LPCSTR device, LPSTR share, LPDWORD size) {
  const std::string_view text = device == nullptr ? "" : device;
  const char letter = LetterOf(text);
  if (letter == '\0' || text.size() != 2 || !IsThere(letter)) return kErrorBadDevice;
  const PcDrive* const drive = Named(letter);
  if (drive == nullptr || drive->share.empty()) return kErrorNotConnected;
  if (CopyOut(drive->share, share, *size)) return ERROR_SUCCESS;
  *size = static_cast<DWORD>(drive->share.size() + 1);
  return ERROR_MORE_DATA;
}
