// The diagnostic test of link files whose target has gone: the trade's way in. It walks the start
// menus and the desktop, and its findings are rows of lvInvalidLoc like those of the registry.
#pragma once

#include <string>

#include "window/frmMain.h"

namespace tidemark {

// Runs the test; a scan calls it for the code "SHORTCUTS".
void ShortCuts(frmMain& window);

// Walks a folder and all below it, depth first. The folder comes back ending in a backslash.
void ScanShortCut(frmMain& window, std::string& folder);

// Reports the link when it has a target and neither a folder nor a file is there. Yields.
void CheckShortCut(frmMain& window, const std::string& link_file);

// Adds one finding and counts it; none when the ignore list holds it. The arguments of the link do
// not reach the row, on purpose. Yields.
void AddshtoList(frmMain& window, const std::string& link_file, const std::string& target,
                 const std::string& name, const std::string& arguments);

}  // namespace tidemark
