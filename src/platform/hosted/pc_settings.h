// What pc.ini says about a hosted PC. The file is UTF-8 text in sections:
//
// clang-format off
//   [environment]  NAME=value                  one environment variable a line
//   [folders]      desktop=C:\...              special folders; kFolderNames lists the keys
//   [user]         sid=S-1-5-...  name=...     the name is the variable USERNAME
//   [locale]       short date=M/d/yyyy  time=h:mm:ss tt
//                  day names=Sunday,...  month names=January,...
//                  code page=1252
//   [drives]       C=fixed label=System        fixed, removable, cdrom, network, ramdisk; behind
//                  N=network share=\\srv\docs   the kind "not ready", "label=", "share=";
//                  Q=network error=53          what every access to it fails with: an offline
//                                              server (53, 67), a locked volume (33), ...
//   [disk]         folder=/mnt/windows         the PC is a mounted disk of Windows, and has its
//                  user=anna                   registry, its files and its settings, but for those
//                  D=/mnt/data                 named here; paths may begin at the folder of pc.ini
//   [program]      folder=C:\...               where the program stands, and its current folder
//   [denied]       key=HKEY_...  file=C:\...   what answers "access denied"; may be repeated
//   [editor]       start-up=1                  milliseconds until a registry editor is up
//                  duration=2                  and that its command takes from there
//                  format=utf-16               what it exports: utf-16 or 8-bit
//                  present=yes                 or no: the PC has none
//   [attributes]   C:\...=RHSA                 attributes that the folder's files can't carry
// clang-format on
//
// Lines that begin with ; or # are comments. Keys and section names ignore case.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/hosted/pc_choice.h"
#include "platform/hosted/pc_drive.h"
#include "platform/winapi.h"

namespace tidemark::hosted {

// The initial values are those of a PC without a pc.ini.
struct PcSettings {
  PcSettings();

  // Names as written; Variable ignores their case.
  std::vector<std::pair<std::string, std::string>> environment;
  std::map<int, std::string> special_folders;  // by CSIDL number
  std::string windows_folder = "C:\\Windows";
  std::string program_folder = "C:\\Program Files\\Tidemark";

  std::string user_sid = "S-1-5-21-0-0-0-1000";

  // Pictures of the platform's locale formats: d dd ddd dddd, M..., yy yyyy; h hh H HH, m mm, s ss,
  // t tt.
  std::string short_date = "M/d/yyyy";
  std::string long_time = "h:mm:ss tt";
  std::array<std::string, 7> day_names;  // from Sunday
  std::array<std::string, 12> month_names;

  // Those that pc.ini names. A folder under drives/ alone makes a fixed drive too.
  std::map<char, PcDrive> drives;  // by capital letter
  // Letters of which it is not known whether there is a drive: none is listed, and what lies there
  // is not known to be gone.
  std::set<char> unknown_drives;
  char hidden_drive = '\0';  // holds the program's folder, and is listed nowhere

  DiskChoice disk;  // a folder when the PC is a mounted disk of Windows

  std::vector<std::string> denied_keys;
  std::vector<std::string> denied_files;
  std::vector<std::pair<std::string, DWORD>> attributes;

  bool editor_present = true;
  std::uint32_t editor_start_up_ms = 1;
  std::uint32_t editor_duration_ms = 2;
  bool editor_writes_utf16 = true;

  // Null when there is no such variable.
  const std::string* Variable(std::string_view name) const;
  void SetVariable(std::string_view name, std::string_view value);

  // Reads the file over the settings that are given. A missing file is fine; throws HostedPcError,
  // naming file and line, for a line that can't be understood.
  static PcSettings Read(const std::filesystem::path& file, PcSettings settings = {});
  // Writes environment, folders, user, locale, drives and the program's folder in that form. Beside
  // them settings are those of tests, which nobody captures.
  void Write(std::ostream& out) const;
};

}  // namespace tidemark::hosted
