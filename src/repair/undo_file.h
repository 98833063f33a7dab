// The undo file: a registry script in REGEDIT4 text, in the system's code page, to which every
// repair writes what it is about to change. It is opened and closed around each record, so that all
// records up to any moment are complete and on disk.
//
// No failure is told: the repair goes ahead whether or not the record reached the file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tidemark {

// Appends one value: key line, value line, blank line. data is the text that a findings row holds,
// type its registry type.
void SafeReg(const std::string& key, const std::string& value_name, const std::string& data,
             std::int32_t type, const std::string& undo_file);

// Appends a whole key: has the registry editor export it to "tmp.reg" in the program's folder,
// waits for 10 milliseconds and copies what is there by then.
void SafeRegkey(const std::string& key, const std::string& program_folder,
                const std::string& undo_file);

// The data of a value line: dword:, hex:, or quoted text with doubled backslashes. Data of type 4
// that is no number comes back as it is.
std::string EncodeUndoData(std::string_view data, std::int32_t type);

// What of an export goes into the undo file, line ends included, in the system's code page. An
// export that holds CR and LF side by side is 8-bit text, any other is taken for 16-bit text.
std::string KeyRecord(std::string_view export_bytes);

}  // namespace tidemark
