// The one header that stands for Windows. On Windows it is Windows' own headers; elsewhere it
// declares, under the same names, exactly the calls that Tidemark makes, and platform/hosted/
// implements them on a hosted PC. Text is 8-bit in the process's code page, which is UTF-8; the few
// 16-bit calls are for what has to come back with every bit of it.
#pragma once

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// The order matters to the platform's headers: windows.h comes first.
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>

// Macros that would rename our own methods.
#undef DeleteFile
#undef CopyFile
#undef CreateFile
#undef MessageBox
#undef DrawText
#undef GetObject

#else

#include <cstdint>

using BYTE = unsigned char;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using ULONGLONG = std::uint64_t;
using LONG = std::int32_t;
using UINT = unsigned int;
using BOOL = int;
using LSTATUS = LONG;
using REGSAM = DWORD;
using HRESULT = LONG;
using LPSTR = char*;
using LPCSTR = const char*;
using WCHAR = char16_t;
using LPWSTR = WCHAR*;
using LPCWSTR = const WCHAR*;
using LPBYTE = BYTE*;
using LPDWORD = DWORD*;
using LPVOID = void*;
using LPCVOID = const void*;
using HANDLE = void*;
using HWND = struct WindowObject*;
using HINSTANCE = struct ModuleObject*;
using HKEY = struct KeyObject*;
using PHKEY = HKEY*;

struct FILETIME {
  DWORD dwLowDateTime;
  DWORD dwHighDateTime;
};

struct SYSTEMTIME {
  WORD wYear;
  WORD wMonth;      // 1 to 12
  WORD wDayOfWeek;  // 0 is Sunday
  WORD wDay;
  WORD wHour;
  WORD wMinute;
  WORD wSecond;
  WORD wMilliseconds;
};

struct SECURITY_ATTRIBUTES;

struct SHELLEXECUTEINFOA {
  DWORD cbSize;
  unsigned long fMask;
  HWND hwnd;
  LPCSTR lpVerb;
  LPCSTR lpFile;
  LPCSTR lpParameters;
  LPCSTR lpDirectory;
  int nShow;
  HINSTANCE hInstApp;
  void* lpIDList;
  LPCSTR lpClass;
  HKEY hkeyClass;
  DWORD dwHotKey;
  HANDLE hIcon;
  HANDLE hProcess;
};

constexpr BOOL TRUE = 1;
constexpr BOOL FALSE = 0;
constexpr DWORD MAX_PATH = 260;
inline const HANDLE INVALID_HANDLE_VALUE =
    reinterpret_cast<HANDLE>(~std::uintptr_t{0});  // NOLINT(performance-no-int-to-ptr)

// Statuses (winerror.h).
constexpr LONG ERROR_SUCCESS = 0;
constexpr LONG ERROR_FILE_NOT_FOUND = 2;
constexpr LONG ERROR_PATH_NOT_FOUND = 3;
constexpr LONG ERROR_ACCESS_DENIED = 5;
constexpr LONG ERROR_INVALID_HANDLE = 6;
constexpr LONG ERROR_INVALID_DRIVE = 15;
constexpr LONG ERROR_NO_MORE_FILES = 18;
constexpr LONG ERROR_NOT_READY = 21;
constexpr LONG ERROR_SHARING_VIOLATION = 32;
constexpr LONG ERROR_NOT_SUPPORTED = 50;
constexpr LONG ERROR_BAD_NETPATH = 53;
constexpr LONG ERROR_FILE_EXISTS = 80;
constexpr LONG ERROR_INVALID_PARAMETER = 87;
constexpr LONG ERROR_DISK_FULL = 112;
constexpr LONG ERROR_INVALID_NAME = 123;
constexpr LONG ERROR_BAD_PATHNAME = 161;
constexpr LONG ERROR_DIR_NOT_EMPTY = 145;
constexpr LONG ERROR_ALREADY_EXISTS = 183;
constexpr LONG ERROR_FILENAME_EXCED_RANGE = 206;
constexpr LONG ERROR_MORE_DATA = 234;
constexpr LONG ERROR_NO_MORE_ITEMS = 259;
constexpr LONG ERROR_BADKEY = 1010;
constexpr LONG ERROR_KEY_DELETED = 1018;
constexpr HRESULT S_OK = 0;

