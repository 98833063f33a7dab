// What a start-up entry was before it was deleted, or overwritten in win.ini: a complete record of
// its own for each, in "backup\complete\startup\" of the program's folder, named for the moment.
// Beside what complete_record.h tells, "entry.txt" holds the entry's name and place, a line each,
// tabs and line breaks coded, then for each value of win.ini its section, key and text between
// tabs; the text is empty where there was none; and at last "end". Each line ends in a tab and its
// checksum; those of earlier versions have neither checksums nor an end.
#pragma once

#include <string>
#include <vector>

#include "platform/winapi.h"
#include "registry/complete_record.h"
#include "registry/restore_plan.h"
#include "window/frmMain.h"

namespace tidemark {

class StartupRecord {
 public:
  StartupRecord(frmMain& window, const std::string& name, const std::string& location);
  // Says it when not all could be recorded.
  ~StartupRecord();
  StartupRecord(const StartupRecord&) = delete;
  StartupRecord& operator=(const StartupRecord&) = delete;

  // Before the change, any of them; after it, Deleted.
  void KeepValue(HKEY root, const std::string& path, const std::string& name);
  void KeepFile(const std::string& path);
  // False when they could not be kept.
  bool KeepIniValues(const std::string& key, const std::vector<std::string>& sections);
  // What stands where the plan puts something else.
  void KeepReplaced(RestorePlan& plan);
  void Deleted() { record_.Deleted(); }

 private:
  bool KeepEntry(const std::string& lines);

  frmMain& window_;
  std::string folder_;
  std::string heading_;
  bool has_entry_ = false;
  bool lost_ = false;
  CompleteRecord record_;
};

bool HasStartupRecords(const frmMain& window);

// Offers the last records, and puts the chosen one back.
void mnuPutBack_Click(frmMain& window);

}  // namespace tidemark
