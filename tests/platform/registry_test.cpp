// What the platform's registry calls do, in platform calls alone: the same on a hosted PC and on
// Wine. Values are made sorted, since Wine enumerates them so.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/unique_handle.h"
#include "platform/winapi.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

constexpr const char* kHome = "Software\\Home";

const BYTE* Bytes(const char* text) { return reinterpret_cast<const BYTE*>(text); }

class RegistryCalls : public testing::Test {
 protected:
  RegistryCalls() : home(Create(HKEY_CURRENT_USER, kHome)) {}

  static UniqueKey Create(HKEY root, const std::string& path) {
    HKEY key = nullptr;
    EXPECT_EQ(RegCreateKeyA(root, path.c_str(), &key), ERROR_SUCCESS) << path;
    return UniqueKey(key);
  }

  static LONG Opens(HKEY root, const std::string& path, REGSAM access = KEY_READ) {
    HKEY key = nullptr;
    const LONG status = RegOpenKeyExA(root, path.c_str(), 0, access, &key);
    const UniqueKey close(key);
    return status;
  }

  static LONG DeleteTree(HKEY key, const char* path) {
    return static_cast<LONG>(SHDeleteKeyA(key, path));  // whose type the headers do not agree on
  }

  static LONG Set(HKEY key, const char* name, std::string_view data, DWORD type = REG_SZ) {
    return RegSetValueExA(key, name, 0, type, Bytes(data.data()), static_cast<DWORD>(data.size()));
  }

  static std::string Get(HKEY key, const char* name) {
    std::string data(1000, '#');
    auto size = static_cast<DWORD>(data.size());
    const LONG status =
        RegQueryValueExA(key, name, nullptr, nullptr, reinterpret_cast<LPBYTE>(data.data()), &size);
    if (status != ERROR_SUCCESS) return "status " + std::to_string(status);
    data.resize(size);
    return data;
  }

  static std::vector<std::string> SubKeys(HKEY key) {
    std::vector<std::string> names;
    char name[300];
    for (DWORD i = 0; RegEnumKeyA(key, i, name, sizeof name) == ERROR_SUCCESS; ++i) {
      names.emplace_back(name);
    }
    return names;
  }

  TestPc pc;
  UniqueKey home;
};

using namespace std::string_literals;

TEST_F(RegistryCalls, SubKeysComeSortedWhateverTheirCase) {
  for (const char* name : {"beta", "Alpha", "gamma", "ALPHABET", "Beta2", "1", "{x}"}) {
    Create(home.Get(), name);
  }
  Create(home.Get(), "BETA");
  EXPECT_EQ(SubKeys(home.Get()),
            (std::vector<std::string>{"1", "Alpha", "ALPHABET", "beta", "Beta2", "gamma", "{x}"}));
}

TEST_F(RegistryCalls, PathsAreTakenAsThePlatformTakesThem) {
  Create(home.Get(), "one\\two\\\\three\\");
  const std::string long_name(256, 'n');
  Create(home.Get(), long_name);
  const struct {
    std::string path;
    LONG opens;
  } kCases[] = {
      {"one\\two\\three", ERROR_SUCCESS},
      {"ONE\\\\TWO\\", ERROR_SUCCESS},
      {"", ERROR_SUCCESS},
      {"\\one", ERROR_BAD_PATHNAME},
      {"one\\four", ERROR_FILE_NOT_FOUND},
      {long_name, ERROR_SUCCESS},
      {long_name + "n", ERROR_INVALID_PARAMETER},
      {std::string(130, 'a') + "\\" + std::string(130, 'b'), ERROR_MORE_DATA},
  };
  for (const auto& test : kCases) {
    EXPECT_EQ(Opens(home.Get(), test.path), test.opens) << test.path;
  }
  EXPECT_EQ(Opens(HKEY_CLASSES_ROOT, "\\"), ERROR_SUCCESS);
  EXPECT_EQ(RegDeleteKeyA(home.Get(), long_name.c_str()), ERROR_SUCCESS);
}

TEST_F(RegistryCalls, HandlesAnswerForWhatBecameOfTheirKey) {
  HKEY key = home.Get();
  EXPECT_EQ(RegOpenKeyA(home.Get(), "", &key), ERROR_SUCCESS);
  EXPECT_EQ(key, home.Get());
  EXPECT_EQ(Opens(nullptr, "x"), ERROR_INVALID_HANDLE);
  UniqueKey gone = Create(home.Get(), "gone\\below");
  EXPECT_EQ(DeleteTree(home.Get(), "gone"), ERROR_SUCCESS);
  char name[8];
  EXPECT_EQ(RegEnumKeyA(gone.Get(), 0, name, sizeof name), ERROR_KEY_DELETED);
  EXPECT_EQ(Set(gone.Get(), "x", "y"), ERROR_KEY_DELETED);
}

TEST_F(RegistryCalls, AHandleDoesNoMoreThanItWasOpenedFor) {
  Create(home.Get(), "sub");
  HKEY opened = nullptr;
  ASSERT_EQ(RegOpenKeyExA(home.Get(), "sub", 0, KEY_READ, &opened), ERROR_SUCCESS);
  const UniqueKey reader(opened);
  EXPECT_EQ(Set(reader.Get(), "x", "y"), ERROR_ACCESS_DENIED);
  EXPECT_EQ(RegDeleteValueA(reader.Get(), "x"), ERROR_ACCESS_DENIED);
  ASSERT_EQ(RegOpenKeyExA(home.Get(), "sub", 0, KEY_SET_VALUE, &opened), ERROR_SUCCESS);
  const UniqueKey writer(opened);
  EXPECT_EQ(Get(writer.Get(), "x"), "status 5");
}