DWORD GetLastError();
void SetLastError(DWORD code);

// The registry (winreg.h, shlwapi.h).
namespace winapi_detail {
inline HKEY KeyHandle(std::uintptr_t value) {
  return reinterpret_cast<HKEY>(value);  // NOLINT(performance-no-int-to-ptr)
}
}  // namespace winapi_detail

// Expressions, as on the platform: what is made of them before main needs no other variable first.
#define HKEY_CLASSES_ROOT (::winapi_detail::KeyHandle(0x80000000U))
#define HKEY_CURRENT_USER (::winapi_detail::KeyHandle(0x80000001U))
#define HKEY_LOCAL_MACHINE (::winapi_detail::KeyHandle(0x80000002U))
#define HKEY_USERS (::winapi_detail::KeyHandle(0x80000003U))
#define HKEY_PERFORMANCE_DATA (::winapi_detail::KeyHandle(0x80000004U))
#define HKEY_CURRENT_CONFIG (::winapi_detail::KeyHandle(0x80000005U))
#define HKEY_DYN_DATA (::winapi_detail::KeyHandle(0x80000006U))

constexpr DWORD REG_NONE = 0;
constexpr DWORD REG_SZ = 1;
constexpr DWORD REG_EXPAND_SZ = 2;
constexpr DWORD REG_BINARY = 3;
constexpr DWORD REG_DWORD = 4;
constexpr DWORD REG_DWORD_BIG_ENDIAN = 5;
constexpr DWORD REG_MULTI_SZ = 7;

constexpr REGSAM KEY_QUERY_VALUE = 0x0001;
constexpr REGSAM KEY_SET_VALUE = 0x0002;
constexpr REGSAM KEY_CREATE_SUB_KEY = 0x0004;
constexpr REGSAM KEY_ENUMERATE_SUB_KEYS = 0x0008;
constexpr REGSAM KEY_READ = 0x20019;
constexpr REGSAM KEY_ALL_ACCESS = 0xF003F;
constexpr DWORD REG_OPTION_NON_VOLATILE = 0;
constexpr DWORD REG_CREATED_NEW_KEY = 1;
constexpr DWORD REG_OPENED_EXISTING_KEY = 2;

LSTATUS RegOpenKeyA(HKEY key, LPCSTR sub_key, PHKEY result);
LSTATUS RegOpenKeyExA(HKEY key, LPCSTR sub_key, DWORD options, REGSAM access, PHKEY result);
LSTATUS RegCreateKeyA(HKEY key, LPCSTR sub_key, PHKEY result);
LSTATUS RegCreateKeyExA(HKEY key, LPCSTR sub_key, DWORD reserved, LPSTR class_text, DWORD options,
                        REGSAM access, const SECURITY_ATTRIBUTES* security, PHKEY result,
                        LPDWORD disposition);
LSTATUS RegCloseKey(HKEY key);
LSTATUS RegQueryValueExA(HKEY key, LPCSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                         LPDWORD size_bytes);
LSTATUS RegSetValueExA(HKEY key, LPCSTR name, DWORD reserved, DWORD type, const BYTE* data,
                       DWORD size_bytes);
LSTATUS RegDeleteValueA(HKEY key, LPCSTR name);
LSTATUS RegEnumKeyA(HKEY key, DWORD index, LPSTR name, DWORD size);
LSTATUS RegEnumValueA(HKEY key, DWORD index, LPSTR name, LPDWORD name_size, LPDWORD reserved,
                      LPDWORD type, LPBYTE data, LPDWORD data_size);
LSTATUS RegQueryInfoKeyA(HKEY key, LPSTR class_text, LPDWORD class_size, LPDWORD reserved,
                         LPDWORD sub_keys, LPDWORD max_sub_key, LPDWORD max_class, LPDWORD values,
                         LPDWORD max_value_name, LPDWORD max_value_data, LPDWORD security_size,
                         FILETIME* last_write);
