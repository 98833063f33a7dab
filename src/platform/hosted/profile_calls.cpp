// Profile files: GetPrivateProfileStringA and WritePrivateProfileStringA.
#include <algorithm>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "platform/code_page.h"
#include "platform/exact_text.h"
#include "platform/hosted/file_store.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/mapped_profile.h"
#include "platform/hosted/pc_path.h"
#include "platform/hosted/pc_settings.h"
#include "platform/hosted/profile_text.h"
#include "platform/hosted/registry_editor.h"
#include "platform/unicode.h"
#include "platform/winapi.h"

namespace {

using tidemark::hosted::FileStore;
using tidemark::hosted::HostedPc;
using tidemark::hosted::IsMapped;
using tidemark::hosted::MappedNames;
using tidemark::hosted::MappedValue;
using tidemark::hosted::ProfileText;
using tidemark::hosted::WriteMapped;

constexpr std::string_view kUtf16Mark = "\xFF\xFE";

FileStore& Files() {
  HostedPc& pc = HostedPc::Current();
  pc.editor().CatchUp();
  return pc.files();
}

std::string PathOf(LPCSTR file) {
  std::string name = file == nullptr ? "win.ini" : file;
  if (name.find_first_of("\\/:") != std::string::npos) return name;
  return HostedPc::Current().settings().windows_folder + '\\' + name;
}

struct LoadedProfile {
  ProfileText text{{}};
  bool utf16 = false;
  bool odd_byte = false;  // a 16-bit file that ends in half a unit keeps it
  char last_byte = 0;
};

LONG Load(const std::string& path, LoadedProfile& profile) {
  std::string bytes;
  if (const LONG status = Files().ReadWhole(path, bytes)) return status;
  profile.utf16 = bytes.starts_with(kUtf16Mark);
  if (!profile.utf16) {
    profile.text = ProfileText(tidemark::FromSystemCodePage(bytes));
    return ERROR_SUCCESS;
  }
  profile.odd_byte = bytes.size() % 2 != 0;
  profile.last_byte = bytes.back();
  std::string text;
  tidemark::AppendFromUtf16(std::string_view(bytes).substr(kUtf16Mark.size()), text);
  profile.text = ProfileText(std::move(text));
  return ERROR_SUCCESS;
}

LONG Save(const std::string& path, const LoadedProfile& profile) {
  if (!profile.utf16) {
    return Files().Overwrite(path, tidemark::ToSystemCodePage(profile.text.text()));
  }
  std::string bytes(kUtf16Mark);
  tidemark::AppendAsUtf16(profile.text.text(), bytes);
  if (profile.odd_byte) bytes += profile.last_byte;
  return Files().Overwrite(path, bytes);
}

// One pair of matching quotes is not part of a value.
std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
                      value.front() == value.back();
  return quoted ? value.substr(1, value.size() - 2) : value;
}

// As much of the text as fits into `size` bytes with whole characters.
std::string_view Fitting(std::string_view text, std::size_t size) {
  if (text.size() <= size) return text;
  while (size > 0 && tidemark::ContinuesCharacter(text[size])) --size;
  return text.substr(0, size);
}

// Gives the number of bytes without the NUL.
DWORD Answer(std::string_view value, LPSTR text, DWORD size) {
  if (text == nullptr || size == 0) return 0;
  const std::string_view cut = Fitting(value, size - 1);
  cut.copy(text, cut.size());
  text[cut.size()] = '\0';
  return static_cast<DWORD>(cut.size());
}

template <class Names>
DWORD AnswerList(const Names& names, LPSTR text, DWORD size) {
  if (text == nullptr || size == 0) return 0;
  std::string list;
  for (const auto& name : names) list.append(name).push_back('\0');
  if (size < 2 || list.empty()) {
    std::memset(text, 0, std::min<DWORD>(size, 2));
    return 0;
  }
  // Cut or not, it ends in two NULs.
  const bool whole = list.size() < size;
  const std::string_view cut = whole ? std::string_view(list) : Fitting(list, size - 2);
  cut.copy(text, cut.size());
  std::memset(text + cut.size(), 0, whole ? 1 : 2);
  return static_cast<DWORD>(cut.size());
}

// The file is opened to be written even for what stands in it already.
LONG CheckWritable(const std::string& path) {
  FileStore& files = Files();
  HANDLE file = nullptr;
  bool existed = false;
  const LONG status = files.Open(path, {.access = GENERIC_READ | GENERIC_WRITE}, file, existed);
  return status == ERROR_SUCCESS ? files.Close(file) : status;
}

LONG WriteToFile(const std::string& path, LPCSTR section, LPCSTR key, LPCSTR text) {
  LoadedProfile profile;
  const LONG status = Load(path, profile);
  const bool removes = key == nullptr || text == nullptr;
  if (status == ERROR_FILE_NOT_FOUND && removes) return ERROR_SUCCESS;
  if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) return status;
  const std::string former = profile.text.text();
  if (key == nullptr) {
    profile.text.RemoveSection(section);
  } else if (text == nullptr) {
    profile.text.Remove(section, key);
  } else {
    profile.text.Set(section, key, text);
  }
  return profile.text.text() == former ? CheckWritable(path) : Save(path, profile);
}

}  // namespace

DWORD GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR default_text, LPSTR text,
                               DWORD size, LPCSTR file) {
  std::string_view otherwise = default_text == nullptr ? "" : default_text;
  const std::string path = PathOf(file);
  const bool mapped = IsMapped(path, section);
  if (mapped && key == nullptr) return AnswerList(MappedNames(), text, size);
  LoadedProfile profile;
  if (!mapped) static_cast<void>(Load(path, profile));  // what can't be read is empty
  if (section == nullptr) return AnswerList(profile.text.Sections(), text, size);
  if (key == nullptr) {
    const auto keys = profile.text.Keys(section);
    return keys ? AnswerList(*keys, text, size) : Answer(otherwise, text, size);
  }
  otherwise = otherwise.substr(0, otherwise.find_last_not_of(' ') + 1);
  if (mapped) return Answer(MappedValue(key).value_or(std::string(otherwise)), text, size);
  const std::optional<std::string_view> value = profile.text.Value(section, key);
  return Answer(value ? WithoutQuotes(*value) : otherwise, text, size);
}

BOOL WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR text, LPCSTR file) {
  if (section == nullptr) return FALSE;
  const std::string path = PathOf(file);
  const LONG status =
      IsMapped(path, section) ? WriteMapped(key, text) : WriteToFile(path, section, key, text);
  if (status != ERROR_SUCCESS) SetLastError(static_cast<DWORD>(status));
  return status == ERROR_SUCCESS ? TRUE : FALSE;
}
