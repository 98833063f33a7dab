#include "scan/walkers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "helpers/system_helpers.h"
#include "registry/mdlRegistry.h"
#include "scan/scan.h"
#include "scan/walk.h"
#include "tests/support/settings.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

using Rows = std::vector<std::string>;

struct ClassCase {
  const char* key;   // below CLSID\{1}
  const char* name;  // of the value
  const char* data;
  const char* reason;  // empty: no finding
};

TEST(ScanClassKey, FollowsTheChainForEachValue) {
  const std::vector<ClassCase> cases = {
      {"", "", "B:\\gone folder\\x.dll", "Invalid path"},
      {"Other", "TypeLib", "Q:\\gone folder\\x.dll", ""},
      {"InprocServer32", "", "bare.dll", ""},
      {"TypeLib", "", "", "no value for TypeLib"},
      {"TYPELIB", "", "{GONE}", "Points to missing TypeLib"},
      {"TypeLib", "", "{known}", ""},
      {"TypeLib", "", "GONE", ""},
      {"CLSID", "", "", "No value for CLSID"},
      {"CLSID", "", "{GONE}", "Points to missing CLSID"},
      {"ProgID", "", "", "Points to missing progid"},
      {"VersionIndependentProgID", "", "", "Points to missing progid"},
      {"ProgID", "", "Gone.Type", "Points to missing progid"},
      {"ProgID", "", "Known.Type", ""},
      {"InprocServer32", "", "", "Empty InprocServer32"},
      {"Other", "Clsid", "", "Empty CLSID"},
      {"Other", "clsid", "{GONE}", ""},
      {"Other", "TypeLib", "{GONE}", "Point to Invalid TypeLib"},
      {"Other", "ProgID", "Known.Type", "Point to Invalid ProgID"},
      {"Other", "ProgID", "Listed.Type", ""},
      {"Other", "InprocServer32", "", "Empty InprocServer32"},
      {"Other", "InprocServer", "", "Empty InprocServer"},
      {"Mstcp settings", "InprocServer", "", ""},
      {"Mstcp settings\\Other", "InprocServer", "", "Empty InprocServer"},
  };
  WindowPc on;
  on.window.IgnoreList = {};  // which would drop the MSTCP cases itself
  on.pc.MakeKey(HKEY_CLASSES_ROOT, "TYPELIB\\{KNOWN}");
  on.pc.MakeKey(HKEY_CLASSES_ROOT, "Known.Type");
  on.pc.MakeKey(HKEY_CLASSES_ROOT, "Progid\\Listed.Type");
  int number = 0;
  for (const ClassCase& one : cases) {
    const std::string root = "CLSID\\{1}\\" + std::to_string(++number);
    const std::string key = *one.key == '\0' ? root : root + "\\" + one.key;
    on.pc.SetText(HKEY_CLASSES_ROOT, key, one.name, one.data);
    on.window.lvInvalidLoc.Clear();
    ScanClassKey(on.window, HKEY_CLASSES_ROOT, root);
    const Rows expected =
        *one.reason == '\0' ? Rows{} : Rows{std::string(one.name) + "|" + one.reason};
    EXPECT_EQ(on.NamesAndReasons(), expected) << one.key << " / " << one.name << " / " << one.data;
  }
}

TEST(Walk, TellsPathsToCheckAndTheClassTreesFromTheRest) {
  for (const char* path : {"A:\\x", "p:\\x", ":\\x", "-x \"C:\\y", "Q C:\\"}) {
    EXPECT_TRUE(HoldsPathToCheck(path)) << path;
  }
  for (const char* none : {"Q:\\x", "Q:\\x C:\\y", "1:\\x", "C:/x", "C:x", "x", ""}) {
    EXPECT_FALSE(HoldsPathToCheck(none)) << none;
  }
  for (const char* tree : {"x\\Software\\Classes\\y", "Interface", "typelib", "CLSID"}) {
    EXPECT_TRUE(IsInClassTree(tree)) << tree;
  }
  for (const char* other : {"Software", "Interface\\x", "CLSID2", "", ".a"}) {
    EXPECT_FALSE(IsInClassTree(other)) << other;
  }
}

