#include "repair/category_repairs.h"

#include <array>
#include <string_view>

#include "helpers/ignore_list.h"
#include "helpers/key_names.h"
#include "helpers/text_helpers.h"
#include "platform/file_system_object.h"
#include "platform/letter_case.h"
#include "platform/unique_handle.h"
#include "registry/mdlRegistry.h"
#include "repair/undo_file.h"
#include "window/finding_columns.h"

namespace tidemark {
namespace {

struct Finding {
  std::string path;  // the full key, or the link file
  std::string value_name;
  std::string data;
  std::int32_t type = 0;
};

// What a repair needs beside the finding.
struct RepairJob {
  frmMain& window;
  const std::string& undo_file;
  CompleteRecord& record;
  LSTATUS& status;  // of the deletion
};

Finding FindingOf(const ListItem& row) {
  return {row.Caption().String(), row.SubItem(kValueName).String(),
          row.SubItem(kValueData).String(),
          RoundToLong(LeadingNumber(row.SubItem(kValueType).View())).value_or(0)};
}

// A sub-key of backslashes alone would be the root itself, which SplitSubKey, that knows an empty
// one, lets pass.
bool IsWholeRoot(std::string_view sub_key) {
  return sub_key.find_first_not_of("\\ ") == std::string_view::npos;
}

bool DeleteKey(const RepairJob& job, std::string_view root_text, const std::string& sub_key) {
  job.status = ERROR_INVALID_PARAMETER;
  if (IsWholeRoot(sub_key)) return false;
  const HKEY root = StripHkey(root_text);
  job.record.KeepKey(root, sub_key);
  job.status = SHDeleteKeyA(root, sub_key.c_str());
  job.record.Deleted();
  return job.status == ERROR_SUCCESS;
}

void RepairKey(const RepairJob& job, const Finding& finding) {
  SafeRegkey(finding.path, job.window.application.folder, job.undo_file);
  DeleteKey(job, finding.path, SplitSubKey(finding.path));
}

// A key that can't be deleted is not to be reported by the next scan, but a whole root, which every
// key's text holds, would silence them all. The key may be an ancestor of the finding's.
void RepairKeyOrSafeList(const RepairJob& job, const Finding& finding, const std::string& key) {
  SafeRegkey(key, job.window.application.folder, job.undo_file);
  const std::string sub_key = SplitSubKey(key);
  if (!DeleteKey(job, finding.path, sub_key) && !IsWholeRoot(sub_key)) {
    AddToSafeList(job.window.IgnoreList, job.window.application.folder, sub_key);
  }
}

void RepairAssociation(const RepairJob& job, const Finding& finding) {
  RepairKeyOrSafeList(job, finding, finding.path);
}

// What keeps a value where it is; ERROR_SUCCESS when it has gone.
LSTATUS WhyStays(HKEY root, const std::string& sub_key, const std::string& name) {
  HKEY opened = nullptr;
  const LSTATUS status = RegOpenKeyExA(root, sub_key.c_str(), 0, KEY_QUERY_VALUE, &opened);
  if (status == ERROR_ACCESS_DENIED) return status;
  const UniqueKey key(opened);
  if (RegQueryValueExA(key.Get(), name.c_str(), nullptr, nullptr, nullptr, nullptr) !=
      ERROR_SUCCESS) {
    return ERROR_SUCCESS;
  }
  HKEY changeable = nullptr;
  const LSTATUS why = RegOpenKeyExA(root, sub_key.c_str(), 0, KEY_SET_VALUE, &changeable);
  const UniqueKey closed(changeable);
  return why == ERROR_SUCCESS ? ERROR_INVALID_PARAMETER : why;
}

void RepairValue(const RepairJob& job, const Finding& finding) {
  SafeReg(finding.path, finding.value_name, finding.data, finding.type, job.undo_file);
  const HKEY root = StripHkey(finding.path);
  const std::string sub_key = SplitSubKey(finding.path);
  job.record.KeepValue(root, sub_key, finding.value_name);
  DeleteRegValue(root, sub_key, finding.value_name);
  job.record.Deleted();
  job.status = WhyStays(root, sub_key, finding.value_name);
}

void RepairKeyOrValue(const RepairJob& job, const Finding& finding) {
  if (finding.value_name.empty()) {
    RepairKeyOrSafeList(job, finding, finding.path);
  } else {
    RepairValue(job, finding);
  }
}

// A class whose server key was found bad goes as a whole, up to the class identifier's brace.
void RepairClass(const RepairJob& job, const Finding& finding) {
  const std::string leaf = UpperCase(finding.path.substr(finding.path.rfind('\\') + 1));
  if (finding.value_name.empty() && (leaf == "INPROCSERVER32" || leaf == "INPROCSERVER")) {
    // With no brace the path is empty, and nothing is deleted.
    RepairKeyOrSafeList(job, finding, finding.path.substr(0, finding.path.find('}') + 1));
  } else {
    RepairKeyOrValue(job, finding);
  }
}

// The link file itself is kept, in the folder of the undo files.
void RepairShortcut(const RepairJob& job, const Finding& finding) {
  const std::string name = finding.path.substr(finding.path.rfind('\\') + 1);
  FileSystemObject files;
  files.CopyFile(finding.path, job.window.application.folder + "\\BACKUP\\" + name);
  job.record.KeepFile(finding.path);
  const auto error = files.DeleteFile(finding.path, /*force=*/true);
  job.status =
      error == FileSystemObject::kNone ? ERROR_SUCCESS : static_cast<LSTATUS>(GetLastError());
  job.record.Deleted();
}

struct CategoryRepair {
  std::string_view code;
  void (*repair)(const RepairJob& job, const Finding& finding);
};

constexpr std::array<CategoryRepair, 12> kRepairs = {{
    {"SHORTCUTS", RepairShortcut},
    {"APP", RepairKey},
    {"VDD", RepairKey},
    {"UNINSTALL", RepairKey},
    {"HELP", RepairValue},
    {"DLL", RepairValue},
    {"IFA", RepairAssociation},
    {"FONT", RepairValue},
    {"STARTUP", RepairValue},
    {"INTERFACE", RepairKeyOrValue},
    {"LIB", RepairKeyOrValue},
    {"CLSID", RepairClass},
}};

RepairOutcome OutcomeOf(LSTATUS status) {
  switch (status) {
    case ERROR_SUCCESS:
    case ERROR_FILE_NOT_FOUND:  // it went with another finding
    case ERROR_PATH_NOT_FOUND:
      return RepairOutcome::kGone;
    case ERROR_ACCESS_DENIED:
      return RepairOutcome::kNoRights;
    case ERROR_SHARING_VIOLATION:
      return RepairOutcome::kInUse;
    default:
      return RepairOutcome::kStayed;
  }
}

}  // namespace

std::optional<RepairOutcome> RepairFinding(frmMain& window, const ListItem& finding,
                                           const std::string& undo_file, CompleteRecord& record) {
  for (const CategoryRepair& category : kRepairs) {
    if (!(finding.SubItem(kTestCode) == category.code)) continue;
    LSTATUS status = ERROR_SUCCESS;
    category.repair({window, undo_file, record, status}, FindingOf(finding));
    return OutcomeOf(status);
  }
  return std::nullopt;
}

}  // namespace tidemark
