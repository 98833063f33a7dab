#include "platform/hosted/hives/hive_replacement.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/hosted/hosted_pc.h"
#include "tests/support/temporary_folder.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

const std::string kOld(100'000, 'o');
const std::string kNew(200'000, 'n');

const char* step_to_stop_at = nullptr;

// A folder with a hive and a log, which is replaced while something goes wrong.
class Replacement {
 public:
  Replacement() {
    std::ofstream(hive_) << kOld;
    std::ofstream(hive_.string() + ".LOG1") << "log";
  }

  void Run() const {
    NewHive({hive_, hive_.string() + ".tidemark-1", {hive_.string() + ".LOG1"}}, kNew).PutInPlace();
  }

  // In a process of its own, which ends at that step as if killed.
  void KilledAt(const char* step) const {
    step_to_stop_at = step;
    before_hive_step = [](const char* now) {
      if (std::strcmp(now, step_to_stop_at) == 0) _exit(0);
    };
    const pid_t child = fork();
    if (child == 0) {
      Run();
      _exit(1);
    }
    int status = 1;
    waitpid(child, &status, 0);
    before_hive_step = nullptr;
    EXPECT_EQ(status, 0) << step;
  }

  // Which of the files there are, and whose the hive's and the former one's bytes are.
  std::string State() const {
    std::string state;
    for (const char* ending : {"", ".tidemark-1", ".LOG1", ".LOG1.tidemark-1", ".tidemark-new"}) {
      std::ifstream file(hive_.string() + ending, std::ios::binary);
      if (!file) continue;
      const std::string bytes(std::istreambuf_iterator<char>(file), {});
      const char* what = bytes == kOld ? "old" : bytes == kNew ? "new" : "";
      state += std::string("hive") + ending + "=" + what + " ";
    }
    return state;
  }

 private:
  TemporaryFolder folder_;
  fs::path hive_ = folder_.path() / "SOFTWARE";
};

TEST(HiveReplacement, KeepsTheFormerHiveAndMovesItsLogsAside) {
  const Replacement replacement;
  replacement.Run();
  EXPECT_EQ(replacement.State(), "hive=new hive.tidemark-1=old hive.LOG1.tidemark-1= ");
}

TEST(HiveReplacement, KilledAtAnyStepLeavesTheOldHiveOrTheNewOneWithoutLogsOfTheOther) {
  const struct {
    const char* step;
    const char* state;
  } kCases[] = {
      {"write", "hive=old hive.LOG1= "},
      {"keep", "hive=old hive.LOG1= hive.tidemark-new=new "},
      {"log", "hive=old hive.tidemark-1=old hive.LOG1= hive.tidemark-new=new "},
      {"rename", "hive=old hive.tidemark-1=old hive.LOG1.tidemark-1= hive.tidemark-new=new "},
      {"done", "hive=new hive.tidemark-1=old hive.LOG1.tidemark-1= "},
  };
  for (const auto& [step, state] : kCases) {
    const Replacement replacement;
    replacement.KilledAt(step);
    EXPECT_EQ(replacement.State(), state) << step;
  }
}

TEST(HiveReplacement, FailedLeavesTheFolderAsItWas) {
  const Replacement full_disk;
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit little{150'000, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &little);
  EXPECT_THROW(full_disk.Run(), HostedPcError);
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(full_disk.State(), "hive=old hive.LOG1= ");

  for (const char* step : {"keep", "log", "rename"}) {
    const Replacement replacement;
    step_to_stop_at = step;
    before_hive_step = [](const char* now) {
      if (std::strcmp(now, step_to_stop_at) == 0) throw HostedPcError("a fault");
    };
    EXPECT_THROW(replacement.Run(), HostedPcError);
    before_hive_step = nullptr;
    EXPECT_EQ(replacement.State(), "hive=old hive.LOG1= ") << step;
  }
}

}  // namespace
}  // namespace tidemark::hosted