TEST(Walkers, PassOverAValueThatIsGoneOrWhoseNameDoesNotFit) {
  WindowPc on;
  const std::string key = "CLSID\\{1}\\InprocServer32";
  on.pc.SetText(HKEY_CLASSES_ROOT, key, "", GetWindowsDir());
  on.pc.SetText(HKEY_CLASSES_ROOT, key, "ThreadingModel", "Both");
  // The values are counted behind the first yield.
  on.front_end.AtYield(2, [&] { DeleteRegValue(HKEY_CLASSES_ROOT, key, "ThreadingModel"); });
  ScanClassKey(on.window, HKEY_CLASSES_ROOT, key);
  EXPECT_EQ(on.NamesAndReasons(), Rows{}) << "a value that has gone is no empty default value";
  // Asked for by the name that came, none, the second value's data would be the default value's.
  on.pc.SetText(HKEY_CLASSES_ROOT, "Long", "", "C:\\gone folder\\gone.exe");
  on.pc.SetText(HKEY_CLASSES_ROOT, "Long", std::string(300, 'n'), "Both");
  for (const auto& [walker, rows] : {std::pair{&ScanClassKey, 1},
                                     {ScanPathKey, 1},
                                     {ScanSharedDllKey, 0},
                                     {ScanFontKey, 1},
                                     {ScanAssocKey, 1}}) {
    on.window.lvInvalidLoc.Clear();
    walker(on.window, HKEY_CLASSES_ROOT, "Long");
    EXPECT_EQ(on.window.lvInvalidLoc.Count(), rows);
  }
}

TEST(ScanPathKey, ReportsWhatIsGoneInAnyDepthInRegistryOrder) {
  WindowPc on;
  on.window.IgnoreList = {};
  const std::string file = on.pc.folder() + "\\there.exe";
  on.pc.MakeFile(file);
  const std::string gone = on.pc.folder() + "\\gone.exe";
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "a good", file);
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "b gone", gone);
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "c passed over", "Q:\\gone.exe");
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "d expand", gone, REG_EXPAND_SZ);
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "e bare", "gone.exe");
  on.pc.SetBinary(HKEY_CURRENT_USER, kRun, "f bytes", "C:\\gone");
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "g mstcp", gone);
  on.pc.SetText(HKEY_CURRENT_USER, kRun + "\\Sub\\Deep", "", gone);
  on.pc.SetText(HKEY_CURRENT_USER, kRun + "\\x MsTcp", "y", gone);
  ScanPathKey(on.window, HKEY_CURRENT_USER, kRun);
  EXPECT_EQ(WindowPc::Rows(on.window.lvInvalidLoc, {0, kValueName, kValueType}),
            (Rows{"HKEY_CURRENT_USER\\" + kRun + "|b gone|1",
                  "HKEY_CURRENT_USER\\" + kRun + "|d expand|2",
                  "HKEY_CURRENT_USER\\" + kRun + "|g mstcp|1",
                  "HKEY_CURRENT_USER\\" + kRun + "\\Sub\\Deep||1"}));
  EXPECT_EQ(on.window.ProblemCount, 4);
}

TEST(ScanAssocRoot, FindsFileTypesThatAreMissingEmptyOrBroken) {
  WindowPc on;
  const auto extension = [&](const char* name, const char* type) {
    on.pc.SetText(HKEY_CLASSES_ROOT, name, "", type);
  };
  extension(".a", "Gone.Type");
  extension(".b", "Gone.Type");
  extension(".c", "CLSID");
  extension(".d", "");
  extension(".e", "Broken.Type");
  extension("no dot", "Gone.Type");
  on.pc.MakeKey(HKEY_CLASSES_ROOT, "Broken.Type\\empty sub-key");
  on.pc.SetText(HKEY_CLASSES_ROOT, ".a\\ShellNew", "FileName", on.pc.folder() + "\\gone.doc");
  on.pc.SetText(HKEY_CLASSES_ROOT, "Broken.Type\\shell\\open\\command", "",
                on.pc.folder() + "\\gone.exe %1");
  on.pc.MakeKey(HKEY_CLASSES_ROOT, "CLSID");
  ScanAssocRoot(on.window, HKEY_CLASSES_ROOT, "");
  EXPECT_EQ(WindowPc::Rows(on.window.lvInvalidLoc, {0, kReason, kValueType}),
            (Rows{"HKEY_CLASSES_ROOT\\.a\\ShellNew|Invalid path|1",
                  "HKEY_CLASSES_ROOT\\Gone.Type|No asscociation|1",
                  "HKEY_CLASSES_ROOT\\Gone.Type|No asscociation|1",
                  "HKEY_CLASSES_ROOT\\Broken.Type\\shell\\open\\command|Invalid path|1"}));
}

