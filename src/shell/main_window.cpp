#include "shell/main_window.h"

#include "platform/winapi.h"
#include "scan/locations.h"
#include "scan/results.h"
#include "shell/pages.h"
#include "shell/status.h"
#include "window/panels.h"

namespace tidemark {
namespace {

// The only way back is the icon in the notification area.
void Hide(frmMain& window) {
  window.form.SetState(WindowState::kMinimized);
  window.form.SetVisible(false);
}

}  // namespace

void Main(frmMain& window) {
  FrontEnd& front_end = window.front_end;
  if (window.application.previous_instance) front_end.End();
  {
    frmSplash splash(window.application.folder);
    front_end.Show(splash.form);
    front_end.DoEvents();
    Sleep(1500);  // with the message loop stopped, on purpose
    front_end.Show(window.form);
    // A window that hid itself when it was loaded stays hidden.
    if (window.ShowinSystray == 1) Hide(window);
    front_end.Unload(splash.form);
  }
  front_end.DoEvents();
  cmdScanNow_Click(window);
}

void Form_Load(frmMain& window) {
  window.IgnoreList = {};
  if (window.application.previous_instance) window.front_end.End();
  window.front_end.SetMousePointer(MousePointer::kHourglass);
  LoadButtonPictures(window);
  LoadReasons(window);
  SetInitValues(window);
  LoadIgnoreLst(window.IgnoreList, window.application.folder);
  if (window.ShowinSystray != 1) window.form.SetState(WindowState::kNormal);
  window.AddTrayIcon();
  if (window.ShowinSystray == 1) Hide(window);
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
