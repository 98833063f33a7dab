// The criteria with which the program is delivered: parallel texts, entries divided by ";".
#pragma once

namespace tidemark {

struct ShippedTable {
  const char* entries;
  const char* descriptions;
  const char* states;  // "1" is ticked
};

inline constexpr ShippedTable kShippedFileTypes = {
    "*.---;*.??~;*._mp;*.~*;*.bak;*.chk;*.dmp;*.gid;*.old;*.syd;*.tmp;~*.*;0???????.nch;"
    "mscreate.dir",
    "Temporary Files;Temporary Files;Temporary Files;Temporary Files;Temporary Backup Files;"
    "Saved disk error data from Scandisk;Memory Dump Files;Temporary help file search data;"
    "Temporary Backup Files;Temporary Backup Files;Temporary Files;Temporary Files;"
    "Temporary Cached newsgroup Data;Temporary Directory Information",
    "1;1;1;1;1;1;1;1;1;1;1;1;1;1",
};

// Entries are found anywhere in a path, so they need no drive.
inline constexpr ShippedTable kShippedExcludeFolders = {
    "Recycled;\\Windows\\system;\\Windows\\Assembly;\\Windows\\System32;\\Windows\\command;"
    "\\themes;\\system volume information;\\application data;\\microsoft;\\program files;"
    "\\windows\\security",
    "Recycle bin;Windows System Folder;.Net Framework Folder;Windows System Folder;"
    "DOS Shell Folder;Windows Themes;XP Restore folder;Application Config Data;"
    "Microsoft Products;Application data;Security Folder",
    "1;1;1;1;1;1;1;1;1;1;1",
};

}  // namespace tidemark
