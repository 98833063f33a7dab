#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "platform/hosted/clock.h"
#include "platform/hosted/file_store.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/logon_tasks.h"
#include "platform/hosted/pc_settings.h"
#include "platform/hosted/recycle_bin.h"
#include "platform/hosted/registry_editor.h"
#include "platform/hosted/registry_store.h"
#include "platform/hosted/shell_calls.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

namespace fs = std::filesystem;

fs::path WithSystemFolders(const fs::path& host) {
  for (const char* const folder : {"Windows/Fonts", "Windows/system32", "Program Files"}) {
    fs::create_directories(host / "drives/C" / folder);
  }
  return host;
}

// Of what the test made itself, so in the very letters it asks for.
fs::path HostPath(const fs::path& host, std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  return host / "drives/C" / path.substr(3);
}

}  // namespace

struct TestPc::Ground {
  TemporaryFolder host;
  hosted::HostedPc pc{WithSystemFolders(host.path())};
};

TestPc::TestPc(Registry) : ground_(std::make_unique<Ground>()) {
  static int count = 0;
  const std::string unique = std::to_string(getpid()) + '-' + std::to_string(++count);
  folder_ = "C:\\tm-" + unique;
  live_key_ = "Software\\TidemarkTest-" + unique;
  hosted::ForgetOpenedByShell();
  hosted::TheLogonTasks() = {};
  SetTime({2006, 11, 6, 4, 13, 5, 9, 0});
  MakeFolder(program_folder() + "\\backup");
  ground_->pc.files().SetCurrentFolder(program_folder());
}

TestPc::~TestPc() = default;

std::vector<std::string> TestPc::FileNames(const std::string& path) {
  std::vector<std::string> names;
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(HostPath(ground_->host.path(), path), ignored)) {
    if (entry.is_regular_file()) names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

void TestPc::MakeDeepFile(const std::string& path) {
  const fs::path file = HostPath(ground_->host.path(), path);
  fs::create_directories(file.parent_path());
  EXPECT_TRUE(std::ofstream(file) << "x");
}
bool TestPc::DeepFileExists(const std::string& path) {
  return fs::exists(HostPath(ground_->host.path(), path));
}

bool TestPc::CanFault() { return true; }
void TestPc::SetTime(const SYSTEMTIME& time) { ground_->pc.clock().SetLocalTime(time); }
void TestPc::SetVariable(const std::string& name, const std::string& value) {
  ground_->pc.settings().SetVariable(name, value);
}
void TestPc::DenyKey(const std::string& full_name, REGSAM rights) {
  ground_->pc.registry().DenyKey(full_name, rights);
}
void TestPc::DenyFile(const std::string& path) { ground_->pc.files().DenyFile(path); }
void TestPc::AllowAll() {
  ground_->pc.registry().AllowAll();
  ground_->pc.files().AllowAllFiles();
}
void TestPc::FillDisk(std::optional<unsigned> bytes_left) {
  ground_->pc.files().FillDisk(bytes_left);
}
std::vector<std::string> TestPc::OpenedByShell() {
  std::vector<std::string> opened;
  for (const hosted::ShellRequest& request : hosted::OpenedByShell()) {
    opened.push_back(request.verb + '|' + request.file + '|' + request.parameters + '|' +
                     request.folder + '|' + std::to_string(request.show));
  }
  return opened;
}
void TestPc::RefuseLogonTasks(HRESULT status) { hosted::TheLogonTasks().status = status; }
std::string TestPc::RegisteredLogonTask() {
  const std::optional<LogonTask>& task = hosted::TheLogonTasks().task;
  return task ? task->file + '|' + task->arguments : std::string();
}
void TestPc::SetDrive(char letter, const std::string& description) {
  hosted::PcDrive& drive = ground_->pc.settings().drives[letter];
  EXPECT_EQ(hosted::ReadDrive(description, drive), "");
  ground_->pc.files().SetDriveStatus(letter, drive.status);
  fs::create_directories(ground_->host.path() / "drives" / std::string(1, letter));
}
std::vector<std::string> TestPc::Recycled() {
  std::vector<std::string> paths;
  for (const auto& item : ground_->pc.recycle_bin().List()) paths.push_back(item.path);
  return paths;
}
void TestPc::RestoreRecycled() {
  for (auto left = Recycled().size(); left > 0; --left) {
    EXPECT_EQ(ground_->pc.recycle_bin().Restore(0), ERROR_SUCCESS);
  }
}
void TestPc::SlowEditor(unsigned milliseconds, unsigned start_up_ms) {
  ground_->pc.editor().SetDuration(milliseconds);
  ground_->pc.editor().SetStartUp(start_up_ms);
}
void TestPc::SetLocale(const std::string& short_date, const std::string& long_time) {
  ground_->pc.settings().short_date = short_date;
  ground_->pc.settings().long_time = long_time;
}

}  // namespace tidemark