LSTATUS RegDeleteKeyA(HKEY key, LPCSTR sub_key);
LSTATUS SHDeleteKeyA(HKEY key, LPCSTR sub_key);
LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR sub_key, DWORD options, REGSAM access, PHKEY result);
LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR sub_key, DWORD reserved, LPWSTR class_text, DWORD options,
                        REGSAM access, const SECURITY_ATTRIBUTES* security, PHKEY result,
                        LPDWORD disposition);
LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                         LPDWORD size_bytes);
LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data,
                       DWORD size_bytes);
LSTATUS RegDeleteValueW(HKEY key, LPCWSTR name);
LSTATUS RegDeleteKeyW(HKEY key, LPCWSTR sub_key);
// Sizes of names are in units, without the NUL when they come back.
LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD name_size, LPDWORD reserved,
                      LPWSTR class_text, LPDWORD class_size, FILETIME* last_write);
LSTATUS RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD name_size, LPDWORD reserved,
                      LPDWORD type, LPBYTE data, LPDWORD data_size);
LSTATUS RegConnectRegistryA(LPCSTR machine, HKEY root, PHKEY result);

// Files (fileapi.h).
constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;
constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x01;
constexpr DWORD FILE_ATTRIBUTE_HIDDEN = 0x02;
constexpr DWORD FILE_ATTRIBUTE_SYSTEM = 0x04;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
constexpr DWORD FILE_ATTRIBUTE_ARCHIVE = 0x20;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
constexpr DWORD FILE_ATTRIBUTE_NOT_CONTENT_INDEXED = 0x2000;
constexpr DWORD FILE_APPEND_DATA = 0x0004;
constexpr DWORD FILE_WRITE_ATTRIBUTES = 0x0100;
constexpr DWORD GENERIC_READ = 0x80000000;
constexpr DWORD GENERIC_WRITE = 0x40000000;
constexpr DWORD FILE_SHARE_READ = 1;
constexpr DWORD FILE_SHARE_WRITE = 2;
constexpr DWORD CREATE_NEW = 1;
constexpr DWORD CREATE_ALWAYS = 2;
constexpr DWORD OPEN_EXISTING = 3;
constexpr DWORD OPEN_ALWAYS = 4;

DWORD GetFileAttributesA(LPCSTR path);
BOOL SetFileAttributesA(LPCSTR path, DWORD attributes);
HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                   DWORD disposition, DWORD attributes, HANDLE model);
BOOL ReadFile(HANDLE file, LPVOID data, DWORD size_bytes, LPDWORD bytes_read, void* overlapped);
BOOL WriteFile(HANDLE file, LPCVOID data, DWORD size_bytes, LPDWORD bytes_written,
               void* overlapped);
// Returns when what was written, and the file's name, is on the disk.
BOOL FlushFileBuffers(HANDLE file);
BOOL SetFileTime(HANDLE file, const FILETIME* created, const FILETIME* accessed,
                 const FILETIME* written);
BOOL CloseHandle(HANDLE handle);
BOOL DeleteFileA(LPCSTR path);
BOOL CopyFileA(LPCSTR from, LPCSTR to, BOOL fail_if_exists);
constexpr DWORD MOVEFILE_REPLACE_EXISTING = 0x1;
constexpr DWORD MOVEFILE_WRITE_THROUGH = 0x8;
BOOL MoveFileExA(LPCSTR from, LPCSTR to, DWORD flags);
BOOL CreateDirectoryA(LPCSTR path, SECURITY_ATTRIBUTES* security);
BOOL RemoveDirectoryA(LPCSTR path);
DWORD GetFullPathNameA(LPCSTR path, DWORD size, LPSTR full, LPSTR* name);

// Whether a name fits one of several patterns with ";" between them (shlwapi.h).
BOOL PathMatchSpecA(LPCSTR name, LPCSTR pattern);

