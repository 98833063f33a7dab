// Scan, repair all, import the undo file: over random PCs, what comes back is the registry of
// before, but for what undo_model.h tells. The same with faults on the way.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "helpers/diagnostic_tests.h"
#include "helpers/modShortcut.h"
#include "helpers/system_helpers.h"
#include "platform/hosted/clock.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_editor.h"
#include "platform/hosted/registry_store.h"
#include "platform/program_start.h"
#include "repair/repair.h"
#include "scan/scan.h"
#include "shell/status.h"
#include "tests/repair/round_trip_pc.h"
#include "tests/repair/undo_model.h"
#include "tests/support/temporary_folder.h"

namespace tidemark {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

RegistrySnapshot AfterImport(const std::string& undo_file) {
  EXPECT_TRUE(StartProgram("regedit /s \"" + undo_file + "\"", WindowStyle::kMinimizedFocus));
  Sleep(5000);
  return TakeSnapshot();
}

// What is not the same in both, of the left one first.
std::vector<RegistrySnapshot::value_type> Differences(const RegistrySnapshot& left,
                                                      const RegistrySnapshot& right) {
  std::vector<RegistrySnapshot::value_type> differences;
  const auto collect = [&differences](const RegistrySnapshot& from, const RegistrySnapshot& other) {
    std::copy_if(from.begin(), from.end(), std::back_inserter(differences), [&](const auto& entry) {
      const auto found = other.find(entry.first);
      return found == other.end() || found->second != entry.second;
    });
  };
  collect(left, right);
  collect(right, left);
  return differences;
}
const std::vector<RegistrySnapshot::value_type> kNone;

TEST_F(RoundTrip, AnUndoFileGivesBackAllButWhatItDoesNotCarry) {
  std::size_t not_carried = 0;
  std::set<std::string> tests;
  OnRandomPcs(200, [&](auto& on) {
    for (int index = 1; index <= on->Rows(); ++index) {
      tests.insert(on->Row(index).SubItem(kTestCode).String());
    }
    on->ModelRepairs(on->Rows());
    cmdFix_Click(on->window);
    EXPECT_EQ(Differences(on->model->repaired(), TakeSnapshot()), kNone);
    EXPECT_EQ(on->pc.FileNames(on->Desktop()), std::vector{"here.lnk"s});
    EXPECT_TRUE(on->pc.FileExists(on->pc.program_folder() + "\\backup\\gone.lnk"));
    const RegistrySnapshot restored = AfterImport(on->UndoFile());
    EXPECT_EQ(Differences(on->model->Restored(), restored), kNone);
    not_carried += Differences(on->before, restored).size();
  });
  EXPECT_EQ(tests.size(), kDiagnosticTests.size());
  EXPECT_GT(not_carried, 0U);
}

int DenyEveryThird(RoundTripPc& on) {
  for (int index = 1; index <= on.Rows(); index += 3) {
    if (on.Row(index).SubItem(kTestCode) == "SHORTCUTS") continue;
    const std::string key = on.Row(index).Caption().String();
    on.pc.DenyKey(key, KEY_SET_VALUE | KEY_CREATE_SUB_KEY | kDelete);
    on.model->Deny(key);
  }
  return on.Rows();
}

int StopAtSomeRow(RoundTripPc& on) {
  return on.AtSomeRow([&on] { on.window.cmdStopFix.Click(); });
}

TEST_F(RoundTrip, WhatWasDeniedOrNotReachedStaysAndTheRestComesBack) {
  for (int (*prepare)(RoundTripPc&) : {DenyEveryThird, StopAtSomeRow}) {
    OnRandomPcs(25, [prepare](auto& on) {
      on->ModelRepairs(prepare(*on));
      cmdFix_Click(on->window);
      EXPECT_EQ(Differences(on->model->repaired(), TakeSnapshot()), kNone);
      on->pc.AllowAll();
      EXPECT_EQ(Differences(on->model->Restored(), AfterImport(on->UndoFile())), kNone);
    });
  }
}

TEST_F(RoundTrip, AReadOnlyUndoFileKeepsNothing) {
  OnRandomPcs(5, [](auto& on) {
    const std::string header = "REGEDIT4\r\n\r\n";
    on->pc.MakeFile(on->UndoFile(), header);
    SetFileAttributesA(on->UndoFile().c_str(), FILE_ATTRIBUTE_READONLY);
    on->ModelRepairs(on->Rows());
    cmdFix_Click(on->window);
    EXPECT_EQ(on->UndoText(), header);
    EXPECT_EQ(Differences(on->model->repaired(), AfterImport(on->UndoFile())), kNone);
  });
}

void FillDisk(RoundTripPc& on) { on.pc.FillDisk(on.registry.Chance(4) * on.registry.Chance(3000)); }
void SlowEditor(RoundTripPc& on) { on.pc.SlowEditor(10 + on.registry.Chance(30)); }

TEST_F(RoundTrip, AFullDiskOrASlowEditorLosesWholeRecordsAndAltersNone) {
  for (void (*prepare)(RoundTripPc&) : {FillDisk, SlowEditor}) {
    int lost = 0;
    OnRandomPcs(25, [&](auto& on) {
      prepare(*on);
      on->ModelRepairs(on->Rows());
      cmdFix_Click(on->window);
      EXPECT_EQ(Differences(on->model->repaired(), TakeSnapshot()), kNone);
      on->pc.FillDisk(std::nullopt);
      const RegistrySnapshot restored = AfterImport(on->UndoFile());
      for (const auto& entry : restored) {
        const auto found = on->before.find(entry.first);
        EXPECT_TRUE((found != on->before.end() && found->second == entry.second) ||
                    on->model->MayComeBackAs(entry))
            << entry.first << ' ' << entry.second;
      }
      for (const auto& [entry, value] : on->model->Restored()) {
        if (restored.contains(entry)) continue;
        ++lost;
        EXPECT_FALSE(on->model->repaired().contains(entry)) << entry;
        // The editor has no part in what is kept by itself.
        EXPECT_FALSE(prepare == SlowEditor && on->model->IsKeptAlone(entry)) << entry;
      }
    });
    EXPECT_GT(lost, 0);
  }
}

TEST_F(RoundTrip, AKilledProcessLeavesTheOldRegistryAndAnUndoFileThatFitsIt) {
  OnRandomPcs(25, [](auto& on) {
    struct Killed {};
    const fs::path folder = hosted::HostedPc::Current().folder();
    hosted::HostedPc::Current().registry().Save(folder / "registry.reg");
    on->ModelRepairs(on->AtSomeRow([] { throw Killed{}; }));
    EXPECT_THROW(cmdFix_Click(on->window), Killed);
    EXPECT_EQ(Differences(on->model->repaired(), TakeSnapshot()), kNone);
    // The folder as it was left; the PC's own end would delete it.
    const TemporaryFolder keeper;
    const fs::path left = keeper.path() / "killed";
    fs::rename(folder, left);
    const std::string undo_file = on->UndoFile();
    const RegistrySnapshot before = std::move(on->before);
    const UndoModel model = *std::move(on->model);
    on.reset();
    {
      hosted::HostedPc again(left);
      again.clock().SetLocalTime({2006, 11, 6, 4, 13, 6, 0, 0});
      EXPECT_EQ(Differences(before, TakeSnapshot()), kNone);
      EXPECT_EQ(Differences(model.Restored(before), AfterImport(undo_file)), kNone);
    }
  });
}

}  // namespace
}  // namespace tidemark
