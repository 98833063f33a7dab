#include <gtest/gtest.h>

#include <string>

#include "registry/clsIni.h"
#include "registry/ini_access.h"
#include "tests/support/test_pc.h"
#include "toolkit/script_front_end.h"

namespace tidemark {
namespace {

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
  const std::string umlaut = "\xC3\xA4";
  ini.SaveIniSetting("s", "umlaut", umlaut);
  EXPECT_EQ(ReadIniValue("s", "umlaut", file), "") << "characters are counted, not bytes";
  std::string umlauts;
  while (umlauts.size() < 252) umlauts += umlaut;
  ini.SaveIniSetting("s", "umlauts", umlauts + umlaut);
  EXPECT_EQ(ReadIniValue("s", "umlauts", file), umlauts);
  ini.ClearAllValues();
  EXPECT_EQ(ini.IniPath(), "");
}

}  // namespace
}  // namespace tidemark
