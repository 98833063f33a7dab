// The list of patterns that keep a finding from being reported: built-in entries for well-known
// products and classes, and the lines of Ignorelst.ini beside the program, to which the repair adds
// the keys that it could not delete.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tidemark {

// The last slot is always the free slot of the next entry; it is never searched.
struct IgnoreList {
  std::vector<std::string> slots = std::vector<std::string>(1);
};

// Builds the list anew: the built-in entries, then the fields of Ignorelst.ini in the program's
// folder, in lower case. No file, or one that can't be read, gives the built-in entries alone.
void LoadIgnoreLst(IgnoreList& list, const std::string& program_folder);

// Whether an entry stands anywhere in the text, letter case ignored.
bool IsInIngnoreList(const IgnoreList& list, std::string_view text);

// Appends the entry to Ignorelst.ini as one line and puts it in the list. A blank entry is dropped,
// and so is any entry when there is no file: the file is never created.
void AddToSafeList(IgnoreList& list, const std::string& program_folder, std::string_view entry);

// The fields of a delimited text as the platform's input reads them: a comma ends a field as a line
// end does, blanks around a field are dropped, a field in double quotes keeps its commas. Ctrl+Z
// ends the text.
std::vector<std::string> ReadDelimitedFields(std::string_view text);

}  // namespace tidemark
