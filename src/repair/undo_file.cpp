#include "repair/undo_file.h"

#include <optional>

#include "helpers/system_helpers.h"
#include "helpers/text_helpers.h"
#include "platform/code_page.h"
#include "platform/file_system_object.h"
#include "platform/program_start.h"
#include "platform/unicode.h"
#include "platform/winapi.h"

namespace tidemark {
namespace {

constexpr std::int32_t kTypeBinary = 3;
constexpr std::int32_t kTypeDword = 4;
constexpr std::string_view kLineEnd = "\r\n";

std::string DoubleBackslashes(std::string_view text) { return ReplaceAll(text, "\\", "\\\\"); }

std::string DwordText(std::int32_t number) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text = "dword:";
  for (int shift = 28; shift >= 0; shift -= 4) {
    text += kDigits[(static_cast<std::uint32_t>(number) >> static_cast<unsigned>(shift)) & 15U];
  }
  return text;
}

// The header is written once, and its length tells which kind of record came first. False when it
// could not be written whole: behind a part of it the editor would refuse every record, so the file
// goes, and the next record starts another.
bool StartUndoFile(const std::string& undo_file, std::string_view header) {
  FileSystemObject files;
  if (IsExistingFile(undo_file) || files.WriteAll(undo_file, header)) return true;
  files.DeleteFile(undo_file, /*force=*/false);
  return false;
}

}  // namespace

std::string EncodeUndoData(std::string_view data, std::int32_t type) {
  const std::string doubled = DoubleBackslashes(data);
  if (type == kTypeBinary) return "hex:" + ReplaceAll(doubled, " ", ",");
  if (type != kTypeDword) return "\"" + doubled + "\"";
  const std::optional<double> number = NumberOf(doubled);
  const auto long_number = number ? RoundToLong(*number) : std::nullopt;
  return long_number ? DwordText(*long_number) : doubled;
}

void SafeReg(const std::string& key, const std::string& value_name, const std::string& data,
             std::int32_t type, const std::string& undo_file) {
  if (!StartUndoFile(undo_file, "REGEDIT4\r\n\r\n")) return;
  const std::string name = value_name.empty() ? "@" : "\"" + DoubleBackslashes(value_name) + "\"";
  std::string record = "[" + key + "]";
  record.append(kLineEnd).append(name).append("=").append(EncodeUndoData(data, type));
  record.append(kLineEnd).append(kLineEnd);
  FileSystemObject().Append(undo_file, ToSystemCodePage(record));
}

std::string KeyRecord(std::string_view export_bytes) {
  if (export_bytes.find(kLineEnd) != std::string_view::npos) {
    const std::size_t first_key = export_bytes.find('[');
    if (first_key == std::string_view::npos) return std::string(kLineEnd);
    return std::string(export_bytes.substr(first_key)).append(kLineEnd).append(kLineEnd);
  }
  const std::size_t whole_units = export_bytes.size() - export_bytes.size() % 2;
  const std::string text = Utf8FromUtf16(export_bytes.substr(0, whole_units));
  const std::size_t first_key = text.find('[');
  if (first_key == std::string::npos) return {};
  return ToSystemCodePage(text.substr(first_key)).append(kLineEnd);
}

void SafeRegkey(const std::string& key, const std::string& program_folder,
                const std::string& undo_file) {
  const bool started = StartUndoFile(undo_file, "REGEDIT4\r\n\r\n\r\n");
  const std::string scratch_file = program_folder + "\\tmp.reg";
  StartProgram("regedit  /e \"" + scratch_file + "\" \"" + key + "\"",
               WindowStyle::kMinimizedFocus);
  // Not awaited, on purpose: what is in the scratch file by then is what is kept.
  Sleep(10);
  FileSystemObject files;
  const std::optional<std::string> bytes = files.ReadAll(scratch_file);
  if (!bytes) files.Append(scratch_file, "");  // the editor has not made it yet
  const std::string record = KeyRecord(bytes.value_or(""));
  if (started && !record.empty()) files.Append(undo_file, record);
}

}  // namespace tidemark
