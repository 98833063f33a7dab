#include "window/frmMain.h"

#include <initializer_list>
#include <string>
#include <utility>

#include "window/places.h"

namespace tidemark {
namespace {

constexpr Font kHeading{.tenths_of_points = 97, .bold = true};
constexpr Font kFigure{.tenths_of_points = 180, .bold = true};

// Of what can be clicked: the system's highlight, by its number.
constexpr unsigned kLinkColor = 0x8000000D;

// The columns of some lists are measured in hundredths of a millimetre.
constexpr int Twips(int hundredths_of_millimetre) {
  return (hundredths_of_millimetre * 1440 + 1270) / 2540;
}

struct Named {
  Control& control;
  const char* name;
};

// Names for screen readers; the letter behind an "&" is the access key.
void NameControls(std::initializer_list<Named> controls) {
  for (const Named& named : controls) named.control.SetAccessibleName(named.name);
}

void DesignWindow(frmMain& window) {
  window.form.SetCaption("Tidemark! - Keep Your PC In Trim!");
  window.form.SetPictureFile(window.application.folder + "\\images\\background.jpg");
  for (Control* panel : std::initializer_list<Control*>{
           &window.picWelcome, &window.picScan, &window.picClear, &window.picOptions,
           &window.picJunkCriteria, &window.picJunkScan, &window.picScaningJunk,
           &window.picAbout}) {
    panel->SetVisible(panel == &window.picWelcome);
  }
  for (int index = 0; index <= 4; ++index) window.imgtoolbar.Add(&window.form, index);
  window.Image1.SetVisible(false);
  window.Image1.SetPictureFile(window.application.folder + "\\images\\tidemark.ico");
  const std::string images = window.application.folder + "\\images\\";
  window.cmdMenuHome.SetPictureFile(images + "overview2.jpg");
  window.cmdMenuScan.SetPictureFile(images + "RegistryScan.jpg");
  window.cmdMenuBackups.SetPictureFile(images + "backup.jpg");
  window.cmdMenuAdvanced.SetPictureFile(images + "settings.jpg");
  NameControls({{window.cmdMenuHome, "&Home"},
                {window.cmdMenuScan, "Registry &Scan"},
                {window.cmdMenuBackups, "&Backups"},
                {window.cmdMenuAdvanced, "Ad&vanced"}});
}

void DesignMenus(frmMain& window) {
  window.mnuOpen.SetCaption("Open");
  window.mnuspe1.SetCaption("-");
  window.mnuTellafriend.SetCaption("Tell a Friend");
  window.mnuHelp.SetCaption("Help");
  window.mnuAbout.SetCaption("About");
  window.mnuOpenKey.SetCaption("&Open in Registry Editor");
  window.mnuspe2.SetCaption("-");
  window.mnuTickAll.SetCaption("&Tick All");
  window.mnuClearAll.SetCaption("&Clear All");
  window.mnuInvert.SetCaption("&Invert");
  window.mnuspe3.SetCaption("-");
  window.mnuCopyRows.SetCaption("Cop&y");
  window.mnuSaveList.SetCaption("&Save List...");
  window.mnuAddNew.SetCaption("&Write Entry Back");
  window.mnuDeleteProgram.SetCaption("&Delete Entry...");
  window.mnuPutBack.SetCaption("&Put Back...");
}

void DesignHome(frmMain& window) {
  window.lblLastscanCaption.SetCaption("Errors Found on Last Scan");
  window.lblTotaltodateCaption.SetCaption("Total to date");
  window.lblLastDateCaption.SetCaption("Last Scan");
  for (Label* caption :
       {&window.lblLastscanCaption, &window.lblTotaltodateCaption, &window.lblLastDateCaption}) {
    caption->SetFont(kHeading);
  }
  for (Label* figure : {&window.lblLastscan, &window.lblTotaltodate}) figure->SetFont(kFigure);
  window.lblScanState.SetForeColor(kLinkColor);
  window.lblScanState.SetVisible(false);
  window.TmrScanState.SetInterval(500);
  window.TmrScanState.SetEnabled(false);
  window.cmdScanNow.SetCaption("Scan &Now");
  window.cmdScanNow.SetDefault(true);
  window.cmdCleanJunk.SetCaption("Clean &Junk Files");
  window.cmdTellaFriend.SetCaption("&Tell a Friend");
  window.cmdHelp.SetCaption("H&elp");
  window.cmdAbout.SetCaption("&About");
  window.IMGRegistryStatus.SetPictureFile(window.application.folder +
                                          "\\Images\\RegHealth-Unknown.jpg");
  NameControls({{window.IMGRegistryStatus, "Registry health"}});
}

void DesignScan(frmMain& window) {
  // The texts of the two lists' headings lie over each other; one of them is visible at a time.
  window.lblscanmsg.Add(&window.picScan, 1)
      .SetCaption(
          "Simply select the diagnostic tests that you would like Tidemark to perform and click "
          "'Scan'");
  window.lblscanmsg.Add(&window.picScan, 2).SetCaption("Diagnostic tests to perform");
  window.lblscanmsg.Add(&window.picScan, 3).SetCaption("Diagnostic tests in progress");
  window.lblscanmsg(2).SetFont(kHeading);
  window.lblscanmsg(3).SetFont(kHeading);
  window.lblscanmsg(3).SetVisible(false);
  window.lvLocations.columns = {{"Diagnostic Test", 3200, {}}, {"Description", 6400, {}}};
  window.lvLocations.check_boxes = true;
  window.lvScan.columns = {
      {"Diagnostic Test", 4600, {}}, {"Status", 2500, {}}, {"Problems Found", 2500, {}}};
  window.lvScan.small_icons = {"\\images\\scan1.ico", "\\images\\scan2.ico"};
  window.chkSelectAll.SetCaption("Select a&ll");
  window.cmdBack.SetCaption("Bac&k");
  window.cmdScan.SetCaption("S&can");
  window.cmdScan.SetDefault(true);
  window.cmdStop.SetCaption("Sto&p");
  window.cmdStop.SetVisible(false);
  window.pbarScan.SetColor(0xFF773D);
  window.AnmSearch.SetPictureFile(window.application.folder + "\\images\\searching.jpg");
  NameControls({{window.lvLocations, "Diagnostic tests to perform"},
                {window.lvScan, "Diagnostic tests in progress"},
                {window.pbarScan, "Progress of the scan"}});
}

void DesignResults(frmMain& window) {
  window.lblFound.SetFont(kHeading);
  window.lblinfo3.SetCaption(
      "Below are the results from the scan to Remove all Errors found, please click the 'Repair' "
      "button below");
  window.lblsinfo.SetCaption("You can select or deselect the errors you wish Tidemark to fix!");
  window.lvFound.columns = {
      {"Diagnostic Test", 4600, {}}, {"Problems Found", 2500, {}}, {"Severity", 2500, {}}};
  for (int severity = 1; severity <= 5; ++severity) {
    window.lvFound.small_icons.push_back("\\images\\severity" + std::to_string(severity) + ".ico");
  }
  window.lvProblems.columns = {{"Invalid data location", 4050, {}},
                               {"Value name", 1200, {}},
                               {"Value Data", 2250, {}},
                               {"Reason", 1600, {}},
                               {"Type", 600, {}},
                               {"Selected", 0, {}},
                               {"loc", 0, {}}};
  window.lvProblems.check_boxes = true;
  window.lvProblems.multi_select = true;
  window.lblNothingFound.SetVisible(false);
  window.lblNothingFound.SetFont(kHeading);
  window.txtProblem.SetLocked(true);
  window.txtProblem.SetBorderStyle(0);
  window.lvInvalidLoc.columns = {{"Invalid data location", 2500, {}},
                                 {"Value name", 1000, {}},
                                 {"Value data", 1500, {}},
                                 {"Reason", 1000, {}},
                                 {"Value Type", 600, {}},
                                 {"selected", 400, {}},
                                 {"test", 400, {}}};
  window.cmdFix.SetCaption("&Repair");
  window.cmdCancel.SetCaption("&Cancel");
  window.cmdStopFix.SetCaption("Sto&p");
  window.cmdStopFix.SetVisible(false);
  window.cmdFinish.SetCaption("&Finish");
  window.cmdFinish.SetVisible(false);
  window.ProgressBar2.SetVisible(false);
  window.ProgressBar2.SetColor(255);
  window.Animation1.SetPictureFile(window.application.folder + "\\images\\searching.jpg");
  NameControls({{window.lvFound, "Diagnostic tests with problems"},
                {window.lvProblems, "Problems found"},
                {window.txtProblem, "The selected problem"},
                {window.ProgressBar2, "Progress of the repair"}});
}

void DesignOptions(frmMain& window) {
  window.lblStartupTitle.SetCaption("Start-up");
  window.chkStartup.SetCaption("Start Tidemark when &Windows starts");
  window.chkSystray.SetCaption("Show in the system &tray only when it starts");
  window.lblStartupNotice.SetVisible(false);
  window.lblSchedulerTitle.SetCaption("Schedule");
  window.chkScheduler.SetCaption("A&uto Scan && Fix");
  window.lblSchedulerNote.SetCaption(
      "Repairs what it finds without asking; the Backups page keeps an undo file of each run.");
  constexpr std::array kSchedules = {"Every &30 minutes", "Every Hou&r", "Once a &Day",
                                     "Once a W&eek"};
  for (int index = 0; index < static_cast<int>(kSchedules.size()); ++index) {
    window.optSchedule.Add(&window.picAdvOptions(0), index)
        .SetCaption(kSchedules[static_cast<std::size_t>(index)]);
  }
  for (Label* title : {&window.lblStartupTitle, &window.lblSchedulerTitle}) {
    title->SetFont(kHeading);
  }
  window.cmdOptApply.SetCaption("Appl&y");
  window.cmdOptCancel.SetCaption("&Cancel");
  window.TmrScheduler.SetInterval(60000);
  window.TmrScheduler.SetEnabled(false);
}

void DesignTabs(frmMain& window) {
  constexpr std::array kTabs = {"&Options", "Backups", "Startup &Programs", "Tell a Friend"};
  for (int tab = 0; tab < static_cast<int>(kTabs.size()); ++tab) {
    Label& label = window.lblOptions.Add(&window.picOptions, tab);
    label.SetTransparent(true);
    label.SetAccessibleName(kTabs[static_cast<std::size_t>(tab)]);
  }
  for (int tab = 0; tab <= 2; ++tab) window.picAdvOptions(tab).SetVisible(false);
  window.imgTellaFriend.SetPictureFile(window.application.folder + "\\images\\TellaFriend.jpg");

  window.File1.SetPattern("*.reg");
  window.lblscanmsg.Add(&window.picAdvOptions(1), 5).SetCaption("Registry backups and undo files");
  window.lblscanmsg(5).SetFont(kHeading);
  window.lblscanmsg.Add(&window.picAdvOptions(1), 6)
      .SetCaption("Restoring a file puts its entries back into the registry; the file is used up.");
  window.LvBackup.columns = {{"Backup Description:", 3300, {}},
                             {"Backup Date/Time:", 2300, {}},
                             {"Kind:", 2900, {}},
                             {"Size:", 1150, {}}};
  window.LvBackup.small_icons = {"\\images\\scan1.ico", "\\images\\scan2.ico",
                                 "\\images\\backup.ico"};
  window.cmdBakupReg.SetCaption("Backup Re&gistry");
  window.cmdRestore.SetCaption("&Restore");
  window.cmdRemove.SetCaption("Re&move");

  // The heading of the list, whose own is not shown.
  window.Label3.SetCaption("Program Name:" + std::string(24, ' ') +
                           "Command Line:" + std::string(85, ' ') + "Exists:");
  window.Label3.heads = &window.lvPrograms;
  window.lvPrograms.headings = false;
  window.lvPrograms.columns = {{"Name", Twips(3704), {}},   {"Command Line", Twips(8643), {}},
                               {"Exists", Twips(1058), {}}, {"Section", 0, {}},
                               {"Status", 0, {}},           {"type", 0, {}},
                               {"Starts From", 2150, {}}};
  // The blanks say that it stands for a heading, as the ones above do.
  window.lblSource.SetCaption("Starts From:" + std::string(4, ' '));
  window.lvPrograms.small_icons = {"\\images\\severity2.ico", "\\images\\tidemark.ico"};
  window.cmdWriteBack.SetCaption("&Write Entry Back");
  window.cmdDeleteEntry.SetCaption("&Delete Entry...");
  window.cmdWriteBack.SetEnabled(false);
  window.cmdDeleteEntry.SetEnabled(false);
  window.lvPrograms.check_boxes = true;
  NameControls({{window.LvBackup, "Registry backups and undo files"},
                {window.lvPrograms, "Programs that start with Windows"}});
}

struct Edit {
  const char* caption;
  const char* name;  // which says of which list, as the place does to the eye
};

void AddEdits(ControlGroup<CommandButton>& buttons, Control& container,
              std::initializer_list<Edit> edits) {
  for (const Edit& edit : edits) {
    CommandButton& button = buttons.Add(&container, buttons.Count());
    button.SetCaption(edit.caption);
    button.SetAccessibleName(edit.name);
  }
}

void DesignJunkCriteria(frmMain& window) {
  window.lblJunkTitle.SetCaption("Junk files");
  // The results lie on its left edge and would cut a frame open.
  window.picJunkCriteria.SetBorderStyle(0);
  window.lblDrives.SetCaption("Drives to scan");
  window.tvDrives.check_boxes = true;
  for (int image = 1; image <= 5; ++image) {
    window.tvDrives.images.push_back("\\images\\drive" + std::to_string(image) + ".ico");
  }
  window.lblFileTypes.SetCaption("Files that count as junk");
  window.lblExcludeFolders.SetCaption("Folders that are left alone");
  for (Label* title :
       {&window.lblJunkTitle, &window.lblDrives, &window.lblFileTypes, &window.lblExcludeFolders}) {
    title->SetFont(kHeading);
  }
  window.lvFileTypes.columns = {{"File Type", 1800, {}}, {"Description", 3500, {}}};
  window.lvExcludeFolders.columns = {{"Folder", 2600, {}}, {"Description", 2700, {}}};
  window.lvFileTypes.check_boxes = window.lvExcludeFolders.check_boxes = true;
  AddEdits(window.cmdFileTypes, window.picJunkCriteria,
           {{"&Add...", "&Add a file type"},
            {"&Edit...", "&Edit the file type"},
            {"&Remove", "&Remove the file type"},
            {"Rever&t", "Rever&t to the original file types"}});
  AddEdits(window.cmdExcludeFolders, window.picJunkCriteria,
           {{"A&dd...", "A&dd a folder"},
            {"Ed&it...", "Ed&it the folder"},
            {"Re&move", "Re&move the folder"}});
  window.FolderPicker.SetVisible(false);
  window.cmdJunkScan.SetCaption("S&can");
  NameControls({{window.tvDrives, "Drives to scan"},
                {window.lvFileTypes, "Files that count as junk"},
                {window.lvExcludeFolders, "Folders that are left alone"}});
}

void DesignJunkResults(frmMain& window) {
  window.lvJunkFiles.columns = {{"Name", Twips(8819), {}},
                                {"Size(Bytes)", Twips(1764), {}, SortAs::kNumber},
                                {"Type", Twips(1764), {}},
                                {"Date Created", Twips(1764), {}, SortAs::kDate},
                                {"Date Modyfied", Twips(2540), {}, SortAs::kDate},
                                {"Attributes", Twips(2540), {}}};
  window.lvJunkFiles.check_boxes = true;
  window.PbarRemoveJunk.SetVisible(false);
  constexpr std::array kActions = {"Tick &all files",      "&Clear all ticks",  "&Invert the ticks",
                                   "&Remove ticked files", "Remove all &files", "&Leave this page"};
  for (int index = 0; index < static_cast<int>(kActions.size()); ++index) {
    const std::string name = kActions[static_cast<std::size_t>(index)];
    xpcmdbutton& button = window.cmdJunkFile.Add(&window.picJunkScan, index);
    button.SetCaption("");
    button.SetAccessibleName(name);
    std::string tip = name;
    std::erase(tip, '&');
    button.SetToolTipText(tip);
  }
  window.lblScaningJunk.SetCaption("Looking for junk files...");
  window.lblScaningJunk.SetFont(kHeading);
  window.Animation2.SetPictureFile(window.application.folder + "\\images\\searching.jpg");
  window.cmdJunkStop.SetCaption("Sto&p");
  NameControls({{window.lvJunkFiles, "Junk files found"},
                {window.PbarRemoveJunk, "Progress of the removal"}});
}

// What opens a page of the web site is seen where there is one.
void HideWithoutWebSite(frmMain& window) {
  const bool has_site = !window.application.web_address.empty();
  for (Control* control : std::initializer_list<Control*>{
           &window.mnuTellafriend, &window.mnuHelp, &window.cmdTellaFriend, &window.imgTellaFriend,
           &window.lblOptions(3)}) {
    control->SetVisible(has_site);
  }
}

}  // namespace

frmMain::frmMain(FrontEnd& the_front_end, Application the_application)
    : front_end(the_front_end), application(std::move(the_application)) {
  DesignWindow(*this);
  DesignMenus(*this);
  DesignHome(*this);
  DesignScan(*this);
  DesignResults(*this);
  DesignOptions(*this);
  DesignTabs(*this);
  DesignJunkCriteria(*this);
  DesignJunkResults(*this);
  HideWithoutWebSite(*this);
  PlaceControls(*this);
}

}  // namespace tidemark
