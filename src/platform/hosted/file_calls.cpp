// The file calls of winapi.h: the work is the file store's; here are last errors, and what the
// registry editor, running beside the program, is doing to a file at this moment.
#include <string_view>

#include "platform/hosted/clock.h"
#include "platform/hosted/file_store.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/recycle_bin.h"
#include "platform/hosted/registry_editor.h"
#include "platform/winapi.h"

namespace {

using tidemark::hosted::HostedPc;

std::string_view Text(LPCSTR text) { return text == nullptr ? std::string_view() : text; }

HostedPc& Pc() {
  HostedPc& pc = HostedPc::Current();
  pc.editor().CatchUp();
  return pc;
}

BOOL Answer(LONG status) {
  if (status != ERROR_SUCCESS) SetLastError(static_cast<DWORD>(status));
  return status == ERROR_SUCCESS ? TRUE : FALSE;
}

bool IsBeingWritten(HostedPc& pc, LPCSTR path) {
  return pc.editor().IsWriting(pc.files().FullPath(Text(path)));
}

}  // namespace

// A path that can be none has no full one here.
DWORD GetFullPathNameA(LPCSTR path, DWORD size, LPSTR full, LPSTR*) {
  const std::string text = Pc().files().FullPath(Text(path));
  if (text.size() >= size) return static_cast<DWORD>(text.size()) + 1;
  full[text.copy(full, text.size())] = '\0';
  return static_cast<DWORD>(text.size());
}

DWORD GetFileAttributesA(LPCSTR path) {
  DWORD attributes = INVALID_FILE_ATTRIBUTES;
  Answer(Pc().files().GetAttributes(Text(path), attributes));
  return attributes;
}

BOOL GetFileAttributesExA(LPCSTR path, GET_FILEEX_INFO_LEVELS, LPVOID data) {
  tidemark::hosted::FileDetails details;
  const LONG status = Pc().files().GetDetails(Text(path), details);
  if (status == ERROR_SUCCESS) {
    tidemark::hosted::CopyDetails(details, *static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(data));
  }
  return Answer(status);
}

BOOL SetFileAttributesA(LPCSTR path, DWORD attributes) {
  return Answer(Pc().files().SetAttributes(Text(path), attributes));
}

HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES*, DWORD disposition,
                   DWORD attributes, HANDLE) {
  HostedPc& pc = Pc();
  const bool wants_alone =
      (access & (GENERIC_WRITE | FILE_APPEND_DATA)) != 0 || (share & FILE_SHARE_WRITE) == 0;
  HANDLE file = INVALID_HANDLE_VALUE;
  bool existed = false;
  const LONG status =
      wants_alone && IsBeingWritten(pc, path)
          ? ERROR_SHARING_VIOLATION
          : pc.files().Open(Text(path), {access, share, disposition, attributes}, file, existed);
  if (status != ERROR_SUCCESS) {
    SetLastError(static_cast<DWORD>(status));
    return INVALID_HANDLE_VALUE;
  }
  const bool replaces = disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS;
  SetLastError(static_cast<DWORD>(existed && replaces ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS));
  return file;
}

BOOL ReadFile(HANDLE file, LPVOID data, DWORD size_bytes, LPDWORD bytes_read, void*) {
  DWORD count = 0;
  const LONG status = Pc().files().Read(file, data, size_bytes, count);
  if (bytes_read != nullptr) *bytes_read = count;
  return Answer(status);
}

BOOL WriteFile(HANDLE file, LPCVOID data, DWORD size_bytes, LPDWORD bytes_written, void*) {
  DWORD count = 0;
  const LONG status = Pc().files().Write(file, data, size_bytes, count);
  if (bytes_written != nullptr) *bytes_written = count;
  return Answer(status);
}

BOOL FlushFileBuffers(HANDLE file) { return Answer(Pc().files().Flush(file)); }

BOOL SetFileTime(HANDLE file, const FILETIME*, const FILETIME* accessed, const FILETIME* written) {
  return Answer(Pc().files().SetTimes(file, accessed, written));
}

BOOL CloseHandle(HANDLE handle) { return Answer(Pc().files().Close(handle)); }

BOOL DeleteFileA(LPCSTR path) {
  HostedPc& pc = Pc();
  if (IsBeingWritten(pc, path)) return Answer(ERROR_SHARING_VIOLATION);
  if (!pc.recycle_bin().TakesWhatIsDeleted(Text(path)))
    return Answer(pc.files().Delete(Text(path)));
  DWORD attributes = 0;
  if (const LONG status = pc.files().GetAttributes(Text(path), attributes)) return Answer(status);
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) return Answer(ERROR_ACCESS_DENIED);
  return Answer(pc.recycle_bin().Throw(Text(path), pc.clock().LocalTime()));
}

BOOL CopyFileA(LPCSTR from, LPCSTR to, BOOL fail_if_exists) {
  HostedPc& pc = Pc();
  return Answer(IsBeingWritten(pc, to)
                    ? ERROR_SHARING_VIOLATION
                    : pc.files().Copy(Text(from), Text(to), fail_if_exists != FALSE));
}

BOOL MoveFileExA(LPCSTR from, LPCSTR to, DWORD flags) {
  HostedPc& pc = Pc();
  if (IsBeingWritten(pc, from) || IsBeingWritten(pc, to)) return Answer(ERROR_SHARING_VIOLATION);
  return Answer(pc.files().Move(Text(from), Text(to), (flags & MOVEFILE_REPLACE_EXISTING) != 0));
}

BOOL CreateDirectoryA(LPCSTR path, SECURITY_ATTRIBUTES*) {
  return Answer(Pc().files().MakeFolder(Text(path)));
}

BOOL RemoveDirectoryA(LPCSTR path) { return Answer(Pc().files().RemoveFolder(Text(path))); }
