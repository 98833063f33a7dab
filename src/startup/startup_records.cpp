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

bool PutBackIniValues(const std::vector<std::string>& lines) {
  bool whole = true;
  for (const std::string& line : lines) {
    const std::vector<std::string> fields = Split(line, '\t');
    if (fields.size() != 3) continue;
    whole = WriteIniValue(fields[0], fields[1], fields[2], WinIniFile()) && whole;
  }
  return whole;
}

bool PutBack(const std::string& folder) {
  RecordContents contents = ReadRecord(folder);
  const bool whole = contents.damaged == 0;
  RestorePlan plan;
  plan.Add(std::move(contents), folder);
  const bool back = plan.PutBack().failed == 0;
  return PutBackIniValues(EntryLines(folder)) && whole && back;
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

void StartupRecord::KeepIniValue(const char* section, const char* key) {
  const std::string text = ReadIniValue(section, key, WinIniFile());
  if (text.empty()) return;
  KeepEntry(std::string(section) + '\t' + key + '\t' + text + std::string(kLineEnd));
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
  if (PutBack(records[choice])) {
    RemoveRecord(records[choice]);
  } else {
    window.front_end.ShowMessage("Not all of the entry could be put back. Its record stays.", title,
                                 MessageIcon::kCritical);
  }
  window.loadPrograms();
}

}  // namespace tidemark
