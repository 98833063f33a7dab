// What a start-up entry was before it was deleted, or overwritten in win.ini: a complete record of
// its own for each, in "backup\complete\startup\" of the program's folder, named for the moment.
// Beside what complete_record.h tells, "entry.txt" holds the entry's name and place, a line each,
// and then for each value of win.ini its section, key and text between tabs; the text is empty
// where there was none.
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
  StartupRecord(const frmMain& window, const std::string& name, const std::string& location);

  // Before the change, any of them; after it, Deleted.
  void KeepValue(HKEY root, const std::string& path, const std::string& name);
  void KeepFile(const std::string& path);
  void KeepIniValues(const std::string& key, const std::vector<std::string>& sections);
  // What stands where the plan puts something else.
  void KeepReplaced(RestorePlan& plan);
  void Deleted() { record_.Deleted(); }

 private:
  void KeepEntry(const std::string& line);

  std::string folder_;
  std::string heading_;
  CompleteRecord record_;
};

bool HasStartupRecords(const frmMain& window);

// Offers the last records, and puts the chosen one back.
void mnuPutBack_Click(frmMain& window);

}  // namespace tidemark
