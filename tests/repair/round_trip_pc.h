// PCs filled by chance and scanned, the same ones each time, for repairs and their ways back.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "helpers/modShortcut.h"
#include "helpers/system_helpers.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_editor.h"
#include "scan/scan.h"
#include "shell/status.h"
#include "tests/repair/random_registry.h"
#include "tests/repair/undo_model.h"
#include "tests/support/window_pc.h"

namespace tidemark {

inline constexpr REGSAM kDelete = 0x10000;

// A random PC, scanned.
struct RoundTripPc : WindowPc {
  // With `exact`, also what no undo file can carry: names and data of all kinds, links of one name.
  explicit RoundTripPc(unsigned seed, bool exact = false) : registry(pc, seed) {
    pc.MakeFile(pc.program_folder() + "\\tidemark.exe");  // which starts with the PC
    MakeLinks(Desktop());
    registry.Fill();
    if (exact) {
      for (const std::string& folder : LinkFolders()) MakeLinks(folder);
      SetFileAttributesA((LinkFolders().back() + "\\gone.lnk").c_str(),
                         FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
      registry.FillExactly();
    }
    const bool eight_bit = registry.Chance(3) == 0;
    hosted::HostedPc::Current().editor().SetEightBit(eight_bit);
    SetInitValues(window);
    cmdScan_Click(window);
    before = TakeSnapshot();
    model.emplace(before, eight_bit);
  }

  void MakeLinks(const std::string& folder) {
    pc.MakeFolder(folder);
    for (const char* const name : {"here", "gone"}) {
      std::string link = folder + "\\" + name;
      EXPECT_TRUE(
          WriteShortcut(front_end, link, AskBeforeReplacing::kNo,
                        {.target = pc.folder() + "\\" + name + ".dll", .description = folder}));
    }
  }
  static std::vector<std::string> LinkFolders() {
    const std::string menu = GetSpecialFolderPath(CSIDL_STARTMENU);
    return {Desktop(), menu, menu + "\\Programs", GetSpecialFolderPath(CSIDL_COMMON_STARTMENU)};
  }

  const ListItem& Row(int index) const { return *window.lvInvalidLoc.Item(index); }
  int Rows() const { return window.lvInvalidLoc.Count(); }
  // One of the findings; behind its repair, the action.
  int AtSomeRow(std::function<void()> action) {
    const int row = 1 + static_cast<int>(registry.Chance(static_cast<unsigned>(Rows())));
    front_end.AtYield(front_end.yields() + row, std::move(action));
    return row;
  }
  static std::string Desktop() { return GetSpecialFolderPath(CSIDL_DESKTOP); }
  std::string UndoFile() const { return pc.program_folder() + "\\backup\\undo_060411_130509.reg"; }
  void ModelRepairs(int rows) {
    for (int index = 1; index <= rows; ++index) model->Repair(Row(index));
  }

  RandomRegistry registry;
  RegistrySnapshot before;
  std::optional<UndoModel> model;
};

// The PCs lie in memory where they can: on a busy disk the tests would do little but wait.
class RoundTrip : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    const char* const folder = std::getenv("TMPDIR");
    former = folder == nullptr ? "" : folder;
    if (access("/dev/shm", W_OK) == 0) setenv("TMPDIR", "/dev/shm", /*overwrite=*/1);
  }
  static void TearDownTestSuite() {
    former.empty() ? unsetenv("TMPDIR") : setenv("TMPDIR", former.c_str(), /*overwrite=*/1);
  }
  static inline std::string former;
};

// Runs the test on so many random PCs, the same ones each time.
template <class Test>
void OnRandomPcs(unsigned count, Test&& test) {
  for (unsigned seed = 1; seed <= count && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    auto on = std::make_unique<RoundTripPc>(seed);
    test(on);
  }
}

}  // namespace tidemark
