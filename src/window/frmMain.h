// The main window: every control and flag of it in one plain struct, grouped by panel. It carries
// no procedure; those are free functions of the trades and the shell, bound to the controls by the
// shell.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

#include "controls/GetFolder.h"
#include "controls/xp_progress_bar.h"
#include "controls/xpcmdbutton.h"
#include "helpers/ignore_list.h"
#include "platform/winapi.h"
#include "toolkit/control_group.h"
#include "toolkit/controls.h"
#include "toolkit/file_list_box.h"
#include "toolkit/front_end.h"
#include "toolkit/list_view.h"
#include "toolkit/menu.h"
#include "toolkit/option_button.h"
#include "toolkit/text_box.h"
#include "toolkit/timer.h"
#include "toolkit/tray_icon.h"
#include "toolkit/tree_view.h"
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
  ImageBox Image1{&form, "Image1"};              // the program's icon, hidden

  // The tray icon's menu, and those of the lists.
  Menu mnusystray{&form, "mnusystray"};
  MenuItem mnuOpen{&mnusystray, "mnuOpen"};
  MenuItem mnuspe1{&mnusystray, "mnuspe1"};
  MenuItem mnuTellafriend{&mnusystray, "mnuTellafriend"};
  MenuItem mnuHelp{&mnusystray, "mnuHelp"};
  MenuItem mnuAbout{&mnusystray, "mnuAbout"};
  Menu mnuProblems{&form, "mnuProblems"};
  MenuItem mnuOpenKey{&mnuProblems, "mnuOpenKey"};
  MenuItem mnuspe2{&mnuProblems, "mnuspe2"};
  MenuItem mnuTickAll{&mnuProblems, "mnuTickAll"};
  MenuItem mnuClearAll{&mnuProblems, "mnuClearAll"};
  MenuItem mnuInvert{&mnuProblems, "mnuInvert"};
  MenuItem mnuspe3{&mnuProblems, "mnuspe3"};
  MenuItem mnuCopyRows{&mnuProblems, "mnuCopyRows"};
  MenuItem mnuSaveList{&mnuProblems, "mnuSaveList"};
  Menu mnuPrograms{&form, "mnuPrograms"};
  MenuItem mnuAddNew{&mnuPrograms, "mnuAddNew"};
  MenuItem mnuDeleteProgram{&mnuPrograms, "mnuDeleteProgram"};
  MenuItem mnuPutBack{&mnuPrograms, "mnuPutBack"};

  // Home.
  PictureBox picWelcome{&form, "picWelcome"};
  ImageBox IMGRegistryStatus{&picWelcome, "IMGRegistryStatus"};
  Label lblLastscanCaption{&picWelcome, "lblLastscanCaption"};
  Label lblLastscan{&picWelcome, "lblLastscan"};
  Label lblTotaltodateCaption{&picWelcome, "lblTotaltodateCaption"};
  Label lblTotaltodate{&picWelcome, "lblTotaltodate"};
  Label lblLastDateCaption{&picWelcome, "lblLastDateCaption"};
  Label lblLastDate{&picWelcome, "lblLastDate"};
  Label lblScanState{&picWelcome, "lblScanState"};  // of a scan that is running
  Timer TmrScanState{&picWelcome, "TmrScanState"};
  Label lblRepaired{&picWelcome, "lblRepaired"};  // of the repair behind the last scan
  CommandButton cmdScanNow{&picWelcome, "cmdScanNow"};
  CommandButton cmdTellaFriend{&picWelcome, "cmdTellaFriend"};
  CommandButton cmdHelp{&picWelcome, "cmdHelp"};
  CommandButton cmdAbout{&picWelcome, "cmdAbout"};
  CommandButton cmdCleanJunk{&picWelcome, "cmdCleanJunk"};

  // Scan: the selection and the progress share the panel.
  PictureBox picScan{&form, "picScan"};
  ControlGroup<Label> lblscanmsg{"lblscanmsg"};   // 1 to 3; 5 and 6 on the Backups tab
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
  Label lblNothingFound{&picClear, "lblNothingFound"};  // in the place of the lists
  TextBox txtProblem{&picClear, "txtProblem"};          // all of the selected problem
  XP_ProgressBar ProgressBar2{&picClear, "ProgressBar2"};
  Animation Animation1{&picClear, "Animation1"};
  CommandButton cmdFix{&picClear, "cmdFix"};
  CommandButton cmdCancel{&picClear, "cmdCancel"};
  CommandButton cmdStopFix{&picClear, "cmdStopFix"};
  Label lblRepairNote{&picClear, "lblRepairNote"};  // what a repair would do
  xpcmdbutton cmdFinish{&picClear, "cmdFinish"};

  // Advanced and Backups: a tab frame with a panel for each tab.
  PictureBox picOptions{&form, "picOptions"};
  ImageBox picopttoolback{&picOptions, "picopttoolback"};
  ImageBox imgTellaFriend{&picOptions, "imgTellaFriend"};  // the look of the last label
  ControlGroup<Label> lblOptions{"lblOptions"};            // 0 to 3
  ControlGroup<PictureBox> picAdvOptions{"picAdvOptions", &picOptions, 3};

  // Tab 0: options.
  Label lblStartupTitle{&picAdvOptions(0), "lblStartupTitle"};
  CheckBox chkStartup{&picAdvOptions(0), "chkStartup"};
  CheckBox chkSystray{&picAdvOptions(0), "chkSystray"};
  Label lblStartupNotice{&picAdvOptions(0), "lblStartupNotice"};  // shown when there is one
  Label lblSchedulerTitle{&picAdvOptions(0), "lblSchedulerTitle"};
  CheckBox chkScheduler{&picAdvOptions(0), "chkScheduler"};
  Label lblSchedulerNote{&picAdvOptions(0), "lblSchedulerNote"};
  Label lblNextRun{&picAdvOptions(0), "lblNextRun"};
  ControlGroup<OptionButton> optSchedule{"optSchedule"};  // 0 to 3
  CommandButton cmdOptApply{&picAdvOptions(0), "cmdOptApply"};
  CommandButton cmdOptCancel{&picAdvOptions(0), "cmdOptCancel"};
  Timer TmrScheduler{&picAdvOptions(0), "TmrScheduler"};

  // Tab 1: backups.
  FileListBox File1{&picAdvOptions(1), "File1"};
  ListView LvBackup{&picAdvOptions(1), "LvBackup"};
  Label lblBackupNote{&picAdvOptions(1), "lblBackupNote"};  // what the selected file holds
  Label lblRestored{&picAdvOptions(1), "lblRestored"};      // what the last restore came to
  CommandButton cmdBakupReg{&picAdvOptions(1), "cmdBakupReg"};
  CommandButton cmdRestore{&picAdvOptions(1), "cmdRestore"};
  CommandButton cmdRemove{&picAdvOptions(1), "cmdRemove"};

  // Tab 2: the programs that start with Windows.
  Label Label3{&picAdvOptions(2), "Label3"};
  Label lblSource{&picAdvOptions(2), "lblSource"};
  ListView lvPrograms{&picAdvOptions(2), "lvPrograms"};
  Label lblProgramNote{&picAdvOptions(2), "lblProgramNote"};  // on the selected entry
  CommandButton cmdWriteBack{&picAdvOptions(2), "cmdWriteBack"};
  CommandButton cmdDeleteEntry{&picAdvOptions(2), "cmdDeleteEntry"};

  // Junk files: what to look for and where.
  PictureBox picJunkCriteria{&form, "picJunkCriteria"};
  Label lblJunkTitle{&picJunkCriteria, "lblJunkTitle"};
  Label lblDrives{&picJunkCriteria, "lblDrives"};
  TreeView tvDrives{&picJunkCriteria, "tvDrives"};
  Label lblFileTypes{&picJunkCriteria, "lblFileTypes"};
  ListView lvFileTypes{&picJunkCriteria, "lvFileTypes"};
  ControlGroup<CommandButton> cmdFileTypes{"cmdFileTypes"};  // 0 add, 1 edit, 2 remove, 3 revert
  Label lblExcludeFolders{&picJunkCriteria, "lblExcludeFolders"};
  ListView lvExcludeFolders{&picJunkCriteria, "lvExcludeFolders"};
  ControlGroup<CommandButton> cmdExcludeFolders{"cmdExcludeFolders"};   // 0 add, 1 edit, 2 remove
  GetFolder FolderPicker{&picJunkCriteria, "FolderPicker", front_end};  // hidden: its dialog asks
  CommandButton cmdJunkScan{&picJunkCriteria, "cmdJunkScan"};

  // Junk files: what was found, and the panel of a running scan.
  PictureBox picJunkScan{&form, "picJunkScan"};
  Label lblJunkStatus{&picJunkScan, "lblJunkStatus"};
  Label lblJunkTicked{&picJunkScan, "lblJunkTicked"};  // how many are ticked, and their size
  ListView lvJunkFiles{&picJunkScan, "lvJunkFiles"};
  ProgressBar PbarRemoveJunk{&picJunkScan, "PbarRemoveJunk"};
  // 0 tick all, 1 clear all, 2 invert, 3 remove the ticked ones, 4 remove all, 5 leave the page
  ControlGroup<xpcmdbutton> cmdJunkFile{"cmdJunkFile"};
  PictureBox picScaningJunk{&picJunkScan, "picScaningJunk"};
  Label lblScaningJunk{&picScaningJunk, "lblScaningJunk"};
  Animation Animation2{&picScaningJunk, "Animation2"};
  xpcmdbutton cmdJunkStop{&picScaningJunk, "cmdJunkStop"};

  PictureBox picAbout{&form, "picAbout"};  // nothing shows it

  // State of a scan, a repair or a junk scan.
  bool ScanRunning = false;
  bool StopRequested = false;  // polled after each yield; the only way to end a running loop
  bool JunkScanRunning = false;
  std::unordered_multimap<std::size_t, ListItem*> JunkRowsByPath;  // by the hash of the path
  std::size_t JunkTickedFiles = 0;
  std::uint64_t JunkTickedBytes = 0;
  unsigned JunkRowsFilling = 0;  // of the list, when these rows were in it
  int RunsUnderWay = 0;          // on top of each other, each at a yield of the one below
  unsigned ScansBegun = 0;
  unsigned ScanOfRun = 0;  // the number of the scan whose findings the uppermost run is about
  int CurrentTab = 0;
  std::string CurrentLocation;  // the code of the diagnostic test in work
  std::int32_t ProblemCount = 0;
  int FindingsTicked = 0;
  std::int32_t TotalToDate = 0;
  std::array<std::int32_t, 5> SeverityCounts{};
  std::array<std::string, 61> Reasons;
  ::tidemark::IgnoreList IgnoreList;

  // Texts of the last run, as they are stored.
  std::string LastRunTime;
  std::string LastRunDate;
  // The same of the run that this process stored, and its moment.
  struct StoredRun {
    std::string time;
    std::string date;
    SYSTEMTIME moment{};
  } OwnRun;
  std::string OutstandingErrors;
  int ShowinSystray = 0;        // 1: the window starts hidden
  bool LogonTaskTried = false;  // the logon task was registered, or refused, since the start
  TrayIcon TrayData;
  bool AutoRunActive = false;  // a scheduled run is under way; nothing reads it

  // The junk criteria as they were last loaded or saved, entries divided by ";".
  std::string FileTypes;
  std::string FileDesc;
  std::string FileState;
  std::string ExcludeFolder;
  std::string ExcludeDesc;
  std::string ExcludeState;
  std::string SelectedFileTypes;  // the ticked patterns of a running junk scan

  // Texts that are filled with the reasons and that nothing reads.
  struct MessageTexts {
    std::string stop, scan, select_location, total_invalid, problems_found, ignored, scan_now,
        confirm_edit, confirm_remove;
  } message_texts;

  // The small windows: made when they are shown, gone when they are closed.
  std::unique_ptr<frmAbout> about;
  std::unique_ptr<frmHelp> help;
  std::unique_ptr<frmMessBox> mess_box;
  std::string MessBoxAnswer;
  unsigned MessBoxesShown = 0;  // notices and questions

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
  Event<> MakeMessBox;  // makes mess_box, its buttons bound, unless there is one
};

}  // namespace tidemark
