// The findings as a file that other programs read.
#pragma once

#include <string>

#include "window/frmMain.h"

namespace tidemark {

// All findings in the order of the scan, a record for each behind one of headings: diagnostic test,
// location, value name, value data, reason, value type, ticked or not. Comma-separated values as in
// RFC 4180, in UTF-8 with a byte order mark, by which spreadsheets know it.
std::string FindingsAsCsv(const frmMain& window);
// The same as the table of a web page (HTML 5, UTF-8) that needs no other file.
std::string FindingsAsWebPage(const frmMain& window);

// Asks for a file and writes it: a web page where the name ends in ".htm" or ".html", otherwise
// comma-separated values. Tells when that failed.
void mnuSaveList_Click(frmMain& window);

}  // namespace tidemark
