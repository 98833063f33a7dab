#include "platform/hosted/pc_settings.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>

#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/pc_folder_names.h"
#include "platform/letter_case.h"
#include "platform/unicode.h"

namespace tidemark::hosted {
namespace {

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// A full path of the PC, as "C:\Windows".
bool IsFullPath(std::string_view text) {
  return text.size() >= 3 && UpperCase(static_cast<unsigned char>(text[0])) >= U'A' &&
         UpperCase(static_cast<unsigned char>(text[0])) <= U'Z' && text[1] == ':' &&
         text[2] == '\\';
}

template <std::size_t n>
bool ReadNames(std::string_view text, std::array<std::string, n>& names) {
  std::array<std::string, n> read;
  for (std::size_t i = 0; i < n; ++i) {
    const auto comma = text.find(',');
    if ((comma == std::string_view::npos) != (i + 1 == n)) return false;
    read[i] = Trimmed(text.substr(0, comma));
    if (read[i].empty()) return false;
    text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
  }
  names = std::move(read);
  return true;
}

std::optional<DWORD> ReadAttributes(std::string_view letters) {
  DWORD attributes = 0;
  for (const char letter : letters) {
    switch (letter) {
      case 'R':
        attributes |= FILE_ATTRIBUTE_READONLY;
        break;
      case 'H':
        attributes |= FILE_ATTRIBUTE_HIDDEN;
        break;
      case 'S':
        attributes |= FILE_ATTRIBUTE_SYSTEM;
        break;
      case 'A':
        attributes |= FILE_ATTRIBUTE_ARCHIVE;
        break;
      default:
        return std::nullopt;
    }
  }
  return attributes;
}

// Reads the lines of one file into the settings. Each section's function gives what is wrong with a
// line, or an empty text.
class Reader {
 public:
  Reader(PcSettings& settings, std::filesystem::path folder)
      : settings_(settings), folder_(std::move(folder)) {}

  std::string Line(std::string_view line) {
    line = Trimmed(line);
    if (line.empty() || line.front() == ';' || line.front() == '#') return {};
    if (line.front() == '[') return Section(line);
    const auto equals = line.find('=');
    if (equals == std::string_view::npos) return "neither a section nor name=value";
    const std::string_view name = Trimmed(line.substr(0, equals));
    const std::string_view value = Trimmed(line.substr(equals + 1));
    if (name.empty()) return "no name before the =";
    if (section_ == nullptr) return "a line before the first section";
    return (this->*section_)(name, value);
  }

 private:
  using Lines = std::string (Reader::*)(std::string_view name, std::string_view value);

  std::string Section(std::string_view line) {
    constexpr std::pair<std::string_view, Lines> kSections[] = {
        {"[environment]", &Reader::Environment},
        {"[folders]", &Reader::Folder},
        {"[user]", &Reader::User},
        {"[locale]", &Reader::Locale},
        {"[disk]", &Reader::Disk},
        {"[drives]", &Reader::DriveLine},
        {"[program]", &Reader::Program},
        {"[denied]", &Reader::Denied},
        {"[editor]", &Reader::Editor},
        {"[attributes]", &Reader::Attributes},
    };
    const std::string title = LowerCase(line);
    for (const auto& [name, lines] : kSections) {
      if (title != name) continue;
      section_ = lines;
      return {};
    }
    return "unknown section " + std::string(line);
  }

  std::string Environment(std::string_view name, std::string_view value) {
    settings_.SetVariable(name, value);
    return {};
  }

  std::string Folder(std::string_view name, std::string_view value) {
    const auto* const known =
        std::find_if(std::begin(kFolderNames), std::end(kFolderNames),
                     [key = LowerCase(name)](const FolderName& entry) { return entry.key == key; });
    if (known == std::end(kFolderNames)) return Unknown("folder", name);
    if (!IsFullPath(value)) return NoPath(value);
    if (known->csidl == kWindowsFolder) {
      settings_.windows_folder = value;
    } else {
      settings_.special_folders[known->csidl] = value;
    }
    return {};
  }