TEST_F(RegistryCalls, TextsAreStoredAsTheyAreGivenButForANulBehindThem) {
  const char text[] = "hello";
  const struct {
    const char* what;
    DWORD size;
    std::string stored;
  } kCases[] = {
      {"whole, with its end", 6, "hello\0"s},
      {"whole, the end stands behind", 5, "hello\0"s},
      {"cut", 3, "hel"},
      {"nothing", 0, ""},
  };
  for (const auto& test : kCases) {
    EXPECT_EQ(RegSetValueExA(home.Get(), "t", 0, REG_SZ, Bytes(text), test.size), ERROR_SUCCESS);
    EXPECT_EQ(Get(home.Get(), "t"), test.stored) << test.what;
  }
  EXPECT_EQ(Set(home.Get(), nullptr, "a\0b\0"s), ERROR_SUCCESS);
  EXPECT_EQ(Get(home.Get(), ""), "a\0b\0"s);
  EXPECT_EQ(RegDeleteValueA(home.Get(), nullptr), ERROR_SUCCESS);
  EXPECT_EQ(RegDeleteValueA(home.Get(), ""), ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistryCalls, AQueryTellsTypeAndSizeEvenWhenTheDataDoNotFit) {
  Set(home.Get(), "x", "%a%\0"s, REG_EXPAND_SZ);
  DWORD type = 99;
  DWORD size = 2;
  char data[8] = "#######";
  auto* bytes = reinterpret_cast<LPBYTE>(data);
  EXPECT_EQ(RegQueryValueExA(home.Get(), "x", nullptr, &type, bytes, &size), ERROR_MORE_DATA);
  EXPECT_EQ(type, DWORD{REG_EXPAND_SZ});
  EXPECT_EQ(size, 4U);
  EXPECT_EQ(data[0], '#');
  EXPECT_EQ(Get(home.Get(), "missing"), "status 2");
}

TEST_F(RegistryCalls, ValuesAreListedByIndexUntilThereAreNoMore) {
  Set(home.Get(), nullptr, "default\0"s);
  Set(home.Get(), "a", std::string(20, 'x'), REG_BINARY);
  char name[16] = "";
  BYTE data[16];
  DWORD name_size = 0, data_size = 0, type = 0;
  const auto list = [&](DWORD index, DWORD room) {
    name_size = room;
    data_size = sizeof data;
    return RegEnumValueA(home.Get(), index, name, &name_size, nullptr, &type, data, &data_size);
  };
  EXPECT_EQ(list(0, sizeof name), ERROR_SUCCESS);
  EXPECT_EQ(name_size, 0U);
  EXPECT_EQ(data_size, 8U);
  EXPECT_EQ(list(1, sizeof name), ERROR_MORE_DATA);
  EXPECT_EQ(type, DWORD{REG_BINARY});
  EXPECT_EQ(data_size, 20U);
  EXPECT_EQ(list(1, 1), ERROR_MORE_DATA);
  EXPECT_EQ(list(2, sizeof name), ERROR_NO_MORE_ITEMS);
  Create(home.Get(), "sub");
  EXPECT_EQ(RegEnumKeyA(home.Get(), 0, name, 3), ERROR_MORE_DATA);
  EXPECT_EQ(RegEnumKeyA(home.Get(), 0, name, 4), ERROR_SUCCESS);
  EXPECT_EQ(RegEnumKeyA(home.Get(), 1, name, 4), ERROR_NO_MORE_ITEMS);
}

TEST_F(RegistryCalls, DeletingAKeyIsRefusedAboveOthersUnlessTheWholeTreeIsMeant) {
  const UniqueKey tree = Create(home.Get(), "tree");
  Create(tree.Get(), "a\\b");
  Create(tree.Get(), "c");
  Set(tree.Get(), "v", "1\0"s);
  EXPECT_EQ(RegDeleteKeyA(tree.Get(), "a"), ERROR_ACCESS_DENIED);
  EXPECT_EQ(RegDeleteKeyA(tree.Get(), "a\\b"), ERROR_SUCCESS);
  EXPECT_EQ(RegDeleteKeyA(tree.Get(), "a"), ERROR_SUCCESS);
  EXPECT_EQ(RegDeleteKeyA(tree.Get(), "a"), ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(DeleteTree(tree.Get(), "missing"), ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(DeleteTree(tree.Get(), ""), ERROR_SUCCESS);
  EXPECT_TRUE(SubKeys(tree.Get()).empty());
  EXPECT_EQ(Get(tree.Get(), "v"), "status 2");
  Create(tree.Get(), "x\\y\\z");
  EXPECT_EQ(DeleteTree(home.Get(), "tree\\"), ERROR_SUCCESS);
  EXPECT_EQ(Opens(home.Get(), "tree"), ERROR_FILE_NOT_FOUND);
}

}  // namespace
}  // namespace tidemark
