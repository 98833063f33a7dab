// The sample PC switched off: what is found on its disk, what a repair changes there, and how that
// is undone.
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "platform/hosted/capture.h"
#include "platform/hosted/disk/disk_users.h"
#include "platform/hosted/file_store.h"
#include "platform/hosted/folder_lock.h"
#include "platform/hosted/hives/hive_file.h"
#include "platform/hosted/hives/hive_replacement.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/pc_settings.h"
#include "platform/hosted/recycle_bin.h"
#include "platform/hosted/registry_store.h"
#include "platform/hosted/registry_text.h"
#include "platform/unique_handle.h"
#include "shell/main_window.h"
#include "shell/wiring.h"
#include "tests/platform/hosted/hives/hive_listing.h"
#include "tests/support/registry_snapshot.h"
#include "tests/support/sample_disk.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

namespace fs = std::filesystem;

std::string Bytes(const fs::path& file) {
  std::ostringstream bytes;
  bytes << std::ifstream(file, std::ios::binary).rdbuf();
  return bytes.str();
}

// All that lies on the disk, each with when it was changed last in any way.
std::map<std::string, std::string> Everything(const fs::path& disk) {
  std::map<std::string, std::string> found;
  for (const auto& entry : fs::recursive_directory_iterator(disk)) {
    struct stat status {};
    lstat(entry.path().c_str(), &status);
    std::ostringstream text;
    text << status.st_mode << ' ' << status.st_ino << ' ' << status.st_size << ' '
         << status.st_ctim.tv_sec << '.' << status.st_ctim.tv_nsec;
    found[entry.path()] = text.str();
  }
  return found;
}

// A session on the disk, with the window open and the first scan made.
struct Session {
  explicit Session(const SampleDisk& disk) : pc(disk.disk, disk.choice) {
    const std::string folder = pc.settings().program_folder;
    CreateDirectoryA((folder + "\\backup").c_str(), nullptr);
    fs::path host;
    pc.files().GetHostPath(folder, host);
    fs::copy_file(
        fs::path(TIDEMARK_SOURCE_FOLDER) / "sample/drives/C/Program Files/Tidemark/Ignorelst.ini",
        host / "Ignorelst.ini", fs::copy_options::skip_existing);
    window = std::make_unique<frmMain>(front_end, Application{.folder = folder});
    BindHandlers(*window);
    Main(*window);
  }
  std::vector<std::string> Findings() const {
    return WindowPc::Rows(window->lvInvalidLoc,
                          {kTestCode, 0, kValueName, kValueData, kReason, kValueType}, '\t');
  }

  hosted::HostedPc pc;
  ScriptFrontEnd front_end;
  std::unique_ptr<frmMain> window;
};

std::vector<std::string> ExpectedRows() {
  std::ifstream file(fs::path(TIDEMARK_SOURCE_FOLDER) / "tests/sample/expected_rows.txt");
  std::vector<std::string> rows;
  for (std::string line; std::getline(file, line);) {
    // Of these drives a disk does not tell whether they are there.
    if (line.find("S:\\") == std::string::npos && line.find("R:\\") == std::string::npos) {
      rows.push_back(line);
    }
  }
  return rows;
}

std::set<std::string> LinesOf(const hosted::HiveFile& hive) {
  std::istringstream listing(hosted::ListingOf(hive));
  std::set<std::string> lines;
  for (std::string line; std::getline(listing, line);) lines.insert(line);
  return lines;
}

class Disk : public testing::Test {
 protected:
  TemporaryFolder folder_;
  SampleDisk disk_{folder_.path()};
};

TEST_F(Disk, ShowsWhatTheRunningPcShowsAndChangesNothing) {
  const auto before = Everything(disk_.disk);
  {
    Session on(disk_);
    EXPECT_EQ(on.Findings(), ExpectedRows());
    EXPECT_EQ(on.pc.WhyReadOnly(), "");
    EXPECT_EQ(GetDriveTypeA("E:\\"), DRIVE_CDROM);
    EXPECT_EQ(on.pc.settings().drives.at('E').status, ERROR_NOT_READY);
    on.pc.ShutDown();
  }
  for (const auto& [path, status] : Everything(disk_.disk)) {
    const auto known = before.find(path);
    EXPECT_EQ(known == before.end() ? "nothing" : known->second, status) << path;
  }
  // What the program remembers of the disk lies beside the person.
  Session again(disk_);
  EXPECT_NE(again.window->LastRunDate, "");
}

