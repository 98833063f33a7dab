#include "startup/startup_records.h"

#include <algorithm>
#include <vector>

#include "helpers/text_helpers.h"
#include "platform/file_system_object.h"
#include "platform/locale_texts.h"
#include "registry/ini_access.h"
#include "registry/restore_plan.h"
#include "startup/startup_sources.h"

namespace tidemark {
namespace {

constexpr const char* kEntryFile = "\\entry.txt";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kMostOffered = 9;
// Of a profile file's values, in characters: their bytes are fewer than 64 K.
constexpr std::size_t kLongestText = 21'000;
// Folder names begin with the moment.
constexpr const char* kMoment = "yyyymmdd_hhnnss";

std::string RecordsFolder(const frmMain& window) {
  return window.application.folder + "\\backup\\complete\\startup";
}

// One that is not there yet.
std::string NewFolder(const frmMain& window) {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  const std::string moment = RecordsFolder(window) + "\\" + FormatTime(now, kMoment);
  std::string folder = moment;
  for (int number = 2; FileSystemObject().FolderExists(folder); ++number) {
    folder = moment + "_" + std::to_string(number);
  }
  return folder;
}

// The last one first.
std::vector<std::string> Records(const frmMain& window) {
  FileSystemObject::Folder found;
  if (FileSystemObject().GetFolder(RecordsFolder(window), found)) return {};
  std::vector<std::string> folders;
  for (const std::string& name : found.SubFolders()) folders.push_back(found.PathOf(name));
  std::sort(folders.rbegin(), folders.rend());
  return folders;
}

std::vector<std::string> EntryLines(const std::string& folder) {
  const std::string text = FileSystemObject().ReadAll(folder + kEntryFile).value_or("");
  return Split(ReplaceAll(text, "\r", ""), '\n');
}

struct IniValue {
  std::string section;
  std::string key;
  std::string text;
};

std::string StandingText(const std::string& section, const std::string& key) {
  return ReadProfileText(section, key, WinIniFile(), kLongestText);
}

std::vector<IniValue> IniValuesOf(const std::vector<std::string>& lines) {
  std::vector<IniValue> values;
  for (const std::string& line : lines) {
    const auto section_end = line.find('\t');
    const auto key_end = line.find('\t', section_end + 1);
    if (section_end == std::string::npos || key_end == std::string::npos) continue;
    values.push_back({line.substr(0, section_end),
                      line.substr(section_end + 1, key_end - section_end - 1),
                      line.substr(key_end + 1)});
  }
  return values;
}

// Where the platform takes blanks and a pair of quotes away, the text stands between quotes.
bool WriteText(const IniValue& value) {
  for (const std::string& text : {value.text, '"' + value.text + '"'}) {
    WriteIniValue(value.section, value.key, text, WinIniFile());
    if (StandingText(value.section, value.key) == value.text) return true;
  }
  return false;
}

// Puts back what a change has overwritten; what stands there by now goes into a record of its own,
// but for the words that the change itself has left there.
bool PutBackIniValues(const std::vector<IniValue>& values, StartupRecord& replaced) {
  bool whole = true;
  for (const IniValue& value : values) {
    const std::string standing = StandingText(value.section, value.key);
    if (standing == value.text) continue;
    const bool is_word = standing == "Yes" || standing == "No";
    if (value.text.empty() && !is_word) continue;
    if (!is_word) replaced.KeepIniValues(value.key, {value.section});
    whole = WriteText(value) && whole;
  }
  return whole;
}

bool PutBack(const frmMain& window, const std::string& folder) {
  RecordContents contents = ReadRecord(folder);
  const bool whole = contents.damaged == 0;
  RestorePlan plan;
  plan.Add(std::move(contents), folder);
  const std::vector<std::string> lines = EntryLines(folder);
  StartupRecord replaced(window, lines.empty() ? "" : lines[0], lines.size() < 2 ? "" : lines[1]);
  replaced.KeepReplaced(plan);
  const bool back = plan.PutBack().failed == 0;
  return PutBackIniValues(IniValuesOf(lines), replaced) && whole && back;
}

}  // namespace

StartupRecord::StartupRecord(const frmMain& window, const std::string& name,
                             const std::string& location)
    : folder_(NewFolder(window)),
      heading_(name + std::string(kLineEnd) + location + std::string(kLineEnd)),
      record_(folder_) {}

void StartupRecord::KeepValue(HKEY root, const std::string& path, const std::string& name) {
  KeepEntry("");
  record_.KeepValue(root, path, name);
}

void StartupRecord::KeepFile(const std::string& path) {
  KeepEntry("");
  record_.KeepFile(path);
}

void StartupRecord::KeepIniValues(const std::string& key,
                                  const std::vector<std::string>& sections) {
  std::string lines;
  bool any = false;
  for (const std::string& section : sections) {
    const std::string text = StandingText(section, key);
    any = any || !text.empty();
    lines += section + '\t' + key + '\t' + text + std::string(kLineEnd);
  }
  if (any) KeepEntry(lines);
}

void StartupRecord::KeepReplaced(RestorePlan& plan) {
  const ReplacedCounts kept = plan.KeepReplaced(record_);
  if (kept.newer + kept.earlier > 0) KeepEntry("");
}

void StartupRecord::KeepEntry(const std::string& line) {
  const std::string records = folder_.substr(0, folder_.rfind('\\'));
  CreateDirectoryA(records.substr(0, records.rfind('\\')).c_str(), nullptr);
  CreateDirectoryA(records.c_str(), nullptr);
  CreateDirectoryA(folder_.c_str(), nullptr);
  RecordFile file(folder_ + kEntryFile, heading_, std::string(kLineEnd));
  if (file.Append(line)) file.Flush();
}

bool HasStartupRecords(const frmMain& window) { return !Records(window).empty(); }

void mnuPutBack_Click(frmMain& window) {
  std::vector<std::string> records = Records(window);
  records.resize(std::min(records.size(), kMostOffered));
  const std::string& title = window.application.title;
  if (records.empty()) {
    return window.front_end.ShowMessage("There is no entry to put back.", title,
                                        MessageIcon::kInformation);
  }
  std::string question = "Which entry is to be put back?";
  for (std::size_t i = 0; i < records.size(); ++i) {
    const std::vector<std::string> lines = EntryLines(records[i]);
    question += "\r\n" + std::to_string(i + 1) + "  ";
    if (lines.size() >= 2) question += lines[0] + ", " + lines[1];
  }
  const auto number = NumberOf(window.front_end.InputBox(question, title, "1"));
  if (!number) return;
  const auto choice = static_cast<std::size_t>(RoundToLong(*number).value_or(0)) - 1;
  if (choice >= records.size()) return;
  if (PutBack(window, records[choice])) {
    RemoveRecord(records[choice]);
  } else {
    window.front_end.ShowMessage("Not all of the entry could be put back. Its record stays.", title,
                                 MessageIcon::kCritical);
  }
  window.loadPrograms();
}

}  // namespace tidemark
