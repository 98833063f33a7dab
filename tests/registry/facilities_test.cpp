// The two classes that no flow of the program uses, and the profile files that it does use.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "registry/cRegistry.h"
#include "registry/clsIni.h"
#include "registry/ini_access.h"
#include "tests/support/expected_text.h"
#include "tests/support/registry_snapshot.h"
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
  const struct {
    DWORD type;
    RegistryData data;
    TestValue stored;
    RegistryData read;
  } kCases[] = {{REG_SZ, "%a b"s, {REG_SZ, "%a b\0"s}, "%a b"s},
                {REG_SZ, "%Made%\\x"s, {REG_EXPAND_SZ, "%Made%\\x\0"s}, "up\\x"s},
                {REG_BINARY, Bytes{1, 2}, {REG_BINARY, "\1\2"}, Bytes{1, 2, 0}},
                {REG_DWORD, std::int32_t{-2}, {REG_DWORD, "\xFE\xFF\xFF\xFF"}, -2}};
  for (const auto& one : kCases) {
    cRegistry::SetValueEx(HKEY_CURRENT_USER, kKey, "v", one.type, {}, one.data);
    EXPECT_EQ(pc.Value(HKEY_CURRENT_USER, kKey, "v"), one.stored);
    EXPECT_EQ(cRegistry::ValueEx(HKEY_CURRENT_USER, kKey, "v", 0, "none"s), one.read);
  }
}

// What the call raises; empty when it does not.
std::string Raised(const std::function<void()>& call) {
  try {
    call();
    return {};
  } catch (const RegistryError& error) {
    return error.what();
  }
}

TEST(RegistryClass, ListsMakesDeletesAndTellsWhatFails) {
  TestPc pc;
  cRegistry registry(HKEY_CURRENT_USER, kKey, "name", REG_SZ, "default"s);
  EXPECT_FALSE(registry.KeyExists());
  EXPECT_TRUE(registry.CreateKey() && registry.KeyExists());
  pc.SetText(HKEY_CURRENT_USER, kKey + "\\Sub"s, "", "");
  registry.SetValue("text"s);
  std::vector<std::string> names = {"old"};
  EXPECT_TRUE(registry.EnumerateValues(names));
  EXPECT_EQ(names, std::vector{"name"s});
  EXPECT_TRUE(registry.EnumerateSections(names));
  EXPECT_EQ(names, std::vector{"Sub"s});
  for (const auto& [machine, kept] : {std::pair{"ab", ""},
                                      {"\xC3\xA4\xC3\xB6", ""},
                                      {"\\\\no such machine", "\\\\no such machine"},
                                      {"no such machine", "\\\\no such machine"}}) {
    registry.SetMachine(machine);
    EXPECT_EQ(registry.Machine(), kept) << machine;
    EXPECT_EQ(registry.Value(), RegistryData(*kept == '\0' ? "text"s : "default"s));
  }
  registry.SetMachine("");
  const std::string place = "-2147483647',Section: 'Software\\Made Up'";
  EXPECT_EQ(Raised([&] { registry.DeleteKey(); }), "Failed to delete registry Key: '" + place);
  EXPECT_TRUE(registry.DeleteValue());
  EXPECT_EQ(Raised([&] { registry.DeleteValue(); }),
            "Failed to delete registry Key: '" + place + ",Key: 'name");
  registry.SetValueType(REG_MULTI_SZ);
  EXPECT_EQ(Raised([&] { registry.SetValue("7"s); }),
            "Failed to set registry value Key: '" + place + ",Key: 'name' to value: '7'");
  registry.SetSectionKey(std::string(300, 'x'));
  EXPECT_EQ(Raised([&] { registry.CreateKey(); }),
            "Failed to create registry Key: '" + std::string(300, 'x') + "'");
  registry.SetSectionKey("None");
  EXPECT_EQ(Raised([&] { registry.DeleteValue(); }),
            "Failed to open key '-2147483647',Section: 'None' for delete access");
}

TEST(RegistryClass, MakesAFileTypeInBothTrees) {
  TestPc pc;
  cRegistry registry;
  EXPECT_NE(Raised([&] { registry.CreateAdditionalEXEAssociations("T", {"a", "b", "c"}); }), "");
  // Where the user has a file type of that name the classes show and take his own.
  for (const char* own : {".tt", "T"}) {
    pc.MakeKey(HKEY_CURRENT_USER, std::string("Software\\Classes\\") + own);
  }
  registry.CreateEXEAssociation({.program_path = " C:\\p.exe ",
                                 .class_name = "T",
                                 .class_description = "Type",
                                 .extension = "tt",
                                 .print = true,
                                 .create = true,
                                 .create_caption = "Make",
                                 .install = true,
                                 .icon_index = 0});
  registry.CreateAdditionalEXEAssociations("T", {"more", "More", "m.exe"});
  EXPECT_NE(Raised([&] { registry.CreateAdditionalEXEAssociations("T", {"a", "b"}); }), "");
  RegistrySnapshot made;
  for (const char* key : {".tt", "T"}) {
    TakeKey(HKEY_CLASSES_ROOT, key, made);
    TakeKey(HKEY_LOCAL_MACHINE, std::string("SOFTWARE\\Classes\\") + key, made);
  }
  std::vector<std::string> lines;
  for (const auto& [entry, value] : made) lines.push_back(entry + "=" + value.bytes.c_str());
  ExpectLinesOf("registry/expected_file_type.txt", lines);
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

TEST(IniAccess, DeletesAnIniFileAlone) {
  TestPc pc;
  ScriptFrontEnd front_end;
  clsIni ini(front_end);
  for (const char* name : {"\\a.txt", "\\a.ini"}) pc.MakeFile(pc.folder() + name);
  for (const char* name : {"\\a.ini", "\\a.txt", "\\a.ini"}) {
    ini.SetIniPath(pc.folder() + name);
    ini.DeleteIni();
  }
  EXPECT_EQ(front_end.messages(),
            (std::vector<std::string>{
                "Error: The file in the Ini Path property is not an ini file or doesn't exist!",
                "Error: The file in the Ini Path property was not found!"}));
  EXPECT_TRUE(pc.FileExists(pc.folder() + "\\a.txt"));
  EXPECT_FALSE(pc.FileExists(pc.folder() + "\\a.ini"));
}

}  // namespace
}  // namespace tidemark
