#include "helpers/ignore_list.h"

#include <algorithm>
#include <array>

#include "helpers/system_helpers.h"
#include "helpers/text_helpers.h"
#include "platform/code_page.h"
#include "platform/file_system_object.h"
#include "platform/letter_case.h"

namespace tidemark {
namespace {

constexpr std::array<std::string_view, 21> kBuiltInEntries = {
    "office",
    "outlook",
    "powerpoint",
    "mstcp",
    "kernel",
    "excel",
    "explorer.exe",
    "systemrestore",
    "access",
    "2559A1F0-21D7-11D4-BDAF-00C04F60B9F0",
    "2559A1F1-21D7-11D4-BDAF-00C04F60B9F0",
    "11D4-BDAF-00C04F60B9F0",
    "4a7ded0a-ad25-11d0-98a8-0800361b1103",
    "4c892621-6757-4fe0-ad8c-a6301be7fba2",
    "513D916F-2A8E-4F51-AEAB-0CBC76FB1AF8",
    "5DB2625A-54DF-11D0-B6C4-0800091AA605",
    "5F327514-6C5E-4d60-8F16-D07FA08A78ED",
    "74246bfc-4c96-11d0-abef-0020af6b0b7a",
    "35CEC8A3-2BE6-11D2-8773-92E220524153",
    "3DA165B6-CC41-11d2-BDC6-00C04F79EC6B",
    // In the list's last slot, so the first line of the file takes its place, and with no file it
    // is not searched. On purpose.
    "457F81DE-77B6-446B-B50F-02B92BECD406",
};

constexpr char kEndOfText = '\x1A';

std::string ListFile(const std::string& program_folder) {
  return program_folder + "\\Ignorelst.ini";
}

void PutInLastSlot(IgnoreList& list, std::string_view entry) {
  list.slots.back() = LowerCase(entry);
  list.slots.emplace_back();
}

// Past one line end at `position`, CR LF or either of them alone.
std::size_t PastLineEnd(std::string_view text, std::size_t position) {
  if (text.substr(position).starts_with("\r\n")) return position + 2;
  return position + 1;
}

}  // namespace

void LoadIgnoreLst(IgnoreList& list, const std::string& program_folder) {
  list.slots.assign(kBuiltInEntries.begin(), kBuiltInEntries.end());
  const std::string file = ListFile(program_folder);
  if (!IsExistingFile(file)) return;
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";  // some editors put it there
  std::string bytes = FileSystemObject().ReadAll(file).value_or("");
  if (bytes.starts_with(kByteOrderMark)) bytes.erase(0, kByteOrderMark.size());
  const std::string text = FromSystemCodePage(bytes);
  for (const std::string& field : ReadDelimitedFields(text)) {
    if (!TrimBlanks(field).empty()) PutInLastSlot(list, field);
  }
}

bool IsInIngnoreList(const IgnoreList& list, std::string_view text) {
  const std::string lower = LowerCase(text);
  for (std::size_t slot = 0; slot + 1 < list.slots.size(); ++slot) {
    if (lower.find(LowerCase(list.slots[slot])) != std::string::npos) return true;
  }
  return false;
}

void AddToSafeList(IgnoreList& list, const std::string& program_folder, std::string_view entry) {
  if (TrimBlanks(entry).empty()) return;
  const std::string file = ListFile(program_folder);
  if (!IsExistingFile(file)) return;
  // A last line of the user's may have no end; what stands behind an end of text is never read.
  std::string whole = FileSystemObject().ReadAll(file).value_or("");
  const auto end =
      static_cast<std::size_t>(std::find(whole.begin(), whole.end(), kEndOfText) - whole.begin());
  const bool in_line = end > 0 && whole[end - 1] != '\n' && whole[end - 1] != '\r';
  const std::string line = (in_line ? "\r\n" : "") + ToSystemCodePage(entry) + "\r\n";
  // A line that can't be written is passed over; the entry still counts until the program ends.
  if (end == whole.size()) {
    FileSystemObject().Append(file, line);
  } else {
    FileSystemObject().WriteAll(file, whole.insert(end, line));
  }
  PutInLastSlot(list, entry);
}

std::vector<std::string> ReadDelimitedFields(std::string_view text) {
  text = text.substr(0, text.find(kEndOfText));
  std::vector<std::string> fields;
  std::size_t position = 0;
  while (position < text.size()) {
    position = text.find_first_not_of(' ', position);
    if (position == std::string_view::npos) break;
    if (text[position] == '"') {
      const std::size_t close = text.find('"', position + 1);
      fields.emplace_back(text.substr(position + 1, close - position - 1));
      if (close == std::string_view::npos) break;
      position = text.find_first_not_of(' ', close + 1);
    } else {
      const std::size_t end = text.find_first_of(",\r\n", position);
      fields.emplace_back(TrimBlanks(text.substr(position, end - position)));
      position = end;
    }
    if (position == std::string_view::npos) break;
    if (text[position] == ',') {
      ++position;
    } else if (text[position] == '\r' || text[position] == '\n') {
      position = PastLineEnd(text, position);
    }
  }
  return fields;
}

}  // namespace tidemark
