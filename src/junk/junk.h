// The junk cleaner: the trade's way in. Files are found on the ticked drives by two editable
// tables, the patterns that count as junk and the folders that are left alone; they are listed, and
// sent to the recycle bin.
#pragma once

#include <string>

#include "platform/winapi.h"
#include "window/frmMain.h"

namespace tidemark {

// The criteria. Each table lives in three registry values, in three texts of the window with
// entries divided by ";", and in a list with check boxes. A value that is missing gives the shipped
// table.
void LoadFileTypes(frmMain& window);
void LoadExcludeFolders(frmMain& window);
void SaveFileTypes(frmMain& window);
void SaveExcludeFolders(frmMain& window);
// 0 add, 1 edit, 2 remove, 3 revert to the shipped table; any other index does nothing.
void EditFileTypes(frmMain& window, int index);
// 0 add, 1 edit, 2 remove; any other index does nothing.
void EditExcludeFolders(frmMain& window, int index);

// The drives. Optical and RAM drives are not shown.
void ShowDrivesList(frmMain& window);
// Stores the ticks of tvDrives, whatever tree it is given.
void SaveDrives(frmMain& window, TreeView& tree);

// The whole scan of the ticked drives: returns when it has ended or was stopped.
void ScanJunkFiles(frmMain& window);
// Places the panel of the results and brings it to the front; the smaller one of a running scan,
// with its stop button, over it.
void ShowJunkScan(frmMain& window);
void ScanDriveForFiles(frmMain& window, const std::string& root);
void ScanFolder(frmMain& window, const std::string& folder);
void FilesScan(frmMain& window, const std::string& folder, const std::string& patterns);
// Lists the file, unless it is read-only, a system file, or gone.
void IdentifyFiles1(frmMain& window, const std::string& file);
// Whether any entry of the exclude list, ticked or not, occurs in the path.
void InExcludeFolder(const frmMain& window, const std::string& path, bool& answer);
// Whether the path is the recycle bin of a drive, or lies in it. The scan does not go there.
bool IsOfRecycleBin(const std::string& path);
bool IsProtectedFile(DWORD attributes);
// "H", "L", "R", "A", "S" for the attributes that are set, in this order.
std::string AttributeLetters(DWORD attributes);
void cmdJunkStop_Click(frmMain& window);

// The result list.
void lvJunkFiles_ColumnClick(frmMain& window, int column);
void lvJunkFiles_DblClick(frmMain& window);
// Rows of one path are one file: the others are ticked or cleared with this one.
// Shows beside the status how many files are ticked, and how large they are; a file that two rows
// name counts once.
void ShowTickedFiles(frmMain& window);
void lvJunkFiles_ItemCheck(frmMain& window, const ListItem& row);
// The same for rows that came into the list ticked after their twin had been cleared.
void ClearTwinsOfClearedRows(frmMain& window);
// 0 tick all, 1 clear all, 2 invert, 3 remove the ticked rows, 4 remove all rows, 5 leave the page;
// any other index does nothing.
void cmdJunkFile_Click(frmMain& window, int index);
// Sends the file to the recycle bin; what is not there, or lies in a bin already, is passed over.
void ProcedureDel(std::string& path);
void recycledelete(const std::string& path);

// Opens the page that holds the criteria and starts the scan; while a scan runs, or its rows are
// listed, the panel of that scan.
void cmdCleanJunk_Click(frmMain& window);
void cmdJunkScan_Click(frmMain& window);

}  // namespace tidemark
