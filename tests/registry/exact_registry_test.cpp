#include "registry/exact_registry.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/registry_rules.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

using namespace std::string_literals;

constexpr const char* kHome = "Software\\Exact";
const std::string kLoneSurrogate = "\xED\xA0\xBD";

TEST(ExactRegistry, EveryBitOfNamesAndDataComesBack) {
  TestPc pc;
  ExactKey home;
  ASSERT_EQ(ExactKey::Create(HKEY_CURRENT_USER, kHome, home), ERROR_SUCCESS);
  const struct {
    std::string name;
    ExactValue value;
  } kCases[] = {
      {"", {REG_SZ, "a\0"s}},  // without its end
      {"b" + kLoneSurrogate, {REG_SZ, "\x3D\xD8\0\0"s}},
      {"c\r\n\"\\", {REG_SZ, "a\0\0\0b\0\0\0"s}},
      {"d\xF0\x9F\x98\x80", {REG_EXPAND_SZ, "a\0b"s}},
      {"e", {REG_MULTI_SZ, "x"s}},
      {"f", {REG_SZ, ""}},
      {"g", {REG_DWORD, "\1\2"s}},
      {"h", {11, std::string(1'000'000, '\xA5')}},
      {"i", {0x12345678, "\0"s}},
      {"j" + std::string(kLongestValueName - 1, 'x'), {REG_NONE, ""}},
  };
  for (const auto& one : kCases) {
    EXPECT_EQ(home.Write(one.name, one.value), ERROR_SUCCESS) << one.name;
  }
  DWORD index = 0;
  for (const auto& one : kCases) {
    std::string name;
    EXPECT_EQ(home.ValueName(index++, name), ERROR_SUCCESS);
    EXPECT_EQ(name, one.name);
    ExactValue value;
    EXPECT_EQ(home.Read(name, value), ERROR_SUCCESS);
    EXPECT_TRUE(value == one.value) << one.name;
  }
  std::string name;
  EXPECT_EQ(home.ValueName(index, name), ERROR_NO_MORE_ITEMS);
  EXPECT_EQ(home.DeleteValue("b" + kLoneSurrogate), ERROR_SUCCESS);
  ExactValue value;
  EXPECT_EQ(home.Read("b" + kLoneSurrogate, value), ERROR_FILE_NOT_FOUND);
  // The 8-bit calls are given the text alone, without the byte that is no character.
  EXPECT_EQ(pc.Value(HKEY_CURRENT_USER, kHome, "d\xF0\x9F\x98\x80")->bytes, "a");
}

TEST(ExactRegistry, KeysAreReachedBeyondThePathsOfTheEightBitCalls) {
  TestPc pc;
  const std::string part = std::string(200, 'k') + kLoneSurrogate;
  const std::string path = std::string(kHome) + "\\" + part + "\\" + part;
  ExactKey key;
  EXPECT_EQ(ExactKey::Open(HKEY_CURRENT_USER, path, key), ERROR_FILE_NOT_FOUND);
  ASSERT_EQ(ExactKey::Create(HKEY_CURRENT_USER, path, key), ERROR_SUCCESS);
  ExactKey home;
  ASSERT_EQ(ExactKey::Open(HKEY_CURRENT_USER, kHome, home), ERROR_SUCCESS);
  std::string name;
  EXPECT_EQ(home.SubKeyName(0, name), ERROR_SUCCESS);
  EXPECT_EQ(name, part);
  EXPECT_EQ(home.SubKeyName(1, name), ERROR_NO_MORE_ITEMS);
  EXPECT_EQ(DeleteEmptyKey(home.Handle(), part), ERROR_ACCESS_DENIED);
  EXPECT_EQ(DeleteEmptyKey(home.Handle(), part + "\\" + part), ERROR_SUCCESS);
  EXPECT_EQ(DeleteEmptyKey(home.Handle(), part), ERROR_SUCCESS);
}

}  // namespace
}  // namespace tidemark
