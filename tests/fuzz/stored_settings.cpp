// The stored settings: one text a line, in the order of the names below. Whatever they hold, the
// window loads.
#include <cstdint>
#include <string>

#include "helpers/settings_key.h"
#include "junk/junk.h"
#include "registry/mdlRegistry.h"
#include "scan/results.h"
#include "shell/status.h"
#include "shell/wiring.h"
#include "tests/fuzz/fuzz_pc.h"
#include "toolkit/script_front_end.h"
#include "window/frmMain.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tidemark;
  static const fuzz::FuzzPc pc;
  std::string text(reinterpret_cast<const char*>(data), size);
  for (const char* const name :
       {"LocState", "Startup", "ShowinSystray", "Scheduler", "SchedulerType", "SelectAllLoc",
        "LastCount", "TotalCount", "OutstandingErrors", "LastRunDate", "LastRunTime", "Drives",
        "FileTypes", "FileDesc", "FileState", "ExcludeFolder", "ExcludeDesc", "ExcludeState"}) {
    const auto end = text.find('\n');
    SaveRegString(HKEY_CURRENT_USER, kSettingsKey, name, text.substr(0, end));
    text.erase(0, end == std::string::npos ? end : end + 1);
  }
  ScriptFrontEnd front_end;
  frmMain window(front_end, Application{.folder = "C:\\Tidemark"});
  BindHandlers(window);
  SetInitValues(window);
  LoadFileTypes(window);
  LoadExcludeFolders(window);
  ShowDrivesList(window);
  fuzz::Require(window.lvLocations.Count() == 12);
  return 0;
}