TEST(Walkers, StopAtTheNextItem) {
  for (const auto walker : {ScanPathKey, ScanUninstallKey, ScanClassRoot, ScanClassKey,
                            ScanSharedDllKey, ScanFontKey, ScanAssocRoot, ScanAssocKey}) {
    WindowPc on;
    const std::string gone = on.pc.folder() + "\\gone.exe";
    for (int number = 0; number < 10; ++number) {
      const std::string extension = "." + std::to_string(number);
      const std::string key = kRun + "\\" + extension;
      on.pc.SetText(HKEY_CURRENT_USER, key, "UnInstallString", gone);
      on.pc.SetText(HKEY_CURRENT_USER, key, gone, gone);
      on.pc.SetText(HKEY_CURRENT_USER, key, "", "Gone.Type");
      on.pc.SetText(HKEY_CURRENT_USER, extension, "", "Gone.Type");  // where its type is looked up
    }
    on.front_end.When([&on] { return on.window.lvInvalidLoc.Count() == 3; },
                      [&on] { on.window.StopRequested = true; });
    walker(on.window, HKEY_CURRENT_USER, kRun);
    EXPECT_LE(on.window.lvInvalidLoc.Count(), 3 + (walker == ScanFontKey ? 1 : 0));
    EXPECT_TRUE(on.window.StopRequested) << "there was enough to find";
    const long yields = on.front_end.yields();
    walker(on.window, HKEY_CURRENT_USER, kRun);
    EXPECT_EQ(on.front_end.yields(), yields) << "a walk that is told to stop does nothing";
  }
}

TEST(Walkers, MoveTheBarByTheirOwnRules) {
  WindowPc on;
  // A key with 2 values and 3 sub-keys; the bar comes from 0 of 1.
  for (const char* name : {"a", "b"}) on.pc.SetText(HKEY_CURRENT_USER, "Bar", name, "x");
  for (const char* key : {"Bar\\1", "Bar\\2", "Bar\\3"}) on.pc.MakeKey(HKEY_CURRENT_USER, key);
  for (const auto& [walker, max] : {std::pair{&ScanPathKey, 6},
                                    {&ScanSharedDllKey, 6},
                                    {&ScanFontKey, 6},
                                    {&ScanUninstallKey, 4},
                                    {&ScanClassRoot, 3},
                                    {&ScanAssocRoot, 3},
                                    {&ScanClassKey, 1},
                                    {&ScanAssocKey, 1}}) {
    ScanKey(on.window, "no test's code");  // resets the bar and walks nothing
    walker(on.window, HKEY_CURRENT_USER, "Bar");
    EXPECT_EQ(on.window.pbarScan.Max(), max);
    EXPECT_EQ(on.window.pbarScan.Value(), max - 1);
  }
}

TEST(Walkers, PassOverWhatCannotBeRead) {
  WindowPc on;
  on.pc.SetBinary(HKEY_CURRENT_USER, kRun, "unknown type", "C:\\gone\\x.exe", 99);
  on.pc.SetText(HKEY_CURRENT_USER, kRun, std::string(255, 'n'), on.pc.folder() + "\\gone.exe");
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "big",
                on.pc.folder() + "\\gone.exe " + std::string(1 << 20, 'b'));
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "z \xC3\xA4\xE2\x82\xAC", on.pc.folder() + "\\gone.exe");
  if (on.pc.CanFault()) {
    on.pc.SetText(HKEY_CURRENT_USER, kRun + "\\Denied", "x", on.pc.folder() + "\\gone.exe");
    on.pc.DenyKey("HKEY_CURRENT_USER\\" + kRun + "\\Denied");
  }
  ScanPathKey(on.window, HKEY_CURRENT_USER, kRun);
  Rows names = WindowPc::Rows(on.window.lvInvalidLoc, {kValueName});
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (Rows{"big", std::string(255, 'n'), "z \xC3\xA4\xE2\x82\xAC"}));
}

}  // namespace
}  // namespace tidemark
