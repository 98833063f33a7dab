#include "registry/cRegistry.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

using namespace std::string_literals;
using Bytes = std::vector<std::uint8_t>;

constexpr const char* kKey = "Software\\Made Up";

// Stores `data` as `type`; what() of the error, or empty.
std::string Store(DWORD type, const RegistryData& data, const std::string& name = "v") {
  try {
    cRegistry::SetValueEx(HKEY_CURRENT_USER, kKey, name, type, {}, data);
  } catch (const RegistryError& error) {
    EXPECT_EQ(error.Number(), 26001);
    EXPECT_EQ(error.Source(), "tidemark.cRegistry");
    return error.what();
  }
  return {};
}

TEST(RegistryClass, StoresByTypeAndRefusesWhatATypeCannotHold) {
  TestPc pc;
  struct Case {
    DWORD type;
    RegistryData data;
    TestValue stored;
  };
  for (const Case& one : {Case{REG_SZ, "100 %"s, {REG_SZ, "100 %\0"s}},
                          Case{REG_SZ, "%a% b"s, {REG_EXPAND_SZ, "%a% b\0"s}},
                          Case{REG_EXPAND_SZ, "plain"s, {REG_SZ, "plain\0"s}},
                          Case{REG_SZ, std::int32_t{-7}, {REG_SZ, "-7\0"s}},
                          Case{REG_BINARY, Bytes{1, 2}, {REG_BINARY, "\1\2"}},
                          Case{REG_DWORD, std::int32_t{-2}, {REG_DWORD, "\xFE\xFF\xFF\xFF"}},
                          Case{REG_DWORD_BIG_ENDIAN, std::int16_t{1}, {REG_DWORD, "\1\0\0\0"s}}}) {
    EXPECT_EQ(Store(one.type, one.data), "");
    EXPECT_EQ(pc.Value(HKEY_CURRENT_USER, kKey, "v"), one.stored);
  }
  EXPECT_EQ(Store(REG_BINARY, "text"s),
            "Failed to set registry value Key: '-2147483647',Section: 'Software\\Made Up',Key: 'v' "
            "to value: 'text'");
  EXPECT_NE(Store(REG_DWORD, "7"s), "");
  EXPECT_NE(Store(REG_SZ, Bytes{1}), "");
  EXPECT_NE(Store(REG_MULTI_SZ, "a"s), "");
}

TEST(RegistryClass, ReadsByTheTypeItFindsAndElseYieldsTheDefault) {
  TestPc pc;
  pc.SetVariable("Made", "up");
  pc.SetBinary(HKEY_CURRENT_USER, kKey, "text", "ab\0c\0"s, REG_SZ);
  pc.SetBinary(HKEY_CURRENT_USER, kKey, "list", "a\0b\0\0"s, REG_MULTI_SZ);
  pc.SetText(HKEY_CURRENT_USER, kKey, "expand", "%Made%\\x", REG_EXPAND_SZ);
  pc.SetDword(HKEY_CURRENT_USER, kKey, "number", 0xFFFFFFFF);
  pc.SetBinary(HKEY_CURRENT_USER, kKey, "big", "\0\0\1\2"s, REG_DWORD_BIG_ENDIAN);
  pc.SetBinary(HKEY_CURRENT_USER, kKey, "bytes", "\7"s);
  pc.SetBinary(HKEY_CURRENT_USER, kKey, "no text", "", REG_SZ);
  cRegistry registry;
  registry.SetClassKey(HKEY_CURRENT_USER);
  registry.SetSectionKey(kKey);
  registry.SetDefault("none"s);
  struct Case {
    const char* name;
    RegistryData data;
    DWORD type;
  };
  for (const Case& one :
       {Case{"text", "ab\0c"s, REG_SZ}, Case{"list", "a\0b\0"s, REG_MULTI_SZ},
        Case{"expand", "up\\x"s, REG_EXPAND_SZ}, Case{"number", std::int32_t{-1}, REG_DWORD},
        Case{"big", std::int32_t{258}, REG_DWORD_BIG_ENDIAN},
        Case{"bytes", Bytes{7, 0}, REG_BINARY}, Case{"no text", "none"s, REG_SZ},
        Case{"missing", "none"s, REG_SZ}}) {
    registry.SetValueKey(one.name);
    EXPECT_EQ(registry.Value(), one.data) << one.name;
    EXPECT_EQ(registry.ValueType(), one.type) << one.name;
  }
  registry.SetValueKey("number");
  registry.SetMachine("no-such-machine");
  EXPECT_EQ(registry.Machine(), "\\\\no-such-machine");
  EXPECT_EQ(registry.Value(), RegistryData("none"s)) << "the machine does not answer";
}

TEST(RegistryClass, ListsMakesAndDeletes) {
  TestPc pc;
  cRegistry registry;
  registry.SetClassKey(HKEY_CURRENT_USER);
  registry.SetSectionKey(kKey);
  std::vector<std::string> names = {"old"};
  EXPECT_TRUE(registry.EnumerateValues(names));
  EXPECT_TRUE(names.empty());
  EXPECT_FALSE(registry.KeyExists());
  EXPECT_TRUE(registry.CreateKey());
  EXPECT_TRUE(registry.KeyExists());
  const std::string name = "\xC3\xA4\xD0\xB6" + std::string(80, 'x');
  Store(REG_SZ, "t"s, name);
  pc.MakeKey(HKEY_CURRENT_USER, kKey + "\\Sub \xC3\xA4"s);
  EXPECT_TRUE(registry.EnumerateValues(names));
  EXPECT_EQ(names, std::vector{name});
  EXPECT_TRUE(registry.EnumerateSections(names));
  EXPECT_EQ(names, std::vector{"Sub \xC3\xA4"s});
  EXPECT_THROW(registry.DeleteKey(), RegistryError) << "it has a sub-key";
  registry.SetValueKey("gone");
  EXPECT_THROW(registry.DeleteValue(), RegistryError);
  registry.SetValueKey(name);
  EXPECT_TRUE(registry.DeleteValue());
}

}  // namespace
}  // namespace tidemark
