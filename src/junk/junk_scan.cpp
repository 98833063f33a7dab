// The walk over the ticked drives: which folders and files it meets, and when it gives way.
#include <string>

#include "helpers/system_helpers.h"
#include "helpers/text_helpers.h"
#include "junk/junk.h"
#include "platform/file_system_object.h"
#include "platform/folder_search.h"
#include "platform/letter_case.h"
#include "window/run.h"

namespace tidemark {
namespace {

std::string TickedPatterns(const ListView& types) {
  std::string patterns;
  for (int index = 1; index <= types.Count(); ++index) {
    const ListItem& row = *types.Item(index);
    if (row.Checked()) patterns.append(row.Caption().View()) += ';';
  }
  if (!patterns.empty()) patterns.pop_back();
  return patterns;
}

// Over the page that started it, below the height of a tab strip.
void ShowResultPanel(frmMain& window) {
  const Bounds& frame = window.picOptions.Place();
  const int strip = window.picopttoolback.Place().height;
  const Bounds& page = window.picWelcome.Place();
  window.picJunkScan.SetPlace(
      {frame.left + 5, frame.top + strip + 10, page.width - 15, page.height - strip - 15});
  window.picJunkScan.SetBorderStyle(0);
  window.picJunkScan.SetVisible(true);
  window.picJunkScan.BringToFront();
}

void ShowActions(frmMain& window, bool visible) {
  for (int index = 0; index < window.cmdJunkFile.Count(); ++index) {
    window.cmdJunkFile(index).SetVisible(visible);
  }
}

// Whether any drive was ticked.
bool ScanTickedDrives(frmMain& window) {
  bool any = false;
  for (int index = 1; index <= window.tvDrives.Count(); ++index) {
    const TreeNode* drive = window.tvDrives.Node(index);
    if (drive->Checked()) {
      any = true;
      const std::string root = drive->Key().String() + ":\\";
      window.front_end.DoEvents();
      ScanDriveForFiles(window, root);
      ScanFolder(window, root);
      window.front_end.DoEvents();
    }
    if (window.StopRequested) break;
  }
  return any;
}

// A part of the text counts too, so ".ex" and a name that ends in a dot are protected, and
// ".manifest" is not. On purpose.
bool HasProtectedExtension(const std::string& name) {
  constexpr std::string_view kProtected = ".exe,.dll,.bat,.ini,.com,.vxd,.menifest";
  const auto dot = name.rfind('.');
  return dot != std::string::npos &&
         kProtected.find(LowerCase(std::string_view(name).substr(dot))) != std::string_view::npos;
}

// The search gives candidates; the match decides.
void ScanEntry(frmMain& window, const std::string& folder, const FolderSearch::Entry& found,
               const std::string& pattern) {
  const std::string& name = found.name;
  if (name == "." || name == "..") return;
  if ((found.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return;
  if (PathMatchSpecA(name.c_str(), pattern.c_str()) == FALSE) return;
  if (MeansANamesake(name)) return;
  if (!HasProtectedExtension(name)) IdentifyFiles1(window, AddBackslash(folder) + name);
}

// Hands over what the search finds; it has found the first one. False when the scan is to stop.
bool ScanFound(frmMain& window, const std::string& folder, FolderSearch& found,
               const std::string& pattern) {
  while (true) {
    ScanEntry(window, folder, *found, pattern);
    window.front_end.DoEvents();
    if (window.StopRequested) return false;
    found.Next();
    if (!found) return true;
    window.front_end.DoEvents();
  }
}

}  // namespace

void ScanJunkFiles(frmMain& window) {
  const Run run(window);
  window.JunkScanRunning = true;
  window.SelectedFileTypes = TickedPatterns(window.lvFileTypes);
  window.lvJunkFiles.Clear();
  window.front_end.DoEvents();
  ShowJunkScan(window);
  ShowActions(window, false);
  window.StopRequested = false;
  window.Animation2.SetPlaying(true);
  const bool any_drive = ScanTickedDrives(window);
  window.Animation2.SetPlaying(false);
  if (!any_drive) {
    window.front_end.ShowMessage("Please Select the drives before pressing Scan Button",
                                 window.application.title, MessageIcon::kNone);
  }
  window.lblJunkStatus.SetCaption("Scanning complete: Total " +
                                  std::to_string(window.lvJunkFiles.Count()) +
                                  " Junk Files Founds");
  ClearTwinsOfClearedRows(window);
  window.JunkScanRunning = false;
  window.picScaningJunk.SetVisible(false);
  ShowActions(window, true);
}

void ShowJunkScan(frmMain& window) {
  ShowResultPanel(window);
  if (!window.JunkScanRunning) return;
  window.picScaningJunk.SetVisible(true);
  window.picScaningJunk.BringToFront();
}

// The root's files; the walk that follows meets them once more, and so each is listed twice. On
// purpose.
void ScanDriveForFiles(frmMain& window, const std::string& root) {
  FileSystemObject::Drive drive;
  if (FileSystemObject().GetDrive(root, drive) != FileSystemObject::kNone || !drive.IsReady()) {
    return;
  }
  bool excluded = false;
  InExcludeFolder(window, drive.RootFolder(), excluded);
  if (!excluded) FilesScan(window, drive.RootFolder(), window.SelectedFileTypes);
  window.front_end.DoEvents();
}

void ScanFolder(frmMain& window, const std::string& folder) {
  FileSystemObject::Folder listing;
  const bool readable = FileSystemObject().GetFolder(folder, listing) == FileSystemObject::kNone;
  window.lblJunkStatus.SetCaption("Scanning Folder:" + folder);
  if (!readable) return;
  bool excluded = false;
  InExcludeFolder(window, folder, excluded);
  if (!excluded) FilesScan(window, folder, window.SelectedFileTypes);
  for (const std::string& name : listing.SubFolders()) {
    window.front_end.DoEvents();
    if (window.StopRequested) return;
    const std::string sub_folder = listing.PathOf(name);
    if (MeansANamesake(name) || IsOfRecycleBin(sub_folder)) continue;
    // Here the colon has a blank on both sides, above it has none. On purpose.
    window.lblJunkStatus.SetCaption("Scanning Folder : " + sub_folder);
    // What is asked for each is whether this folder, the parent, is excluded.
    InExcludeFolder(window, folder, excluded);
    if (!excluded) ScanFolder(window, sub_folder);
    window.front_end.DoEvents();
  }
}

void FilesScan(frmMain& window, const std::string& folder, const std::string& patterns) {
  for (const std::string& pattern : Split(patterns, ';')) {
    {
      FolderSearch found(AddBackslash(folder) + pattern);
      if (!found) continue;
      if (!ScanFound(window, folder, found, pattern)) return;
    }
    window.front_end.DoEvents();
    if (window.StopRequested) return;
  }
}

void InExcludeFolder(const frmMain& window, const std::string& path, bool& answer) {
  const std::string upper = UpperCase(path);
  answer = false;
  for (int index = 1; index <= window.lvExcludeFolders.Count() && !answer; ++index) {
    const std::string folder = UpperCase(window.lvExcludeFolders.Item(index)->Caption().View());
    answer = upper.find(folder) != std::string::npos;
  }
}

// The folders that are shipped as left alone name the bin of older systems only.
bool IsOfRecycleBin(const std::string& path) {
  return (UpperCase(path) + '\\').find(":\\$RECYCLE.BIN\\") == 1;
}

void cmdJunkStop_Click(frmMain& window) {
  window.StopRequested = true;
  window.front_end.DoEvents();
}

}  // namespace tidemark