  std::string User(std::string_view name, std::string_view value) {
    const std::string key = LowerCase(name);
    if (key == "sid") {
      if (value.empty() || value.find('\\') != std::string_view::npos) return "not a user's SID";
      settings_.user_sid = value;
    } else if (key == "name") {
      settings_.SetVariable("USERNAME", value);
    } else {
      return Unknown("key", name);
    }
    return {};
  }

  std::string Locale(std::string_view name, std::string_view value) {
    const std::string key = LowerCase(name);
    if (key == "short date" || key == "time") {
      if (value.empty()) return "an empty format";
      (key == "time" ? settings_.long_time : settings_.short_date) = value;
    } else if (key == "day names") {
      if (!ReadNames(value, settings_.day_names)) return "not 7 names divided by commas";
    } else if (key == "month names") {
      if (!ReadNames(value, settings_.month_names)) return "not 12 names divided by commas";
    } else if (key == "code page") {
      if (value != "1252") return "code page " + std::string(value) + " is not known, only 1252";
    } else {
      return Unknown("key", name);
    }
    return {};
  }

  std::string Disk(std::string_view name, std::string_view value) {
    const std::string key = UpperCase(name);
    const auto place = (folder_ / value).lexically_normal();
    if (key == "FOLDER") {
      settings_.disk.folder = place;
    } else if (key == "USER") {
      settings_.disk.user = value;
    } else if (key.size() == 1 && key[0] >= 'A' && key[0] <= 'Z') {
      settings_.disk.drives[key[0]] = place;
    } else {
      return Unknown("key", name);
    }
    return {};
  }

  std::string DriveLine(std::string_view name, std::string_view value) {
    const std::string letter = UpperCase(name);
    if (letter.size() != 1 || letter[0] < 'A' || letter[0] > 'Z') return "not a drive letter";
    return ReadDrive(value, settings_.drives[letter[0]]);
  }

  std::string Program(std::string_view name, std::string_view value) {
    if (LowerCase(name) != "folder") return Unknown("key", name);
    if (!IsFullPath(value)) return NoPath(value);
    settings_.program_folder = value;
    return {};
  }

  std::string Denied(std::string_view name, std::string_view value) {
    const std::string key = LowerCase(name);
    if (key == "key") {
      if (!UpperCase(value).starts_with("HKEY_")) return "not a key's full name";
      settings_.denied_keys.emplace_back(value);
    } else if (key == "file") {
      if (!IsFullPath(value)) return NoPath(value);
      settings_.denied_files.emplace_back(value);
    } else {
      return Unknown("key", name);
    }
    return {};
  }

  std::string Editor(std::string_view name, std::string_view value) {
    const std::string key = LowerCase(name);
    if (key == "duration" || key == "start-up") {
      std::uint32_t& milliseconds =
          key == "duration" ? settings_.editor_duration_ms : settings_.editor_start_up_ms;
      const auto [end, error] = std::from_chars(value.begin(), value.end(), milliseconds);
      if (error != std::errc{} || end != value.end()) return "not a number of milliseconds";
    } else if (key == "present") {
      if (value != "yes" && value != "no") return "neither yes nor no";
      settings_.editor_present = value == "yes";
    } else if (key == "format") {
      if (value != "utf-16" && value != "8-bit") return "neither utf-16 nor 8-bit";
      settings_.editor_writes_utf16 = value == "utf-16";
    } else {
      return Unknown("key", name);
    }
    return {};
  }

  std::string Attributes(std::string_view name, std::string_view value) {
    if (!IsFullPath(name)) return NoPath(name);
    const std::optional<DWORD> attributes = ReadAttributes(UpperCase(value));
    if (!attributes) return "attributes other than R, H, S, A";
    settings_.attributes.emplace_back(name, *attributes);
    return {};
  }

  static std::string Unknown(std::string_view kind, std::string_view name) {
    return "unknown " + std::string(kind) + " \"" + std::string(name) + '"';
  }
  static std::string NoPath(std::string_view value) {
    return "\"" + std::string(value) + "\" is no full path of the PC, as C:\\Windows";
  }