TEST_F(Disk, ARepairTakesWhatItShowedAndTheFormerHivesComeBackWhole) {
  const std::vector<fs::path> hives = {
      disk_.config / "SOFTWARE", disk_.config / "SYSTEM", disk_.profile / "NTUSER.DAT",
      disk_.profile / "AppData/Local/Microsoft/Windows/UsrClass.dat"};
  std::vector<std::string> before;
  std::vector<std::set<std::string>> lines;
  for (const fs::path& hive : hives) {
    before.push_back(Bytes(hive));
    lines.push_back(LinesOf(hosted::ReadHive(hive)));
  }
  std::ofstream(disk_.config / "SOFTWARE.LOG1");
  std::string whole;
  {
    Session on(disk_);
    whole = hosted::ExportRegistryText(on.pc.registry(), "", ScriptForm::kVersion5);
    on.window->cmdFix.Click();
    on.pc.ShutDown();
  }
  for (std::size_t i = 0; i < hives.size(); ++i) {
    EXPECT_TRUE(Bytes(hives[i].string() + ".tidemark-1") == before[i]) << hives[i];
    const auto left = LinesOf(hosted::ReadHive(hives[i]));
    EXPECT_LT(left.size(), lines[i].size());
    for (const std::string& line : left) EXPECT_TRUE(lines[i].contains(line)) << line;
  }
  EXPECT_FALSE(fs::exists(disk_.config / "SOFTWARE.LOG1"));
  EXPECT_TRUE(fs::exists(disk_.config / "SOFTWARE.LOG1.tidemark-1"));
  {
    Session on(disk_);
    EXPECT_THAT(on.Findings(), testing::SizeIs(testing::Lt(10U)));
    EXPECT_EQ(on.pc.recycle_bin().List().size(), 10U) << "the shortcuts that led nowhere";
    hosted::ImportRegistryText(whole, on.pc.registry());
    on.pc.ShutDown();
  }
  for (std::size_t i = 0; i < hives.size(); ++i) {
    EXPECT_TRUE(Bytes(hives[i]) == before[i]) << hives[i];
  }
  EXPECT_TRUE(fs::exists(disk_.config / "SOFTWARE.LOG1"));
}

TEST_F(Disk, IsRefusedInOneLineAndLeftAlone) {
  const fs::path& software = disk_.config / "SOFTWARE";
  const fs::path classes = disk_.profile / "AppData/Local/Microsoft/Windows/UsrClass.dat";
  const auto refusal = [&](const fs::path& folder) -> std::string {
    try {
      const hosted::HostedPc pc(folder, disk_.choice);
      return pc.Notes()[0];
    } catch (const hosted::HostedPcError& error) {
      return error.what();
    }
  };
  const auto with = [&](const fs::path& file, std::size_t at, const std::string& bytes) {
    const bool was_there = fs::exists(file);
    const std::string sound = Bytes(file);
    std::string broken = sound;
    broken.replace(at, bytes.size(), bytes);
    std::ofstream(file, std::ios::binary) << broken;
    const std::string line = refusal(disk_.disk);
    if (was_there) std::ofstream(file, std::ios::binary) << sound;
    if (!was_there) fs::remove(file);
    return line;
  };
  using testing::HasSubstr;
  EXPECT_THAT(with(software, 4, "\x07"), HasSubstr("shut it down in full once"));
  EXPECT_THAT(with(disk_.profile / "NTUSER.DAT", 4100, "xxxx"), HasSubstr("NTUSER.DAT: "));
  EXPECT_THAT(with(disk_.disk / "hiberfil.sys", 0, "hibr"), HasSubstr("hibernated"));
  // Without the person's classes it is not known what hides the machine's.
  EXPECT_THAT(with(classes, 4100, "xxxx"), HasSubstr("left out"));
  disk_.choice.user = "Berta";
  EXPECT_THAT(refusal(disk_.disk), HasSubstr("there is no user Berta on it; those who are: anna"));
  disk_.choice.user = "ANNA";
  EXPECT_THAT(refusal(disk_.disk), HasSubstr("settings and undo files lie in"));
  const fs::path image = folder_.path() / "image";
  std::ofstream(image) << "\xEB\x58\x90-FVE-FS-";
  EXPECT_THAT(refusal(image), HasSubstr("BitLocker"));
  std::ofstream(image) << "\xEB\x52\x90NTFS    ";
  EXPECT_THAT(refusal(image), HasSubstr("not mounted"));
  EXPECT_THAT(refusal(disk_.disk / "Windows"), HasSubstr("name the one above"));
}

