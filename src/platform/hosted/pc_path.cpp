#include "platform/hosted/pc_path.h"

#include <algorithm>

#include "platform/exact_text.h"
#include "platform/letter_case.h"

namespace tidemark::hosted {
namespace {

constexpr bool IsSeparator(char c) { return c == '\\' || c == '/'; }
constexpr bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

constexpr bool IsForbidden(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '*' || c == ':' || c == '<' ||
         c == '>' || c == '?' || c == '|';
}

bool HasForbiddenCharacter(std::string_view text) {
  return std::any_of(text.begin(), text.end(), IsForbidden);
}

void SetUpper(PcPath& path) {
  path.upper.clear();
  for (const char c : path.text) {
    if (static_cast<unsigned char>(c) >= 0x80) {
      path.upper = UpperCase(path.text);
      return;
    }
    path.upper += c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c;
  }
}

void AppendComponent(std::string& text, std::string_view component, bool last) {
  constexpr std::size_t kRootSize = 3;
  if (component == ".") return;
  if (component == "..") {
    const auto cut = text.find_last_of('\\');
    text.resize(cut < kRootSize ? kRootSize : cut);
    return;
  }
  if (last) {
    const auto end = component.find_last_not_of(" .");
    component = component.substr(0, end == std::string_view::npos ? 0 : end + 1);
  } else if (component.ends_with('.')) {
    component.remove_suffix(1);
  }
  if (component.empty()) return;
  if (text.size() > kRootSize) text += '\\';
  text += component;
}

bool IsOnNoDrive(std::string_view path) {
  return path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1]);
}

bool NamesDrive(std::string_view path) {
  return path.size() >= 2 && path[1] == ':' && IsLetter(path[0]);
}

// Starts the result with what the beginning of the path says, and cuts that off.
LONG TakeRoot(std::string_view& path, std::string_view current_folder, std::string& text) {
  if (IsOnNoDrive(path)) {
    const bool device = path.size() >= 3 && (path[2] == '?' || path[2] == '.');
    return device ? ERROR_INVALID_NAME : ERROR_BAD_NETPATH;
  }
  const char drive = DriveOf(path, current_folder);
  const bool from_root = drive != current_folder[0];  // the other drives are in their roots
  if (NamesDrive(path)) path.remove_prefix(2);
  if (from_root || (!path.empty() && IsSeparator(path[0]))) {
    text.assign({drive, ':', '\\'});
  } else {
    text.assign(current_folder);
  }
  return ERROR_SUCCESS;
}

}  // namespace

LONG NormalisePath(std::string_view path, std::string_view current_folder, PcPath& result) {
  // The 8-bit calls hold a path in 260 units.
  constexpr std::size_t kMost = MAX_PATH;
  if (path.size() > kMost && Utf16Length(path) > kMost) return ERROR_FILENAME_EXCED_RANGE;
  while (path.ends_with(' ')) path.remove_suffix(1);
  if (path.empty()) return ERROR_PATH_NOT_FOUND;
  if (const LONG status = TakeRoot(path, current_folder, result.text)) return status;
  if (HasForbiddenCharacter(path)) return ERROR_INVALID_NAME;
  result.ends_in_backslash = false;
  while (!path.empty()) {
    std::size_t end = 0;
    while (end < path.size() && !IsSeparator(path[end])) ++end;
    if (end > 0) AppendComponent(result.text, path.substr(0, end), end == path.size());
    if (end + 1 == path.size()) result.ends_in_backslash = true;
    path.remove_prefix(end == path.size() ? end : end + 1);
  }
  if (result.text.size() > kMost && Utf16Length(result.text) > kMost) return ERROR_PATH_NOT_FOUND;
  SetUpper(result);
  return ERROR_SUCCESS;
}

char DriveOf(std::string_view path, std::string_view current_folder) {
  if (IsOnNoDrive(path)) return '\0';
  return NamesDrive(path) ? static_cast<char>(path[0] & ~0x20) : current_folder[0];
}

bool IsPcName(std::string_view name) {
  return !name.empty() && name.back() != ' ' && name.back() != '.' &&
         name.find('\\') == std::string_view::npos && !HasForbiddenCharacter(name);
}

}  // namespace tidemark::hosted
