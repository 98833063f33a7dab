#include "platform/hosted/hosted_pc.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

#include "platform/hosted/file_replacement.h"
#include "platform/hosted/folder_lock.h"
#include "platform/single_instance.h"
#include "platform/unique_handle.h"
#include "tests/support/temporary_folder.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

class HostedPcTest : public testing::Test {
 public:
  HostedPcTest() { fs::create_directories(root_ / "drives/C"); }

 protected:
  void Put(const std::string& name, const std::string& text) const {
    std::ofstream(root_ / name, std::ios::binary) << text;
  }
  std::string Registry() const {
    std::stringstream text;
    text << std::ifstream(root_ / "registry.reg", std::ios::binary).rdbuf();
    return text.str();
  }
  // What the PC refuses to start with, without the folder's name; empty when it starts.
  std::string Refusal() const {
    try {
      const HostedPc pc(root_);
      return {};
    } catch (const HostedPcError& error) {
      const std::string what = error.what();
      EXPECT_EQ(what.find('\n'), std::string::npos) << what;
      EXPECT_TRUE(what.starts_with(root_.string())) << what;
      return what.substr(root_.string().size());
    }
  }
  static void MakeKey(const char* name) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyA(HKEY_CURRENT_USER, name, &key), ERROR_SUCCESS);
    const UniqueKey owner(key);
  }

  TemporaryFolder folder_;
  const fs::path& root_ = folder_.path();
};

TEST_F(HostedPcTest, ABadFolderGivesOneClearLine) {
  const struct {
    const char* ini;
    const char* refusal;
  } kInis[] = {
      {"", ""},
      {"\xEF\xBB\xBF; comment\r\n[Environment]\r\nA=b=c\r\n[drives]\nE=cdrom not ready\n", ""},
      {"[nope]", "/pc.ini:1: unknown section [nope]"},
      {"\nA=b", "/pc.ini:2: a line before the first section"},
      {"[user]\nsid", "/pc.ini:2: neither a section nor name=value"},
      {"[user]\n\nage=3", "/pc.ini:3: unknown key \"age\""},
      {"[drives]\nC=fixed label=My Disk\nN=Network Not Ready Label=x Share=\\\\a\\b\nR=ramdisk\n",
       ""},
      {"[drives]\nC=fixed share=\\\\a\\b", "/pc.ini:2: a share of what is no network drive"},
      {"[drives]\nX=network error=53 label=x\n", ""},
      {"[drives]\nX=network error=none", "/pc.ini:2: not a platform's error number"},
      {"[drives]\nC=tape", "/pc.ini:2: unknown drive kind \"tape\""},
      {"[editor]\nduration=-1", "/pc.ini:2: not a number of milliseconds"},
      {"[user]\nname=\xFF", "/pc.ini:2: not UTF-8 text"},
  };
  for (const auto& [ini, refusal] : kInis) {
    Put("pc.ini", ini);
    EXPECT_EQ(Refusal(), refusal);
  }
  fs::remove(root_ / "pc.ini");
  Put("registry.reg", "REGEDIT4\n\nnonsense\n");
  EXPECT_TRUE(Refusal().starts_with("/registry.reg:3: ")) << Refusal();
  Put("registry.reg", "REGEDIT4\n\n");
  EXPECT_EQ(Refusal(), "");
  fs::permissions(root_ / "registry.reg", fs::perms::owner_read);
  EXPECT_EQ(Refusal(), "/registry.reg: is read-only, so what is changed could not be kept");
  fs::remove(root_ / "registry.reg");
  fs::remove_all(root_ / "drives");
  EXPECT_EQ(Refusal(),
            ": is no hosted PC: it holds neither registry.reg nor drives, and no Windows");
  fs::remove_all(root_);
  EXPECT_EQ(Refusal(), ": there is no such folder");
}

TEST_F(HostedPcTest, APulledPlugLeavesTheOldRegistryWhole) {
  {
    HostedPc pc(root_);
    MakeKey("Old");
    pc.ShutDown();
    MakeKey("Lost");
  }
  const std::string before = Registry();
  const pid_t child = fork();
  if (child == 0) {
    HostedPc pc(root_);
    MakeKey("New");
    before_rename = [] { _exit(42); };
    pc.ShutDown();
    _exit(0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_EQ(WEXITSTATUS(status), 42);
  EXPECT_TRUE(fs::exists(root_ / "registry.reg.new"));
  EXPECT_EQ(Registry(), before);
  // What was left lying does no harm to the next time.
  HostedPc pc(root_);
  EXPECT_EQ(SHDeleteKeyA(HKEY_CURRENT_USER, "Old"), ERROR_SUCCESS);
  EXPECT_EQ(SHDeleteKeyA(HKEY_CURRENT_USER, "New"), ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(SHDeleteKeyA(HKEY_CURRENT_USER, "Lost"), ERROR_FILE_NOT_FOUND);
  MakeKey("Newer");
  pc.ShutDown();
  EXPECT_FALSE(fs::exists(root_ / "registry.reg.new"));
  EXPECT_NE(Registry(), before);
}

TEST_F(HostedPcTest, ARegistryThatCantBeSavedStaysAsItWas) {
  Put("registry.reg", "REGEDIT4\n\n");
  HostedPc pc(root_);
  MakeKey("New");
  fs::create_directory(root_ / "registry.reg.new");
  EXPECT_THROW(pc.ShutDown(), HostedPcError);
  EXPECT_EQ(Registry(), "REGEDIT4\n\n");
}

TEST_F(HostedPcTest, OnlyOneProgramRunsOnAPc) {
  {
    const FolderLock another(root_);
    HostedPc pc(root_);
    EXPECT_TRUE(SingleInstance().AnotherIsRunning());
    MakeKey("Made");
    pc.ShutDown();
    EXPECT_FALSE(fs::exists(root_ / "registry.reg")) << "the other's registry is left alone";
  }
  HostedPc pc(root_);
  EXPECT_FALSE(SingleInstance().AnotherIsRunning());
  EXPECT_FALSE(FolderLock(root_).taken());
}

}  // namespace
}  // namespace tidemark::hosted
