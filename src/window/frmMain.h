// The main window: every control and flag of it in one plain struct, grouped by panel. It carries
// no procedure; those are free functions of the trades and the shell, bound to the controls by the
// shell.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "controls/xp_progress_bar.h"
#include "helpers/ignore_list.h"
#include "toolkit/control_group.h"
#include "toolkit/controls.h"
#include "toolkit/front_end.h"
#include "toolkit/list_view.h"
#include "window/application.h"
#include "window/dialogs.h"

namespace tidemark {

struct frmMain {
  frmMain(FrontEnd& the_front_end, Application the_application);

  FrontEnd& front_end;
  Application application;

  Form form{"frmMain"};

  // The page buttons along the top.
  ImageBox cmdMenuHome{&form, "cmdMenuHome"};
  ImageBox cmdMenuScan{&form, "cmdMenuScan"};
  ImageBox cmdMenuBackups{&form, "cmdMenuBackups"};
  ImageBox cmdMenuAdvanced{&form, "cmdMenuAdvanced"};

  // Outside the visible client area.
  ControlGroup<ImageBox> imgtoolbar{"imgtoolbar"};  // 0 to 4
  ImageBox imgClose{&form, "imgClose"};
  ImageBox imgMin{&form, "imgMin"};
  Label lblTitle{&form, "lblTitle"};
  ListView lvInvalidLoc{&form, "lvInvalidLoc"};  // the master list of findings

  // Home.
  PictureBox picWelcome{&form, "picWelcome"};
  ImageBox IMGRegistryStatus{&picWelcome, "IMGRegistryStatus"};
  Label lblLastscanCaption{&picWelcome, "lblLastscanCaption"};
  Label lblLastscan{&picWelcome, "lblLastscan"};
  Label lblTotaltodateCaption{&picWelcome, "lblTotaltodateCaption"};
  Label lblTotaltodate{&picWelcome, "lblTotaltodate"};
  Label lblLastDate{&picWelcome, "lblLastDate"};
  CommandButton cmdScanNow{&picWelcome, "cmdScanNow"};
  CommandButton cmdTellaFriend{&picWelcome, "cmdTellaFriend"};

  // Scan: the selection and the progress share the panel.
  PictureBox picScan{&form, "picScan"};
  ControlGroup<Label> lblscanmsg{"lblscanmsg"};   // 1 to 3
  ListView lvScan{&picScan, "lvScan"};            // the status list
  ListView lvLocations{&picScan, "lvLocations"};  // the selection list, at the same place
  CheckBox chkSelectAll{&picScan, "chkSelectAll"};
  XP_ProgressBar pbarScan{&picScan, "pbarScan"};
  Animation AnmSearch{&picScan, "AnmSearch"};
  Label lblstatus{&picScan, "lblstatus"};
  CommandButton cmdBack{&picScan, "cmdBack"};
  CommandButton cmdScan{&picScan, "cmdScan"};
  CommandButton cmdStop{&picScan, "cmdStop"};

  // Results.
  PictureBox picClear{&form, "picClear"};
  Label lblFound{&picClear, "lblFound"};
  Label lblinfo3{&picClear, "lblinfo3"};
  ListView lvFound{&picClear, "lvFound"};
  Label lblsinfo{&picClear, "lblsinfo"};
  ListView lvProblems{&picClear, "lvProblems"};
  XP_ProgressBar ProgressBar2{&picClear, "ProgressBar2"};
  Animation Animation1{&picClear, "Animation1"};
  CommandButton cmdFix{&picClear, "cmdFix"};
  CommandButton cmdCancel{&picClear, "cmdCancel"};
  CommandButton cmdStopFix{&picClear, "cmdStopFix"};
  CommandButton cmdFinish{&picClear, "cmdFinish"};

  // Advanced and Backups: a tab frame with a panel for each tab.
  PictureBox picOptions{&form, "picOptions"};
  ImageBox picopttoolback{&picOptions, "picopttoolback"};
  ControlGroup<Label> lblOptions{"lblOptions"};             // 0 to 3
  ControlGroup<PictureBox> picAdvOptions{"picAdvOptions"};  // 0 to 2

  // Junk files, and a panel that nothing shows.
  PictureBox picJunkScan{&form, "picJunkScan"};
  PictureBox picScaningJunk{&form, "picScaningJunk"};
  PictureBox picAbout{&form, "picAbout"};

  // State of a scan or a repair.
  bool ScanRunning = false;
  bool StopRequested = false;  // polled after each yield; the only way to end a running loop
  int CurrentTab = 0;
  std::string CurrentLocation;  // the code of the diagnostic test in work
  std::int32_t ProblemCount = 0;
  std::int32_t TotalToDate = 0;
  std::array<std::int32_t, 5> SeverityCounts{};
  std::array<std::string, 61> Reasons;
  ::tidemark::IgnoreList IgnoreList;

  // Texts of the last run, as they are stored.
  std::string LastRunTime;
  std::string LastRunDate;
  std::string OutstandingErrors;
  int ShowinSystray = 0;  // 1: the window starts hidden

  // Texts that are filled with the reasons and that nothing reads.
  struct MessageTexts {
    std::string stop, scan, select_location, total_invalid, problems_found, ignored, scan_now,
        confirm_edit, confirm_remove;
  } message_texts;

  // The small windows: made when they are shown, gone when they are closed.
  std::unique_ptr<frmAbout> about;
  std::unique_ptr<frmMessBox> mess_box;
  std::string MessBoxAnswer;

  // Procedures that a lower floor calls and a higher one brings.
  Event<> SetInitValues;
  Event<> LoadOptions;
  Event<> Loadbackup;
  Event<> Scheduler;
  Event<> loadPrograms;
  Event<> LoadFileTypes;
  Event<> LoadExcludeFolders;
  Event<> ShortCuts;
  Event<> AddTrayIcon;
  Event<> RemoveTrayIcon;
};

}  // namespace tidemark
