// When the last run was: stored as the locale's texts, for which this process knows the moment too.
#pragma once

#include <optional>

#include "window/frmMain.h"

namespace tidemark {

void SaveLastRunTime(frmMain& window, const SYSTEMTIME& now);
void SaveLastRunDate(frmMain& window, const SYSTEMTIME& now);

// The moment behind the texts of the last run; no value when another process has stored them.
std::optional<SYSTEMTIME> MomentOfLastRun(const frmMain& window);

}  // namespace tidemark
