#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "platform/unique_handle.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

// The handles of the redirected roots stay valid while the roots are redirected.
constexpr std::array<const char*, 3> kRootNames = {"HKCR", "HKCU", "HKLM"};
const std::array<HKEY, 3> kRoots = {HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE};

// Paths are UTF-8 on both sides; the standard library wants to be told.
std::filesystem::path HostPath(const std::string& path) {
  return std::u8string(path.begin(), path.end());
}
// The prefix lifts the limit of a path's length.
std::wstring DeepPath(const std::string& path) { return HostPath("\\\\?\\" + path).wstring(); }
std::string NameOf(const std::filesystem::directory_entry& entry) {
  const std::u8string name = entry.path().filename().u8string();
  return {name.begin(), name.end()};
}

}  // namespace

struct TestPc::Ground {
  explicit Ground(std::string scratch_key, std::string scratch_folder)
      : key(std::move(scratch_key)), folder(std::move(scratch_folder)) {
    char current[MAX_PATH] = "";
    GetCurrentDirectoryA(MAX_PATH, current);
    former_folder = current;
  }
  ~Ground() {
    if (redirected) {
      for (const HKEY root : kRoots) RegOverridePredefKey(root, nullptr);
    }
    SHDeleteKeyA(HKEY_CURRENT_USER, key.c_str());
    SetCurrentDirectoryA(former_folder.c_str());
    RemoveDeepFiles();
    std::error_code ignored;
    const std::filesystem::path path = HostPath(folder);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path, ignored)) {
      SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    std::filesystem::remove_all(path, ignored);
  }
  Ground(const Ground&) = delete;
  Ground& operator=(const Ground&) = delete;

  // With the folders that hold nothing else.
  void RemoveDeepFiles() const {
    for (std::wstring path : deep_files) {
      DeleteFileW(path.c_str());
      do {
        path.resize(path.find_last_of(L'\\'));
      } while (RemoveDirectoryW(path.c_str()) != FALSE);
    }
  }

  // All three are opened before the first is redirected: they lie under one of them.
  void Redirect() {
    std::array<UniqueKey, 3> scratch;
    for (std::size_t i = 0; i < scratch.size(); ++i) {
      HKEY made = nullptr;
      const LSTATUS status =
          RegCreateKeyA(HKEY_CURRENT_USER, (key + '\\' + kRootNames[i]).c_str(), &made);
      if (status != ERROR_SUCCESS) throw std::runtime_error("no scratch key");
      scratch[i] = UniqueKey(made);
    }
    for (std::size_t i = 0; i < scratch.size(); ++i) {
      // No test may go on with the real registry.
      if (RegOverridePredefKey(kRoots[i], scratch[i].Get()) != ERROR_SUCCESS) {
        throw std::runtime_error("the registry can't be redirected");
      }
    }
    redirected = true;
  }

  std::string key;
  std::string folder;
  std::string former_folder;
  bool redirected = false;
  std::vector<std::wstring> deep_files;
};

TestPc::TestPc(Registry registry) {
  static int count = 0;
  const std::string unique = std::to_string(GetCurrentProcessId()) + '-' + std::to_string(++count);
  folder_ = "C:\\tm-" + unique;
  live_key_ = "Software\\TidemarkTest-" + unique;
  ground_ = std::make_unique<Ground>(live_key_, folder_);
  if (registry == Registry::kRedirected) ground_->Redirect();
  MakeFolder(program_folder() + "\\backup");
  SetCurrentDirectoryA(program_folder().c_str());
}

TestPc::~TestPc() = default;

std::vector<std::string> TestPc::FileNames(const std::string& path) {
  std::vector<std::string> names;
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(HostPath(path), ignored)) {
    if (entry.is_regular_file()) names.push_back(NameOf(entry));
  }
  std::sort(names.begin(), names.end());
  return names;
}

void TestPc::MakeDeepFile(const std::string& path) {
  std::wstring& file = ground_->deep_files.emplace_back(DeepPath(path));
  for (auto end = file.find(L'\\', 7); end != std::wstring::npos; end = file.find(L'\\', end + 1)) {
    CreateDirectoryW(file.substr(0, end).c_str(), nullptr);
  }
  const UniqueFile made(CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
  EXPECT_TRUE(made) << path;
}
bool TestPc::DeepFileExists(const std::string& path) {
  return GetFileAttributesW(DeepPath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool TestPc::CanFault() { return false; }
void TestPc::SetTime(const SYSTEMTIME&) {}
void TestPc::SetVariable(const std::string& name, const std::string& value) {
  SetEnvironmentVariableA(name.c_str(), value.c_str());
}
void TestPc::DenyKey(const std::string&, REGSAM) {}
void TestPc::DenyFile(const std::string&) {}
void TestPc::AllowAll() {}
void TestPc::FillDisk(std::optional<unsigned>) {}
void TestPc::SetDrive(char, const std::string&) {}
std::vector<std::string> TestPc::Recycled() { return {}; }
void TestPc::RestoreRecycled() {}
void TestPc::SlowEditor(unsigned, unsigned) {}
void TestPc::SetLocale(const std::string&, const std::string&) {}
void TestPc::RefuseLogonTasks(HRESULT) {}
std::string TestPc::RegisteredLogonTask() { return {}; }
std::vector<std::string> TestPc::OpenedByShell() { return {}; }

}  // namespace tidemark
