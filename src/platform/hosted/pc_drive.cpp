#include "platform/hosted/pc_drive.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>

#include "platform/exact_text.h"
#include "platform/letter_case.h"

namespace tidemark::hosted {
namespace {

constexpr std::pair<std::string_view, UINT> kKinds[] = {
    {"fixed", DRIVE_FIXED},    {"removable", DRIVE_REMOVABLE}, {"cdrom", DRIVE_CDROM},
    {"network", DRIVE_REMOTE}, {"ramdisk", DRIVE_RAMDISK},
};

// Cuts the text at the option, which is ASCII in small letters, and gives what stands behind it.
// False when the option is not there.
bool CutAt(std::string_view option, std::string_view& text, std::string_view& behind) {
  const auto* const found = std::search(
      text.begin(), text.end(), option.begin(), option.end(), [](char left, char right) {
        return (left >= 'A' && left <= 'Z' ? static_cast<char>(left + 0x20) : left) == right;
      });
  if (found == text.end()) return false;
  const auto start = static_cast<std::size_t>(found - text.begin());
  behind = text.substr(start + option.size());
  text = text.substr(0, start);
  return true;
}

bool IsShare(std::string_view text) {
  if (!text.starts_with("\\\\")) return false;
  text.remove_prefix(2);
  const auto cut = text.find('\\');
  return cut != std::string_view::npos && cut > 0 && cut + 1 < text.size() &&
         text.find('\\', cut + 1) == std::string_view::npos;
}

}  // namespace

std::string ReadDrive(std::string_view text, PcDrive& drive) {
  constexpr std::size_t kLongestLabel = 32;
  PcDrive read;
  std::string_view share;
  std::string_view label;
  std::string_view error;
  std::string_view behind;
  const std::string whole(text);
  if (CutAt(" share=", text, share) && !IsShare(share)) return "not a share as \\\\server\\share";
  if (CutAt(" label=", text, label) && (label.empty() || Utf16Length(label) > kLongestLabel)) {
    return "not a label of 1 to 32 characters";
  }
  if (CutAt(" error=", text, error)) {
    const auto [end, fault] = std::from_chars(error.begin(), error.end(), read.status);
    if (fault != std::errc{} || end != error.end() || read.status <= 0) {
      return "not a platform's error number";
    }
  }
  if (CutAt(" not ready", text, behind)) read.status = ERROR_NOT_READY;
  const auto* const kind =
      std::find_if(std::begin(kKinds), std::end(kKinds),
                   [name = LowerCase(text)](const auto& known) { return known.first == name; });
  if (kind == std::end(kKinds) || !behind.empty()) return "unknown drive kind \"" + whole + '"';
  read.kind = kind->second;
  if (!share.empty() && read.kind != DRIVE_REMOTE) return "a share of what is no network drive";
  read.label = label;
  read.share = share;
  drive = std::move(read);
  return {};
}

std::string DriveText(const PcDrive& drive) {
  std::string text = "fixed";
  for (const auto& [name, kind] : kKinds) {
    if (kind == drive.kind) text = name;
  }
  if (drive.status == ERROR_NOT_READY) {
    text += " not ready";
  } else if (drive.status != ERROR_SUCCESS) {
    text += " error=" + std::to_string(drive.status);
  }
  if (!drive.label.empty()) text += " label=" + drive.label;
  if (!drive.share.empty()) text += " share=" + drive.share;
  return text;
}

}  // namespace tidemark::hosted
