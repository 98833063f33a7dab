// The walkers: recursive walks over registry keys that decide, value by value, what counts as a
// finding.
//
// hive is a root handle, key a sub-key path without leading backslash. The bar of the Scan page
// moves with the walk; each walker yields after each item and ends at the next test when the scan
// must end. A key that can't be opened has no items and gives no finding, except where
// a walker says otherwise.
#pragma once

#include <string>

#include "platform/winapi.h"
#include "window/frmMain.h"

namespace tidemark {

// A value in any depth whose data holds a path on a drive must exist.
void ScanPathKey(frmMain& window, HKEY hive, const std::string& key);

// One level: the path in "UnInstallString" of each sub-key must exist.
void ScanUninstallKey(frmMain& window, HKEY hive, const std::string& key);

// One level: each sub-key is a class, an interface or a type library, and ScanClassKey judges it.
void ScanClassRoot(frmMain& window, HKEY hive, const std::string& key);
void ScanClassKey(frmMain& window, HKEY hive, const std::string& key);

// Value names are the paths of shared files.
void ScanSharedDllKey(frmMain& window, HKEY hive, const std::string& key);

// Value data are names in the fonts folder.
void ScanFontKey(frmMain& window, HKEY hive, const std::string& key);

// Each extension and the file type that it names. A file type that is missing or empty is a
// finding.
void ScanAssocRoot(frmMain& window, HKEY hive, const std::string& key);
void ScanAssocKey(frmMain& window, HKEY hive, const std::string& key);

}  // namespace tidemark
