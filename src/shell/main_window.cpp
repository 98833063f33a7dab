#include "shell/main_window.h"

#include "platform/winapi.h"
#include "scan/findings.h"
#include "scan/locations.h"
#include "shell/pages.h"
#include "shell/status.h"

namespace tidemark {

void Main(frmMain& window) {
  FrontEnd& front_end = window.front_end;
  if (window.application.previous_instance) front_end.End();
  {
    frmSplash splash;
    front_end.Show(splash.form);
    front_end.DoEvents();
    Sleep(1500);  // with the message loop stopped, on purpose
    front_end.Show(window.form);
    front_end.Unload(splash.form);
  }
  front_end.DoEvents();
  cmdScanNow_Click(window);
}

void Form_Load(frmMain& window) {
  window.IgnoreList = {};
  if (window.application.previous_instance) window.front_end.End();
  window.front_end.SetMousePointer(MousePointer::kHourglass);
  LoadReasons(window);
  SetInitValues(window);
  LoadIgnoreLst(window.IgnoreList, window.application.folder);
  window.AddTrayIcon();
  if (window.ShowinSystray == 1) window.form.SetState(WindowState::kMinimized);
  window.LoadFileTypes();
  window.LoadExcludeFolders();
  window.front_end.SetMousePointer(MousePointer::kDefault);
}

void Form_Unload(frmMain& window) {
  window.StopRequested = true;
  window.front_end.DoEvents();
  Form_Terminate(window);
}

void Form_Terminate(frmMain& window) {
  SaveLocations(window);
  window.RemoveTrayIcon();
  window.front_end.End();
}

}  // namespace tidemark