struct WIN32_FILE_ATTRIBUTE_DATA {
  DWORD dwFileAttributes;
  FILETIME ftCreationTime;
  FILETIME ftLastAccessTime;
  FILETIME ftLastWriteTime;
  DWORD nFileSizeHigh;
  DWORD nFileSizeLow;
};
enum GET_FILEEX_INFO_LEVELS { GetFileExInfoStandard };
BOOL GetFileAttributesExA(LPCSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID data);

// Drives (fileapi.h).
constexpr UINT DRIVE_NO_ROOT_DIR = 1;
constexpr UINT DRIVE_REMOVABLE = 2;
constexpr UINT DRIVE_FIXED = 3;
constexpr UINT DRIVE_REMOTE = 4;
constexpr UINT DRIVE_CDROM = 5;
constexpr UINT DRIVE_RAMDISK = 6;
DWORD GetLogicalDrives();  // bit 0 is drive A
UINT GetDriveTypeA(LPCSTR root);
BOOL GetVolumeInformationA(LPCSTR root, LPSTR label, DWORD label_size, LPDWORD serial,
                           LPDWORD longest_name, LPDWORD flags, LPSTR file_system,
                           DWORD file_system_size);
// The share behind a network drive, "\\server\share" (winnetwk.h).
DWORD WNetGetConnectionA(LPCSTR device, LPSTR share, LPDWORD size);

// The recycle bin (shellapi.h).
constexpr UINT FO_DELETE = 3;
constexpr WORD FOF_MULTIDESTFILES = 0x0001;
constexpr WORD FOF_SILENT = 0x0004;
constexpr WORD FOF_NOCONFIRMATION = 0x0010;
constexpr WORD FOF_WANTMAPPINGHANDLE = 0x0020;
constexpr WORD FOF_ALLOWUNDO = 0x0040;
struct SHFILEOPSTRUCTA {
  HWND hwnd;
  UINT wFunc;
  LPCSTR pFrom;  // paths, each ended by a NUL, the last one by two
  LPCSTR pTo;
  WORD fFlags;
  BOOL fAnyOperationsAborted;
  LPVOID hNameMappings;
  LPCSTR lpszProgressTitle;
};
int SHFileOperationA(SHFILEOPSTRUCTA* operation);
// What FOF_WANTMAPPINGHANDLE gives; null does nothing.
void SHFreeNameMappings(HANDLE mappings);

// Profile files (winbase.h). A bare file name lies in the Windows folder.
DWORD GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR default_text, LPSTR text,
                               DWORD size, LPCSTR file);
BOOL WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR text, LPCSTR file);

// The environment, special folders, time, other programs.
constexpr int CSIDL_DESKTOP = 0x00;
constexpr int CSIDL_STARTUP = 0x07;
constexpr int CSIDL_STARTMENU = 0x0B;
constexpr int CSIDL_FONTS = 0x14;
constexpr int CSIDL_COMMON_STARTMENU = 0x16;
constexpr int CSIDL_COMMON_STARTUP = 0x18;
constexpr int CSIDL_FLAG_CREATE = 0x8000;
constexpr int SW_SHOWNORMAL = 1;
constexpr int SW_SHOWMAXIMIZED = 3;
constexpr int SW_SHOW = 5;
constexpr unsigned long SEE_MASK_INVOKEIDLIST = 0x0C;

DWORD ExpandEnvironmentStringsA(LPCSTR text, LPSTR expanded, DWORD size);
UINT GetWindowsDirectoryA(LPSTR folder, UINT size);
HRESULT SHGetFolderPathA(HWND owner, int folder, HANDLE token, DWORD flags, LPSTR path);
void GetLocalTime(SYSTEMTIME* time);
// By the offset of now, also for a time of the other half of the year.
BOOL FileTimeToLocalFileTime(const FILETIME* time, FILETIME* local);
BOOL FileTimeToSystemTime(const FILETIME* time, SYSTEMTIME* calendar);
ULONGLONG GetTickCount64();
void Sleep(DWORD milliseconds);
HINSTANCE ShellExecuteA(HWND owner, LPCSTR verb, LPCSTR file, LPCSTR parameters, LPCSTR folder,
                        int show);
BOOL ShellExecuteExA(SHELLEXECUTEINFOA* info);

#endif
