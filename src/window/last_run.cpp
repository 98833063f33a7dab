#include "window/last_run.h"

#include "platform/locale_texts.h"
#include "registry/stored_settings.h"

namespace tidemark {

void SaveLastRunTime(frmMain& window, const SYSTEMTIME& now) {
  window.OwnRun.moment = now;
  window.OwnRun.time = TimeText(now);
  SaveSetting("LastRunTime", window.OwnRun.time);
}

void SaveLastRunDate(frmMain& window, const SYSTEMTIME& now) {
  window.OwnRun.date = DateText(now);
  SaveSetting("LastRunDate", window.OwnRun.date);
}

std::optional<SYSTEMTIME> MomentOfLastRun(const frmMain& window) {
  const auto& own = window.OwnRun;
  if (own.date.empty() || own.date != window.LastRunDate || own.time != window.LastRunTime) {
    return std::nullopt;
  }
  return own.moment;
}

}  // namespace tidemark
