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
constexpr const char* kEnd = "end";
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

std::string CodedName(std::string_view name) {
  return ReplaceAll(CodeLineBreaks(name), "\t", "%09");
}

std::string LineOf(const std::string& text) {
  return text + '\t' + Checksum::Of(text) + std::string(kLineEnd);
}

struct EntryText {
  std::string name;
  std::string location;
  std::vector<std::string> ini_lines;
  bool whole = false;
};

EntryText ReadEntry(const std::string& folder) {
  EntryText entry;
  const std::string text = FileSystemObject().ReadAll(folder + kEntryFile).value_or("");
  std::vector<std::string> lines = Split(ReplaceAll(text, "\r", ""), '\n');
  std::vector<std::string> vouched_for;
  for (const std::string& line : lines) {
    const auto tab = std::min(line.rfind('\t'), line.size());
    const std::string content = line.substr(0, tab);
    if (tab < line.size() && line.substr(tab + 1) == Checksum::Of(content)) {
      vouched_for.push_back(content);
    }
  }
  const bool has_sums = !vouched_for.empty();
  entry.whole = lines.size() >= 2;
  if (has_sums) {
    std::erase(lines, "");
    entry.whole = vouched_for.size() == lines.size() && vouched_for.back() == kEnd;
    // Without its heading the rest is not in its place.
    lines =
        lines.front().starts_with(vouched_for.front()) ? vouched_for : std::vector<std::string>();
  }
  if (lines.size() < 2) return entry;
  entry.name = has_sums ? DecodeLineBreaks(ReplaceAll(lines[0], "%09", "\t")) : lines[0];
  entry.location = lines[1];
  entry.ini_lines.assign(lines.begin() + 2, lines.end());
  return entry;
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
    const bool kept = is_word || replaced.KeepIniValues(value.key, {value.section});
    whole = kept && WriteText(value) && whole;
  }
  return whole;
}

bool PutBack(frmMain& window, const std::string& folder) {
  RecordContents contents = ReadRecord(folder);
  const EntryText entry = ReadEntry(folder);
  const std::vector<IniValue> values = IniValuesOf(entry.ini_lines);
  // What was in win.ini alone has no other pieces.
  const bool ini_alone = contents.pieces.empty() && contents.files.empty() && !values.empty();
  const bool whole = entry.whole && contents.Missing() == 0 && (ini_alone || !contents.cut);
  RestorePlan plan;
  plan.Add(std::move(contents), folder);
  StartupRecord replaced(window, entry.name, entry.location);
  replaced.KeepReplaced(plan);
  const RestoreOutcome outcome = plan.PutBack();
  const bool back = outcome.failed + outcome.left_alone == 0;
  return PutBackIniValues(values, replaced) && whole && back;
}

}  // namespace

StartupRecord::StartupRecord(frmMain& window, const std::string& name, const std::string& location)
    : window_(window),
      folder_(NewFolder(window)),
      heading_(LineOf(CodedName(name)) + LineOf(location)),
      record_(folder_) {}

StartupRecord::~StartupRecord() {
  record_.End();
  if (has_entry_ && !KeepEntry(LineOf(kEnd))) lost_ = true;
  if (!lost_ && record_.failures() == 0) return;
  window_.front_end.ShowMessage("Not all of the entry could be recorded, to be put back later.",
                                window_.application.title, MessageIcon::kCritical);
}

void StartupRecord::KeepValue(HKEY root, const std::string& path, const std::string& name) {
  KeepEntry("");
  record_.KeepValue(root, path, name);
}

void StartupRecord::KeepFile(const std::string& path) {
  KeepEntry("");
  record_.KeepFile(path);
}

bool StartupRecord::KeepIniValues(const std::string& key,
                                  const std::vector<std::string>& sections) {
  std::string lines;
  bool any = false;
  for (const std::string& section : sections) {
    const std::string text = StandingText(section, key);
    any = any || !text.empty();
    lines += LineOf(section + '\t' + key + '\t' + text);
  }
  return !any || KeepEntry(lines);
}

void StartupRecord::KeepReplaced(RestorePlan& plan) {
  const ReplacedCounts kept = plan.KeepReplaced(record_);
  if (kept.newer + kept.earlier > 0) KeepEntry("");
}

bool StartupRecord::KeepEntry(const std::string& lines) {
  has_entry_ = true;
  const std::string records = folder_.substr(0, folder_.rfind('\\'));
  CreateDirectoryA(records.substr(0, records.rfind('\\')).c_str(), nullptr);
  CreateDirectoryA(records.c_str(), nullptr);
  CreateDirectoryA(folder_.c_str(), nullptr);
  RecordFile file(folder_ + kEntryFile, heading_, std::string(kLineEnd));
  if (file.Append(lines) && file.Flush()) return true;
  lost_ = true;
  return false;
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
    const EntryText entry = ReadEntry(records[i]);
    question += "\r\n" + std::to_string(i + 1) + "  ";
    if (!entry.location.empty()) question += entry.name + ", " + entry.location;
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