  PcSettings& settings_;
  std::filesystem::path folder_;  // of pc.ini
  Lines section_ = nullptr;
};

// What is wrong with the text as such; empty when nothing is.
std::string_view TextFault(std::string_view line) {
  for (std::size_t position = 0; position < line.size();) {
    const char32_t character = NextCharacter(line, position);
    if (character == kNoCharacter) return "not UTF-8 text";
    if (character == 0) return "a NUL character";
  }
  return {};
}

}  // namespace

PcSettings::PcSettings()
    : environment{{"SystemDrive", "C:"},
                  {"SystemRoot", "C:\\Windows"},
                  {"windir", "C:\\Windows"},
                  {"ProgramFiles", "C:\\Program Files"},
                  {"CommonProgramFiles", "C:\\Program Files\\Common Files"},
                  {"ProgramData", "C:\\ProgramData"},
                  {"ALLUSERSPROFILE", "C:\\ProgramData"},
                  {"PUBLIC", "C:\\Users\\Public"},
                  {"HOMEDRIVE", "C:"},
                  {"HOMEPATH", "\\Users\\User"},
                  {"USERPROFILE", "C:\\Users\\User"},
                  {"USERNAME", "User"},
                  {"APPDATA", "C:\\Users\\User\\AppData\\Roaming"},
                  {"LOCALAPPDATA", "C:\\Users\\User\\AppData\\Local"},
                  {"TEMP", "C:\\Users\\User\\AppData\\Local\\Temp"},
                  {"TMP", "C:\\Users\\User\\AppData\\Local\\Temp"},
                  {"ComSpec", "C:\\Windows\\system32\\cmd.exe"},
                  {"PATH", "C:\\Windows\\system32;C:\\Windows"}},
      special_folders{
          {CSIDL_DESKTOP, "C:\\Users\\User\\Desktop"},
          {CSIDL_STARTUP,
           "C:\\Users\\User\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs\\Startup"},
          {CSIDL_STARTMENU, "C:\\Users\\User\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu"},
          {CSIDL_FONTS, "C:\\Windows\\Fonts"},
          {CSIDL_COMMON_STARTMENU, "C:\\ProgramData\\Microsoft\\Windows\\Start Menu"},
          {CSIDL_COMMON_STARTUP,
           "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs\\Startup"}},
      day_names{"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"},
      month_names{"January", "February", "March",     "April",   "May",      "June",
                  "July",    "August",   "September", "October", "November", "December"} {}

const std::string* PcSettings::Variable(std::string_view name) const {
  const auto found = std::find_if(
      environment.begin(), environment.end(),
      [name](const auto& variable) { return CompareIgnoringCase(variable.first, name) == 0; });
  return found == environment.end() ? nullptr : &found->second;
}

void PcSettings::SetVariable(std::string_view name, std::string_view value) {
  const auto found = std::find_if(
      environment.begin(), environment.end(),
      [name](const auto& variable) { return CompareIgnoringCase(variable.first, name) == 0; });
  if (found == environment.end()) {
    environment.emplace_back(name, value);
  } else {
    found->second = value;
  }
}

PcSettings PcSettings::Read(const std::filesystem::path& file, PcSettings settings) {
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored)) return settings;
  std::ifstream stream(file, std::ios::binary);
  std::stringstream text;
  // Extracting nothing, from an empty file, is not a failure to read.
  if (stream && stream.peek() != std::ifstream::traits_type::eof()) text << stream.rdbuf();
  if (!stream.is_open() || stream.bad() || std::filesystem::is_directory(file, ignored)) {
    throw HostedPcError(file.string() + ": can't be read");
  }
  Reader reader(settings, std::filesystem::absolute(file).parent_path());
  std::string line;
  for (std::size_t number = 1; std::getline(text, line); ++number) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (number == 1 && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
    std::string fault(TextFault(line));
    if (fault.empty()) fault = reader.Line(line);
    if (!fault.empty()) {
      throw HostedPcError(file.string() + ":" + std::to_string(number) + ": " + fault);
    }
  }
  return settings;
}

}  // namespace tidemark::hosted