TEST(DiskUsers, IsWhoIsNamedOrElseLoggedOnLast) {
  hosted::RegistryStore registry(".DEFAULT");
  const std::string software = "REGEDIT4\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows";
  const auto profile = [&](const std::string& sid, const char* place, const char* time) {
    hosted::ImportRegistryText(software + " NT\\CurrentVersion\\ProfileList\\" + sid +
                                   "]\n\"ProfileImagePath\"=\"" + place +
                                   "\"\n\"LocalProfileLoadTimeHigh\"=dword:" + time + "\n",
                               registry);
  };
  profile("S-1-5-18", "C:\\\\System", "9");
  profile("S-1-5-19", "%SystemRoot%\\\\Local", "9");
  profile("S-1-5-21-1", "C:\\\\Users\\\\anna", "1");
  profile("S-1-5-21-2", "C:\\\\Users\\\\Bert", "2");
  profile("S-1-5-21-3.bak", "C:\\\\Users\\\\old", "3");
  const auto users = hosted::ReadDiskUsers(registry);
  const auto chosen = [&](const char* wanted) -> std::string {
    const auto* const user = hosted::ChooseDiskUser(users, registry, wanted);
    return user == nullptr ? "nobody" : user->name;
  };
  EXPECT_EQ(chosen(""), "Bert");
  EXPECT_EQ(chosen("ANNA") + chosen("s-1-5-21-1") + chosen("Local"), "annaannanobody");
  hosted::ImportRegistryText(software +
                                 "\\CurrentVersion\\Authentication\\LogonUI]\n"
                                 "\"LastLoggedOnUserSID\"=\"S-1-5-21-1\"\n",
                             registry);
  EXPECT_EQ(chosen(""), "anna");
}

TEST_F(Disk, ATestWhoseAnswerIsNotKnownIsNotRun) {
  const fs::path classes = disk_.profile / "AppData/Local/Microsoft/Windows/UsrClass.dat";
  fs::resize_file(classes, 5000);
  fs::remove_all(disk_.profile / "Desktop");
  const Session on(disk_);
  EXPECT_FALSE(fs::exists(disk_.profile / "Desktop")) << "made by a scan";
  const ListItem* const row = on.window->lvLocations.Item("CLSID");
  ASSERT_NE(row, nullptr);
  EXPECT_TRUE(row->SubItem(1) == "Not run: the user's classes can't be read");
  for (const std::string& finding : on.Findings()) {
    EXPECT_FALSE(finding.starts_with("CLSID") || finding.starts_with("IFA")) << finding;
  }
  EXPECT_THAT(on.Findings(), testing::Contains(testing::StartsWith("SHORTCUTS")));
}

TEST_F(Disk, IsLeftAsItIsWhileAnotherTidemarkWorksOnIt) {
  const hosted::FolderLock another(disk_.config);
  const std::string before = Bytes(disk_.profile / "NTUSER.DAT");
  hosted::HostedPc pc(disk_.disk, disk_.choice);
  EXPECT_FALSE(pc.IsSoleUser());
  EXPECT_EQ(SHDeleteKeyA(HKEY_CURRENT_USER, "Environment"), ERROR_SUCCESS);
  pc.ShutDown();
  EXPECT_TRUE(Bytes(disk_.profile / "NTUSER.DAT") == before);
}

