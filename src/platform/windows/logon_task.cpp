#include "platform/logon_task.h"

// The order matters to the platform's headers: winapi.h comes first.
#include <oleauto.h>
#include <sddl.h>
#include <taskschd.h>

#include <array>
#include <memory>
#include <type_traits>

#include "platform/unique_handle.h"
#include "platform/windows/com.h"
#include "platform/windows/wide_text.h"

namespace tidemark {
namespace {

struct TokenPolicy {
  using Handle = HANDLE;
  static Handle Invalid() { return nullptr; }
  static void Close(Handle handle) { CloseHandle(handle); }
};

UniqueHandle<TokenPolicy> ProcessToken() {
  HANDLE token = nullptr;
  OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token);
  return UniqueHandle<TokenPolicy>(token);
}

struct FreeText {
  void operator()(BSTR text) const { SysFreeString(text); }
};
using ComText = std::unique_ptr<std::remove_pointer_t<BSTR>, FreeText>;

ComText TextFor(const std::wstring& text) { return ComText(SysAllocString(text.c_str())); }

VARIANT Nothing() {
  VARIANT nothing;
  VariantInit(&nothing);
  return nothing;
}

// This user's security identifier as text; empty when the system does not tell it.
std::string UserId() {
  const auto token = ProcessToken();
  alignas(TOKEN_USER) std::array<char, sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE> buffer{};
  DWORD size = 0;
  LPSTR text = nullptr;
  if (GetTokenInformation(token.Get(), TokenUser, buffer.data(), static_cast<DWORD>(buffer.size()),
                          &size) == FALSE ||
      ConvertSidToStringSidA(reinterpret_cast<TOKEN_USER*>(buffer.data())->User.Sid, &text) ==
          FALSE) {
    return {};
  }
  std::string id = text;
  LocalFree(text);
  return id;
}

std::wstring TaskName() {
  constexpr DWORD kLongestName = 257;
  std::array<wchar_t, kLongestName> user{};
  DWORD size = kLongestName;
  GetUserNameW(user.data(), &size);
  return std::wstring(L"Tidemark at logon of ") + user.data();
}

// The folder in which the tasks are; null, and the status, when the Task Scheduler does not answer.
ComPointer<ITaskFolder> RootFolder(HRESULT& status) {
  const auto service = MakeComObject<ITaskService>(__uuidof(TaskScheduler), __uuidof(ITaskService));
  status =
      service ? service->Connect(Nothing(), Nothing(), Nothing(), Nothing()) : REGDB_E_CLASSNOTREG;
  ITaskFolder* folder = nullptr;
  if (SUCCEEDED(status)) status = service->GetFolder(TextFor(L"\\").get(), &folder);
  return ComPointer<ITaskFolder>(folder);
}

}  // namespace

bool IsElevated() {
  const auto token = ProcessToken();
  TOKEN_ELEVATION elevation{};
  DWORD size = 0;
  return GetTokenInformation(token.Get(), TokenElevation, &elevation, sizeof elevation, &size) !=
             FALSE &&
         elevation.TokenIsElevated != 0;
}

HRESULT RegisterLogonTask(const LogonTask& task) {
  const ComApartment com;
  HRESULT status = S_OK;
  const ComPointer<ITaskFolder> folder = RootFolder(status);
  if (!folder) return status;
  IRegisteredTask* registered = nullptr;
  status = folder->RegisterTask(TextFor(TaskName()).get(),
                                TextFor(Wide(LogonTaskXml(task, UserId()))).get(),
                                TASK_CREATE_OR_UPDATE, Nothing(), Nothing(),
                                TASK_LOGON_INTERACTIVE_TOKEN, Nothing(), &registered);
  const ComPointer<IRegisteredTask> owned(registered);
  return status;
}

HRESULT RemoveLogonTask() {
  const ComApartment com;
  HRESULT status = S_OK;
  const ComPointer<ITaskFolder> folder = RootFolder(status);
  if (!folder) return status;
  status = folder->DeleteTask(TextFor(TaskName()).get(), 0);
  return status == HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND) ? S_OK : status;
}

}  // namespace tidemark
