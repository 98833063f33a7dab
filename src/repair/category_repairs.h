// The repair of one finding: what goes from the registry or the disk, and what is kept of it first.
#pragma once

#include <optional>
#include <string>

#include "registry/complete_record.h"
#include "toolkit/list_view.h"
#include "window/frmMain.h"

namespace tidemark {

// What became of what a finding stands for.
enum class RepairOutcome { kGone, kNoRights, kInUse, kStayed };

// Writes the undo record and keeps all of it in the complete record, then deletes what the finding
// stands for. A failure of that holds nothing up; a deletion that some tests could not make puts
// the key on the ignore list. No value when the finding's test code is none, and then nothing is
// done.
std::optional<RepairOutcome> RepairFinding(frmMain& window, const ListItem& finding,
                                           const std::string& undo_file, CompleteRecord& record);

}  // namespace tidemark
