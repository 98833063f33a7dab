// What the platform's registry calls do, in platform calls alone: the same on a hosted PC and on
// Wine. Values are made sorted, since Wine enumerates them so.
#include <gtest/gtest.h>

#include <cstring>
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
      {"one ", ERROR_FILE_NOT_FOUND},
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
  EXPECT_EQ(RegOpenKeyExA(home.Get(), "missing", 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(key, nullptr);
  EXPECT_EQ(RegOpenKeyA(home.Get(), "", &key), ERROR_SUCCESS);
  EXPECT_EQ(key, home.Get());
  EXPECT_EQ(Opens(nullptr, "x"), ERROR_INVALID_HANDLE);
  EXPECT_EQ(Opens(HKEY_DYN_DATA, "x"), ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(RegCloseKey(HKEY_LOCAL_MACHINE), ERROR_SUCCESS);

  UniqueKey gone = Create(home.Get(), "gone\\below");
  EXPECT_EQ(DeleteTree(home.Get(), "gone"), ERROR_SUCCESS);
  char name[8];
  EXPECT_EQ(RegEnumKeyA(gone.Get(), 0, name, sizeof name), ERROR_KEY_DELETED);
  EXPECT_EQ(Set(gone.Get(), "x", "y"), ERROR_KEY_DELETED);
  const HKEY closed = gone.Release();
  EXPECT_EQ(RegCloseKey(closed), ERROR_SUCCESS);
  EXPECT_EQ(RegCloseKey(closed), ERROR_INVALID_HANDLE);
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
  EXPECT_EQ(Set(home.Get(), "t", "a\0b\0"s), ERROR_SUCCESS);
  EXPECT_EQ(Get(home.Get(), "T"), "a\0b\0"s);
  EXPECT_EQ(Set(home.Get(), "t", "\x01\x00"s, REG_BINARY), ERROR_SUCCESS);
  EXPECT_EQ(Get(home.Get(), "t"), "\x01\x00"s);
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
  size = 0;
  EXPECT_EQ(RegQueryValueExA(home.Get(), "x", nullptr, &type, nullptr, &size), ERROR_SUCCESS);
  EXPECT_EQ(size, 4U);
  EXPECT_EQ(RegQueryValueExA(home.Get(), "x", nullptr, &type, bytes, nullptr),
            ERROR_INVALID_PARAMETER);
  EXPECT_EQ(Get(home.Get(), "missing"), "status 2");
}

TEST_F(RegistryCalls, ValuesAreListedByIndexUntilThereAreNoMore) {
  Set(home.Get(), nullptr, "default\0"s);
  Set(home.Get(), "a", std::string(20, 'x'), REG_BINARY);
  char name[16] = "";
  BYTE data[16];
  DWORD name_size = sizeof name;
  DWORD data_size = sizeof data;
  DWORD type = 0;
  EXPECT_EQ(RegEnumValueA(home.Get(), 0, name, &name_size, nullptr, &type, data, &data_size),
            ERROR_SUCCESS);
  EXPECT_EQ(name_size, 0U);
  EXPECT_EQ(data_size, 8U);
  name_size = sizeof name;
  data_size = sizeof data;
  EXPECT_EQ(RegEnumValueA(home.Get(), 1, name, &name_size, nullptr, &type, data, &data_size),
            ERROR_MORE_DATA);
  EXPECT_EQ(type, DWORD{REG_BINARY});
  EXPECT_EQ(data_size, 20U);
  name_size = 1;
  EXPECT_EQ(RegEnumValueA(home.Get(), 1, name, &name_size, nullptr, nullptr, nullptr, nullptr),
            ERROR_MORE_DATA);
  name_size = sizeof name;
  EXPECT_EQ(RegEnumValueA(home.Get(), 2, name, &name_size, nullptr, nullptr, nullptr, nullptr),
            ERROR_NO_MORE_ITEMS);
  EXPECT_EQ(RegEnumKeyA(home.Get(), 0, name, sizeof name), ERROR_NO_MORE_ITEMS);
  Create(home.Get(), "sub");
  EXPECT_EQ(RegEnumKeyA(home.Get(), 0, name, 3), ERROR_MORE_DATA);
  EXPECT_EQ(RegEnumKeyA(home.Get(), 0, name, 4), ERROR_SUCCESS);
}

TEST_F(RegistryCalls, TheInfoOfAKeyCountsInThePlatformsOwnText) {
  Create(home.Get(), "four");
  Set(home.Get(), "abc", "12345\0"s);
  DWORD keys = 9, longest_key = 0, values = 9, longest_name = 0, longest_data = 0;
  EXPECT_EQ(RegQueryInfoKeyA(home.Get(), nullptr, nullptr, nullptr, &keys, &longest_key, nullptr,
                             &values, &longest_name, &longest_data, nullptr, nullptr),
            ERROR_SUCCESS);
  EXPECT_EQ((std::vector{keys, longest_key, values, longest_name, longest_data}),
            (std::vector<DWORD>{1, 4, 1, 3, 12}));
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
  EXPECT_EQ(RegDeleteKeyA(tree.Get(), nullptr), ERROR_INVALID_PARAMETER);
  EXPECT_EQ(DeleteTree(tree.Get(), "missing"), ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(DeleteTree(tree.Get(), ""), ERROR_SUCCESS);
  EXPECT_TRUE(SubKeys(tree.Get()).empty());
  EXPECT_EQ(Get(tree.Get(), "v"), "status 2");
  Create(tree.Get(), "x\\y\\z");
  EXPECT_EQ(DeleteTree(home.Get(), "tree\\"), ERROR_SUCCESS);
  EXPECT_EQ(Opens(home.Get(), "tree"), ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistryCalls, DeletingAValueTakesNoNameForTheDefaultValue) {
  Set(home.Get(), "", "1\0"s);
  EXPECT_EQ(RegDeleteValueA(home.Get(), nullptr), ERROR_SUCCESS);
  EXPECT_EQ(RegDeleteValueA(home.Get(), ""), ERROR_FILE_NOT_FOUND);
}

}  // namespace
}  // namespace tidemark
