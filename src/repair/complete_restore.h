// The way back that loses nothing: beside what the registry editor makes of an undo file, all that
// the repair kept in its complete record is put back as it was.
#pragma once

#include <optional>
#include <string>

#include "platform/program_start.h"
#include "registry/restore_plan.h"
#include "window/frmMain.h"

namespace tidemark {

// "...\backup\complete\NAME" for an undo file "...\backup\NAME".
std::string CompleteRecordFolder(const std::string& undo_file);

class CompleteRestore {
 public:
  // Before the editor is started: notes what the import is about to change. Does nothing for a file
  // that has no record, such as a manual backup.
  explicit CompleteRestore(const std::string& undo_file);

  // Waits for the editor (null: it could not be started), yielding, for 30 seconds at most; puts
  // back what is not there as it was, and says on the page what came of it. The record goes when
  // all of it is back.
  void Finish(frmMain& window, const StartedProgram* editor);

 private:
  void SpareWhatTheImportTouches(const std::string& undo_file, bool record_is_whole);

  std::string folder_;
  ReplacedCounts replaced_;
  std::size_t missing_ = 0;
  bool cut_ = false;
  std::optional<RestorePlan> plan_;
};

}  // namespace tidemark
