// The two classes that no flow of the program uses, and the profile files that it does use.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "registry/cRegistry.h"
#include "registry/clsIni.h"
#include "registry/ini_access.h"
#include "tests/support/test_pc.h"
#include "toolkit/script_front_end.h"

namespace tidemark {
namespace {

using namespace std::string_literals;
using Bytes = std::vector<std::uint8_t>;

constexpr const char* kKey = "Software\\Made Up";

TEST(RegistryClass, StoresByTypeReadsBackAndRefusesWhatATypeCannotHold) {
  TestPc pc;
  pc.SetVariable("Made", "up");
  struct Case {
    DWORD type;
    RegistryData data;
    TestValue stored;
    RegistryData read;
  };
  for (const Case& one : {Case{REG_SZ, "%a b"s, {REG_SZ, "%a b\0"s}, "%a b"s},
                          {REG_SZ, "%Made%\\x"s, {REG_EXPAND_SZ, "%Made%\\x\0"s}, "up\\x"s},
                          {REG_BINARY, Bytes{1, 2}, {REG_BINARY, "\1\2"}, Bytes{1, 2, 0}},
                          {REG_DWORD, std::int32_t{-2}, {REG_DWORD, "\xFE\xFF\xFF\xFF"}, -2}}) {
    cRegistry::SetValueEx(HKEY_CURRENT_USER, kKey, "v", one.type, {}, one.data);
    EXPECT_EQ(pc.Value(HKEY_CURRENT_USER, kKey, "v"), one.stored);
    EXPECT_EQ(cRegistry::ValueEx(HKEY_CURRENT_USER, kKey, "v", 0, "none"s), one.read);
  }
  for (const DWORD type : {REG_BINARY, REG_DWORD, REG_MULTI_SZ}) {
    EXPECT_THROW(cRegistry::SetValueEx(HKEY_CURRENT_USER, kKey, "v", type, {}, "7"s),
                 RegistryError);
  }
  EXPECT_EQ(cRegistry::ValueEx(HKEY_CURRENT_USER, kKey, "missing", 0, "none"s),
            RegistryData("none"s));
}

TEST(RegistryClass, ListsMakesAndDeletes) {
  TestPc pc;
  cRegistry registry(HKEY_CURRENT_USER, kKey, "name", REG_SZ, {});
  for (const auto& [machine, kept] :
       {std::pair{"ab", ""}, {"\xC3\xA4\xC3\xB6", ""}, {"abc", "\\\\abc"}, {"", ""}}) {
    registry.SetMachine(machine);
    EXPECT_EQ(registry.Machine(), kept) << machine;
  }
  EXPECT_FALSE(registry.KeyExists());
  EXPECT_TRUE(registry.CreateKey());
  EXPECT_TRUE(registry.KeyExists());
  pc.SetText(HKEY_CURRENT_USER, kKey + "\\Sub"s, "", "");
  registry.SetValue("text"s);
  std::vector<std::string> names = {"old"};
  EXPECT_TRUE(registry.EnumerateValues(names));
  EXPECT_EQ(names, std::vector{"name"s});
  EXPECT_TRUE(registry.EnumerateSections(names));
  EXPECT_EQ(names, std::vector{"Sub"s});
  EXPECT_THROW(registry.DeleteKey(), RegistryError) << "it has a sub-key";
  EXPECT_TRUE(registry.DeleteValue());
  EXPECT_THROW(registry.DeleteValue(), RegistryError);
}

TEST(IniAccess, TheTwoWaysDifferInTheirLimits) {
  TestPc pc;
  ScriptFrontEnd front_end;
  const std::string file = pc.folder() + "\\a.ini";
  EXPECT_EQ(ReadIniValue("s", "k", file), "");
  EXPECT_TRUE(WriteIniValue("s", "k", "x", file));
  EXPECT_FALSE(WriteIniValue("s", "k", "x", pc.folder() + "\\gone\\a.ini"));
  clsIni ini(front_end);
  ini.SetIniPath(file);
  EXPECT_EQ(ReadIniValue("s", "k", file), "") << "one character counts as none";
  EXPECT_EQ(ini.GetIniSetting("s", "k"), "x");
  ini.SaveIniSetting("s", "long", std::string(800, 'y'));
  EXPECT_EQ(ReadIniValue("s", "long", file), std::string(126, 'y'));
  EXPECT_EQ(ini.GetIniSetting("S", "LONG"), std::string(749, 'y'));
  ini.SaveIniSetting("s", "umlaut", "\xC3\xA4");
  EXPECT_EQ(ReadIniValue("s", "umlaut", file), "") << "characters are counted, not bytes";
}

}  // namespace
}  // namespace tidemark
