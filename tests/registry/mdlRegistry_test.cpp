#include "registry/mdlRegistry.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/unique_handle.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

using namespace std::string_literals;

constexpr const char* kKey = "Software\\Made Up";

struct Enumerated {
  std::string name, data;
  DWORD type;
};

Enumerated ValueNamed(const std::string& wanted) {
  const UniqueKey key(OpenRegKey(HKEY_CURRENT_USER, kKey));
  for (DWORD index = 0; index < CountRegItems(key.Get(), RegItems::kValues); ++index) {
    Enumerated value{};
    EnumRegValue(key.Get(), index, value.name, value.data, value.type);
    if (value.name == wanted + "\0"s) return value;
  }
  return {};
}

TEST(Registry, SettingsAreTextAndEverythingElseGivesTheDefault) {
  TestPc pc;
  SaveRegString(HKEY_CURRENT_USER, kKey, "empty", "");
  pc.SetBinary(HKEY_CURRENT_USER, kKey, "nothing", "", REG_SZ);
  SaveRegString(HKEY_CURRENT_USER, kKey, "cut", "ab\0cd"s);
  SaveRegString(HKEY_CURRENT_USER, kKey, "text", "\xC3\xA4");
  pc.SetDword(HKEY_CURRENT_USER, kKey, "number", 5);
  pc.SetText(HKEY_CURRENT_USER, kKey, "expand", "x", REG_EXPAND_SZ);
  const auto read = [](const char* name) {
    return GetRegString(HKEY_CURRENT_USER, kKey, name, "default");
  };
  for (const char* empty : {"empty", "nothing"}) EXPECT_EQ(read(empty), "");
  EXPECT_EQ(read("cut"), "ab");
  EXPECT_EQ(read("text"), "\xC3\xA4");
  for (const char* no_text : {"number", "expand", "none"}) EXPECT_EQ(read(no_text), "default");
  const UniqueKey key(OpenRegKey(HKEY_CURRENT_USER, kKey));
  EXPECT_EQ(CountRegItems(key.Get(), static_cast<RegItems>(2)), 0U);
  EXPECT_EQ(GetOpenKeyString(key.Get(), "text"), "\xC3\xA4");
  EXPECT_EQ(GetOpenKeyString(key.Get(), "number"), "");
  DeleteRegValue(HKEY_CURRENT_USER, kKey, "text\0"s);
  EXPECT_EQ(read("text"), "default");
}

TEST(Registry, EnumeratesDataOfEveryTypeAsText) {
  TestPc pc;
  pc.SetText(HKEY_CURRENT_USER, kKey, "multi", "one\0two\0"s, REG_MULTI_SZ);
  pc.SetDword(HKEY_CURRENT_USER, kKey, "minus", 0xFFFFFFFF);
  pc.SetBinary(HKEY_CURRENT_USER, kKey, "bytes", "\x0A\xFF\x01"s);
  pc.SetBinary(HKEY_CURRENT_USER, kKey, "odd", "abc"s, 77);
  pc.SetText(HKEY_CURRENT_USER, kKey, "long", std::string(70000, 'x'));
  for (const Enumerated& expected : {Enumerated{"multi", "one", REG_MULTI_SZ},
                                     {"minus", "-1", REG_DWORD},
                                     {"bytes", "0A FF 01", REG_BINARY},
                                     {"odd", "", 77},
                                     {"long", std::string(70000, 'x'), REG_SZ}}) {
    const Enumerated value = ValueNamed(expected.name);
    EXPECT_EQ(value.data, expected.data) << expected.name;
    EXPECT_EQ(value.type, expected.type) << expected.name;
  }
  // The whole of a binary value lacks its last byte when it is read by name.
  EXPECT_EQ(RegDataText(GetRegData(HKEY_CURRENT_USER, kKey, "bytes")), "0A FF");
  EXPECT_EQ(RegDataText(GetRegData(HKEY_CURRENT_USER, kKey, "odd")), "");
}

TEST(Registry, NamesCarryATrailingNullAndEndEmpty) {
  TestPc pc;
  pc.MakeKey(HKEY_CURRENT_USER, std::string(kKey) + "\\Sub");
  pc.SetText(HKEY_CURRENT_USER, kKey, "", "default value");
  const UniqueKey key(OpenRegKey(HKEY_CURRENT_USER, kKey));
  EXPECT_EQ(EnumRegKey(key.Get(), 0), "Sub\0"s);
  EXPECT_EQ(EnumRegKey(key.Get(), 1), "");
  EXPECT_EQ(EnumRegValueName(key.Get(), 0), "\0"s);
  Enumerated past{"x", "x", 9};
  EnumRegValue(key.Get(), 1, past.name, past.data, past.type);
  EXPECT_EQ(past.name + past.data, "");
}

TEST(Registry, AWriteMakesItsKeyAndANumberIsNotWritten) {
  TestPc pc;
  DWORD disposition = 0;
  EXPECT_TRUE(WriteRegValue(HKEY_CURRENT_USER, kKey, "x", "text", REG_SZ, disposition));
  EXPECT_EQ(disposition, DWORD{REG_CREATED_NEW_KEY});
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, kKey, "x"), "text");
  EXPECT_TRUE(WriteRegValue(HKEY_CURRENT_USER, kKey, "number", "5", REG_DWORD, disposition));
  EXPECT_EQ(RegDataText(GetRegData(HKEY_CURRENT_USER, kKey, "number")), "");
  EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, "Software\\None"));
}

TEST(Registry, AKeyThatDeniesAccessExists) {
  TestPc pc;
  if (!pc.CanFault()) GTEST_SKIP() << "access can't be denied on this ground";
  pc.SetText(HKEY_CURRENT_USER, kKey, "x", "secret");
  pc.DenyKey(std::string("HKEY_CURRENT_USER\\") + kKey);
  EXPECT_TRUE(RegKeyExists(HKEY_CURRENT_USER, kKey));
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, kKey, "x", "default"), "default");
  // It is opened for all that can be done below it, but not to be deleted itself.
  for (REGSAM right = 1; right <= 0x40000; right *= 2) {
    pc.AllowAll();
    pc.DenyKey(std::string("HKEY_CURRENT_USER\\") + kKey, right);
    EXPECT_EQ(!UniqueKey(OpenRegKey(HKEY_CURRENT_USER, kKey)), (right & 0x2003F) != 0) << right;
  }
}

}  // namespace
}  // namespace tidemark