TEST_F(Disk, AKillAtAnyStepOfARepairOrItsUndoLeavesOneWholeState) {
  const fs::path hive = disk_.profile / "NTUSER.DAT";
  const fs::path log = hive.string() + ".LOG1";
  const std::string before = Bytes(hive);
  std::ofstream{log};
  static int steps_left = 0;
  const auto change = [&](int steps, bool makes_key) {
    const pid_t child = fork();
    if (child == 0) {
      steps_left = steps;
      hosted::before_hive_step = [](const char*) {
        if (steps_left-- == 0) _exit(42);
      };
      hosted::HostedPc pc(disk_.disk, disk_.choice);
      HKEY key = nullptr;
      if (makes_key) {
        RegCreateKeyA(HKEY_CURRENT_USER, "Software\\Gone", &key);
      } else {
        SHDeleteKeyA(HKEY_CURRENT_USER, "Software\\Gone");
      }
      pc.ShutDown();
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WEXITSTATUS(status);
  };
  ASSERT_EQ(change(-1, true), 0);
  // What makes the key go again is an undo: the former hive comes back.
  for (const bool makes_key : {false, true}) {
    const std::string old_state = Bytes(hive);
    for (int step = 0, ended = 42; ended == 42; ++step) {
      ended = change(step, makes_key);
      ASSERT_TRUE(ended == 0 || ended == 42) << ended;
      ASSERT_TRUE(hosted::ReadHive(hive).report.writable()) << "step " << step;
      if (ended == 42 && Bytes(hive) != old_state) break;  // renamed: the new state
      EXPECT_TRUE(ended == 0 || !fs::exists(log) || Bytes(log).empty());
    }
    EXPECT_FALSE(Bytes(hive) == old_state);
    EXPECT_EQ(Bytes(hive) == before, !makes_key);
  }
}

TEST_F(Disk, AllOfASessionIsStoredOrNothingAndSeveralRepairsAreUndoneAtOnce) {
  const std::vector<fs::path> hives = {disk_.config / "SOFTWARE", disk_.profile / "NTUSER.DAT"};
  const auto bytes = [&] { return Bytes(hives[0]) + Bytes(hives[1]); };
  const auto change = [&](std::initializer_list<const char*> keys, bool makes) {
    hosted::HostedPc pc(disk_.disk, disk_.choice);
    for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
      for (const std::string key : keys) {
        HKEY made = nullptr;
        if (makes) RegCreateKeyA(root, ("Software\\" + key).c_str(), &made);
        if (!makes) SHDeleteKeyA(root, ("Software\\" + key).c_str());
      }
    }
    pc.ShutDown();
  };
  const std::string before = bytes();
  const auto files = Everything(disk_.config).size();
  static int renames = 0;
  hosted::before_hive_step = [](const char* step) {
    if (step == std::string("rename") && ++renames == 2) throw hosted::HostedPcError("a fault");
  };
  EXPECT_THROW(change({"One"}, true), hosted::HostedPcError);
  hosted::before_hive_step = nullptr;
  EXPECT_EQ(renames, 2);
  EXPECT_TRUE(bytes() == before);
  EXPECT_EQ(Everything(disk_.config).size(), files);
  change({"One"}, true);
  change({"Two"}, true);
  EXPECT_FALSE(bytes() == before);
  // As a repair that was killed leaves it.
  std::ofstream(disk_.config / "SOFTWARE.tidemark-new");
  EXPECT_EQ(hosted::HostedPc(disk_.disk, disk_.choice).FormerFiles().size(), 5U);
  change({"One", "Two"}, false);
  EXPECT_TRUE(bytes() == before);
}

TEST_F(Disk, ACaptureOfItIsAnOrdinaryPc) {
  {
    hosted::HostedPc pc(disk_.disk, disk_.choice);
    hosted::CapturePc(pc, folder_.path());
  }
  fs::create_directories(folder_.path() / "drives/C");
  hosted::HostedPc pc(folder_.path());
  EXPECT_EQ(*pc.settings().Variable("USERNAME"), "anna");
  for (const auto& [root, key] :
       {std::pair{HKEY_LOCAL_MACHINE, "SYSTEM\\CurrentControlSet\\Services"},
        std::pair{HKEY_CURRENT_USER, "Software\\Classes\\CLSID"}}) {
    HKEY opened = nullptr;
    EXPECT_EQ(RegOpenKeyExA(root, key, 0, KEY_READ, &opened), ERROR_SUCCESS) << key;
    const UniqueKey owner(opened);
  }
}

}  // namespace
}  // namespace tidemark
