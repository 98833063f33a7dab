// SHFileOperationA, as far as Tidemark asks it: deleting files, into the recycle bin or for good.
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/hosted/clock.h"
#include "platform/hosted/file_store.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/recycle_bin.h"
#include "platform/hosted/registry_editor.h"
#include "platform/winapi.h"

namespace {

using tidemark::hosted::HostedPc;

// The former paths of what lies in the bin under another name now.
using NameMappings = std::vector<std::string>;

// What the call answers beside the platform's statuses (Windows documentation, SHFileOperation).
constexpr int kAccessDeniedSource = 0x78;
constexpr int kPathTooDeep = 0x79;
constexpr int kInvalidFiles = 0x7C;

int AnswerOf(LONG status) {
  switch (status) {
    case ERROR_ACCESS_DENIED:
      return kAccessDeniedSource;
    case ERROR_FILENAME_EXCED_RANGE:
      return kPathTooDeep;
    case ERROR_PATH_NOT_FOUND:
      return kInvalidFiles;
    default:
      return status;
  }
}

// Read-only files go as well.
LONG DeleteForGood(HostedPc& pc, std::string_view path) {
  DWORD attributes = 0;
  if (const LONG status = pc.files().GetAttributes(path, attributes)) return status;
  const bool read_only = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  const bool folder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  if (read_only && !folder) pc.files().SetAttributes(path, attributes & ~FILE_ATTRIBUTE_READONLY);
  const LONG status = pc.files().Delete(path);
  if (status != ERROR_SUCCESS && read_only) pc.files().SetAttributes(path, attributes);
  return status;
}

// One path. Names with wild cards, which the platform would take, name nothing here, and a folder
// is no file to delete: nothing goes but what is named letter by letter.
LONG DeleteOne(HostedPc& pc, std::string_view path, bool allow_undo) {
  if (pc.editor().IsWriting(pc.files().FullPath(path))) return ERROR_SHARING_VIOLATION;
  return allow_undo ? pc.recycle_bin().Throw(path, pc.clock().LocalTime())
                    : DeleteForGood(pc, path);
}

}  // namespace

int SHFileOperationA(SHFILEOPSTRUCTA* operation) {
  if (operation == nullptr || operation->wFunc != FO_DELETE || operation->pFrom == nullptr) {
    return ERROR_INVALID_PARAMETER;
  }
  HostedPc& pc = HostedPc::Current();
  pc.editor().CatchUp();
  operation->fAnyOperationsAborted = FALSE;
  operation->hNameMappings = nullptr;
  const bool allow_undo = (operation->fFlags & FOF_ALLOWUNDO) != 0;
  auto mappings = std::make_unique<NameMappings>();
  for (const char* next = operation->pFrom; *next != '\0';) {
    const std::string_view path = next;
    next += path.size() + 1;
    if (const LONG status = DeleteOne(pc, path, allow_undo)) return AnswerOf(status);
    mappings->emplace_back(path);
  }
  const bool mappings_wanted = (operation->fFlags & FOF_WANTMAPPINGHANDLE) != 0;
  if (allow_undo && mappings_wanted) operation->hNameMappings = mappings.release();
  return ERROR_SUCCESS;
}

void SHFreeNameMappings(HANDLE mappings) {
  const std::unique_ptr<NameMappings> owner(static_cast<NameMappings*>(mappings));
}
