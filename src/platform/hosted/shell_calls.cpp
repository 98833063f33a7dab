#include "platform/hosted/shell_calls.h"

#include <cstdint>
#include <string_view>

#include "platform/hosted/file_store.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/name_pattern.h"
#include "platform/letter_case.h"
#include "platform/winapi.h"

namespace {

using tidemark::hosted::ShellRequest;

std::vector<ShellRequest> opened;

// ShellExecute's answers: above 32 is success.
constexpr std::uintptr_t kOpened = 33;
constexpr std::uintptr_t kFileNotFound = 2;
constexpr std::uintptr_t kPathNotFound = 3;
constexpr std::uintptr_t kAccessDenied = 5;

std::string Text(LPCSTR text) { return text == nullptr ? std::string() : text; }

bool IsAddress(std::string_view file) {
  const std::string lower = tidemark::LowerCase(file);
  return lower.starts_with("http://") || lower.starts_with("https://") ||
         lower.starts_with("mailto:");
}

std::uintptr_t Open(ShellRequest request) {
  if (!IsAddress(request.file)) {
    DWORD attributes = 0;
    const LONG status =
        tidemark::hosted::HostedPc::Current().files().GetAttributes(request.file, attributes);
    if (status == ERROR_PATH_NOT_FOUND) return kPathNotFound;
    if (status == ERROR_ACCESS_DENIED) return kAccessDenied;
    if (status != ERROR_SUCCESS) return kFileNotFound;
  }
  opened.push_back(std::move(request));
  return kOpened;
}

HINSTANCE Answer(std::uintptr_t answer) {
  return reinterpret_cast<HINSTANCE>(answer);  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace

namespace tidemark::hosted {

const std::vector<ShellRequest>& OpenedByShell() { return opened; }
void ForgetOpenedByShell() { opened.clear(); }

}  // namespace tidemark::hosted

BOOL PathMatchSpecA(LPCSTR name, LPCSTR pattern) {
  if (name == nullptr || pattern == nullptr) return FALSE;
  return tidemark::hosted::FitsPatternList(name, pattern) ? TRUE : FALSE;
}

HINSTANCE ShellExecuteA(HWND, LPCSTR verb, LPCSTR file, LPCSTR parameters, LPCSTR folder,
                        int show) {
  return Answer(Open({Text(verb), Text(file), Text(parameters), Text(folder), show}));
}

BOOL ShellExecuteExA(SHELLEXECUTEINFOA* info) {
  const std::uintptr_t answer =
      Open({Text(info->lpVerb), Text(info->lpFile), Text(info->lpParameters),
            Text(info->lpDirectory), info->nShow});
  info->hInstApp = Answer(answer);
  if (answer == kOpened) return TRUE;
  SetLastError(static_cast<DWORD>(answer));
  return FALSE;
}
