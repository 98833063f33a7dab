// What the library that writes hives can't do is refused by the registry's calls.
#include <gtest/gtest.h>

#include <string>

#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_store.h"
#include "platform/hosted/registry_text.h"
#include "tests/platform/hosted/hives/hive_listing.h"
#include "tests/support/hive_maker.h"
#include "tests/support/test_pc.h"

namespace tidemark::hosted {
namespace {

RegistryKey& LoadedBelow(const char* name, const std::string& hive, bool writable = true) {
  RegistryStore& store = HostedPc::Current().registry();
  bool made = false;
  RegistryKey& key = *store.Create(store.Root(HKEY_LOCAL_MACHINE), name, &made).target();
  LoadHive(HiveOf(hive), key, writable);
  return key;
}

LONG SetValue(const char* path, const char* name, std::size_t size) {
  HKEY key = nullptr;
  if (const LONG status = RegCreateKeyA(HKEY_LOCAL_MACHINE, path, &key)) return status;
  const std::string data(size, 'x');
  const LONG status =
      RegSetValueExA(key, name, 0, REG_BINARY, reinterpret_cast<const BYTE*>(data.data()),
                     static_cast<DWORD>(size));
  RegCloseKey(key);
  return status;
}

LONG DeleteValue(const char* path, const char* name) {
  HKEY key = nullptr;
  if (const LONG status = RegOpenKeyExA(HKEY_LOCAL_MACHINE, path, 0, KEY_ALL_ACCESS, &key)) {
    return status;
  }
  const LONG status = RegDeleteValueA(key, name);
  RegCloseKey(key);
  return status;
}

TEST(HiveLimits, AreTheRegistrysAnswersAndHoldForScriptsToo) {
  const TestPc pc;
  RegistryKey top(nullptr, "top");
  top.MakeKey("list").MakeKey("one").MakeKey("below");
  top.MakeKey("half").MakeKey("\xED\xA0\x80");
  top.MakeKey("long").SetValue("value", REG_BINARY, std::string(20'000, 'l'));
  const std::string before = ListingOf(top);
  const RegistryKey& old = LoadedBelow("Old", MakeHive(top, HiveMake::kOld));
  const RegistryKey& shown = LoadedBelow("Shown", MakeHive(top), false);
  for (int i = 0; i <= 60'000; ++i) top.MakeKey("many").MakeKey(std::to_string(100'000 + i));
  const HiveFile hive = HiveOf(MakeHive(top));
  const RegistryKey& young = LoadedBelow("Young", hive.bytes);
  const LONG kDenied = ERROR_ACCESS_DENIED;
  const LONG kUnable = ERROR_NOT_SUPPORTED;  // not for want of rights

  EXPECT_EQ(RegDeleteKeyA(HKEY_LOCAL_MACHINE, "Old\\list\\one\\below"), kUnable);
  EXPECT_EQ(SHDeleteKeyA(HKEY_LOCAL_MACHINE, "Old\\list\\one"), kUnable);
  EXPECT_EQ(SHDeleteKeyA(HKEY_LOCAL_MACHINE, "Young\\half"), kUnable);
  EXPECT_EQ(SHDeleteKeyA(HKEY_LOCAL_MACHINE, "Young\\long"), kUnable);
  EXPECT_EQ(SHDeleteKeyA(HKEY_LOCAL_MACHINE, "Young\\many\\100000"), kUnable);
  EXPECT_EQ(SHDeleteKeyA(HKEY_LOCAL_MACHINE, "Shown\\list"), kUnable);
  EXPECT_EQ(DeleteValue("Young\\long", "value"), kUnable);
  EXPECT_EQ(DeleteValue("Shown\\long", "value"), kUnable);
  EXPECT_EQ(SetValue("Young\\long", "another", 1), kDenied);
  EXPECT_EQ(SetValue("Young\\list", "value", 20'000), kDenied);
  EXPECT_EQ(SetValue("Old\\list", "value", 1'000'000), kDenied);
  EXPECT_EQ(SetValue("Young\\half\\new", "value", 1), kDenied);
  EXPECT_EQ(SetValue("Shown\\list\\new", "value", 1), kDenied);
  ImportRegistryText(
      "REGEDIT4\n[-HKEY_LOCAL_MACHINE\\Young\\long]\n[HKEY_LOCAL_MACHINE\\Young\\long]\n"
      "\"value\"=-\n\"new\"=dword:1\n[HKEY_LOCAL_MACHINE\\Shown\\list\\new]\n\"value\"=\"x\"\n",
      HostedPc::Current().registry());
  for (const RegistryKey* key : {&old, &shown}) EXPECT_EQ(ListingOf(*key), before);
  EXPECT_FALSE(DiffersFromHive(hive, young));

  EXPECT_EQ(DeleteValue("Old\\long", "value"), ERROR_SUCCESS);
  EXPECT_EQ(SetValue("Old\\long", "value", 20'000), ERROR_SUCCESS);
  EXPECT_EQ(SetValue("Young\\new\\\xC3\xA9", "\xC3\xA9", 16'000), ERROR_SUCCESS);
  EXPECT_EQ(SHDeleteKeyA(HKEY_LOCAL_MACHINE, "Young\\list"), ERROR_SUCCESS);
  EXPECT_TRUE(DiffersFromHive(hive, young));
  const HiveFile written = HiveOf(WriteHive(hive, young, 1));
  EXPECT_EQ(ListingOf(written), ListingOf(young));
}

}  // namespace
}  // namespace tidemark::hosted
