#include "helpers/check_valid.h"

#include <array>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "helpers/system_helpers.h"
#include "helpers/text_helpers.h"
#include "platform/file_system_object.h"
#include "platform/unicode.h"

namespace tidemark {
namespace {

// Drives U to Z are passed over.
constexpr std::string_view kCheckedDrives = "ABCDEFGHIJKLMNOPQRST";
constexpr std::array<std::string_view, 3> kProgramExtensions = {".exe", ".bat", ".com"};

// One judgement of one text. The rules ask about the same name several times; within one judgement
// each name is asked of the platform once, for a missing name in a big folder is what costs most of
// a scan.
class Judgement {
 public:
  bool FileExists(std::string_view path) { return Ask(path) == FileSystemObject::Kind::kFile; }

  // As IsExistingFolder: anything but a path that is not found, or a file.
  bool FolderExists(std::string_view path) {
    const FileSystemObject::Kind kind = Ask(path);
    return kind == FileSystemObject::Kind::kFolder || kind == FileSystemObject::Kind::kUnknown;
  }

  // The name, or the name with a program's extension.
  bool Probe(std::string_view name) { return FileExists(name) || WithExtensionExists(name); }

  // Whether the name stands in one of the system's folders. A name that holds a drive can't.
  bool CheckInSysFolders(std::string_view name) {
    if (name.find(':') != std::string_view::npos) return false;
    const std::string windows = AddBackslash(GetWindowsDir());
    for (const std::string_view folder : {"", "system\\", "system32\\"}) {
      if (FileExists(std::string(windows).append(folder).append(name))) return true;
    }
    return false;
  }

  // The text as far as three characters behind its first dot, which cuts a command line back to its
  // program. The first two characters hold no dot that counts; with no dot at all, three characters
  // are left.
  bool ProgramInFrontOfArgumentsExists(std::string_view text) {
    constexpr std::size_t kExtensionCharacters = 3;
    const std::size_t skipped = FirstCharacters(text, 2).size();
    const std::size_t dot = text.find('.', skipped);
    const std::size_t end = dot == std::string_view::npos ? 0 : dot + 1;
    const std::string_view extension = FirstCharacters(text.substr(end), kExtensionCharacters);
    const std::string_view head = TrimBlanks(text.substr(0, end + extension.size()));
    return Probe(head) || CheckInSysFolders(head);
  }

 private:
  bool WithExtensionExists(std::string_view name) {
    for (const std::string_view extension : kProgramExtensions) {
      if (FileExists(std::string(name).append(extension))) return true;
    }
    return false;
  }

  FileSystemObject::Kind Ask(std::string_view path) {
    for (const auto& [asked, kind] : asked_) {
      if (asked == path) return kind;
    }
    asked_.emplace_back(path, FileSystemObject::Kind::kMissing);
    return asked_.back().second = FileSystemObject().KindOf(asked_.back().first);
  }

  std::vector<std::pair<std::string, FileSystemObject::Kind>> asked_;
};

// The text from the drive letter of its first path on; a text with no drive stays as it is.
std::string_view FromDriveOn(std::string_view text) {
  const std::size_t colon = text.find(":\\");
  return colon == std::string_view::npos || colon == 0 ? text : text.substr(colon - 1);
}

std::string_view InFrontOf(char sign, std::string_view text) {
  return TrimBlanks(text.substr(0, text.find(sign)));
}

// What is left of a command line when quotes, the runner of libraries, what stands ahead of the
// drive, and arguments are taken away; no value when its drive is one that is not checked.
std::optional<std::string> CleanedPath(const std::string& text) {
  std::string expanded = ReplaceAll(ExpandEnvString(text), "\"", "");
  // These two spellings alone, on purpose.
  expanded = ReplaceAll(ReplaceAll(expanded, "Rundll32", ""), "RunDll32", "");
  std::string_view path = FromDriveOn(expanded);
  if (!StartsWithLetterOf(path, kCheckedDrives)) return std::nullopt;
  for (const char sign : {',', '/', ';', '%'}) path = InFrontOf(sign, path);
  return ReplaceAll(path, "@", "");
}

bool DrivePathExists(Judgement& judgement, std::string_view path, std::size_t colon) {
  std::size_t drive = colon - 1;
  while (drive > 0 && ContinuesCharacter(path[drive])) --drive;
  const std::string_view head = TrimBlanks(path.substr(0, drive));
  const std::string_view tail = TrimBlanks(path.substr(drive));
  bool found = head.empty() || judgement.Probe(head) || head.find('.') == std::string_view::npos ||
               judgement.CheckInSysFolders(head);
  if (found) {
    found = judgement.Probe(tail) || judgement.CheckInSysFolders(tail) ||
            judgement.ProgramInFrontOfArgumentsExists(path);
  }
  return found;
}

// A bare name counts by the system's folders alone: what exists beside the working folder with an
// extension added does not. On purpose.
bool BareNameExists(Judgement& judgement, std::string_view name) {
  return judgement.CheckInSysFolders(name) || judgement.ProgramInFrontOfArgumentsExists(name);
}

}  // namespace

bool CheckValid(const std::string& text) {
  Judgement judgement;
  if (judgement.FolderExists(text) || judgement.FileExists(text)) return true;
  const std::optional<std::string> path = CleanedPath(text);
  if (!path) return true;
  if (judgement.FileExists(*path)) return true;

  const std::string_view trimmed = TrimBlanks(*path);
  const std::size_t colon = trimmed.find(":\\", FirstCharacters(trimmed, 1).size());
  const bool found = colon != std::string_view::npos ? DrivePathExists(judgement, *path, colon)
                                                     : BareNameExists(judgement, *path);
  return found || judgement.FolderExists(*path);
}

}  // namespace tidemark
