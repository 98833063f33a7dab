#include "platform/hosted/registry_store.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_text.h"
#include "platform/unique_handle.h"
#include "tests/support/test_pc.h"

namespace tidemark::hosted {
namespace {

using namespace std::string_literals;

RegistryStore& Store() { return HostedPc::Current().registry(); }

UniqueKey Make(HKEY root, const char* path) {
  HKEY key = nullptr;
  EXPECT_EQ(RegCreateKeyA(root, path, &key), ERROR_SUCCESS) << path;
  return UniqueKey(key);
}

std::string Listing(HKEY key) {
  std::string listing;
  char name[300];
  for (DWORD i = 0; RegEnumKeyA(key, i, name, sizeof name) == ERROR_SUCCESS; ++i) {
    listing += name + "\\ "s;
  }
  for (DWORD i = 0;; ++i) {
    char data[100];
    DWORD name_size = sizeof name;
    DWORD data_size = sizeof data;
    if (RegEnumValueA(key, i, name, &name_size, nullptr, nullptr, reinterpret_cast<LPBYTE>(data),
                      &data_size) != ERROR_SUCCESS) {
      return listing;
    }
    listing += name + "="s + data + " ";
  }
}

std::string Listing(HKEY root, const char* path) {
  HKEY key = nullptr;
  const LONG status = RegOpenKeyA(root, path, &key);
  if (status != ERROR_SUCCESS) return "status " + std::to_string(status);
  const UniqueKey close(key);
  return Listing(key);
}

TEST(HostedRegistry, ClassesAreTheUsersOverTheMachines) {
  TestPc pc;
  constexpr const char* kType = "Software\\Classes\\.txt";
  pc.SetText(HKEY_LOCAL_MACHINE, kType, "b", "machine");
  pc.SetText(HKEY_LOCAL_MACHINE, kType, "a", "machine");
  pc.SetText(HKEY_CURRENT_USER, kType, "B", "user");
  Make(HKEY_LOCAL_MACHINE, "Software\\Classes\\.txt\\m\\deep");
  Make(HKEY_LOCAL_MACHINE, "Software\\Classes\\.txt\\Twice");
  Make(HKEY_CURRENT_USER, "Software\\Classes\\.txt\\u");
  Make(HKEY_CURRENT_USER, "Software\\Classes\\.txt\\twice");
  const UniqueKey merged = Make(HKEY_CLASSES_ROOT, ".txt");
  EXPECT_EQ(Listing(merged.Get()), "m\\ twice\\ u\\ B=user a=machine ");
  const std::string name = "HKEY_CLASSES_ROOT\\.txt";
  EXPECT_EQ(ExportRegistryText(Store(), name, ScriptForm::kRegedit4),
            "REGEDIT4\r\n\r\n[" + name + "]\r\n\"B\"=\"user\"\r\n\"a\"=\"machine\"\r\n\r\n[" +
                name + "\\m]\r\n\r\n[" + name + "\\m\\deep]\r\n\r\n[" + name + "\\twice]\r\n\r\n[" +
                name + "\\u]\r\n\r\n");

  // New keys go to the machine, unless their parent is the user's alone; values to the user.
  Make(HKEY_CLASSES_ROOT, ".txt\\new");
  Make(HKEY_CLASSES_ROOT, ".txt\\u\\new");
  pc.SetText(HKEY_CLASSES_ROOT, ".txt", "c", "new");
  EXPECT_EQ(Listing(HKEY_LOCAL_MACHINE, kType), "m\\ new\\ Twice\\ b=machine a=machine ");
  EXPECT_EQ(Listing(HKEY_CURRENT_USER, kType), "twice\\ u\\ B=user c=new ");
  EXPECT_EQ(Listing(HKEY_CURRENT_USER, "Software\\Classes\\.txt\\u"), "new\\ ");

  // An open handle sees the user's half come and go.
  EXPECT_EQ(SHDeleteKeyA(HKEY_CURRENT_USER, kType), ERROR_SUCCESS);
  EXPECT_EQ(Listing(merged.Get()), "m\\ new\\ Twice\\ b=machine a=machine ");
  pc.SetText(HKEY_CURRENT_USER, kType, "a", "user");
  EXPECT_EQ(Listing(merged.Get()), "m\\ new\\ Twice\\ a=user b=machine ");
}

TEST(HostedRegistry, ADeniedKeyRefusesWhatItDeniesAndAllBelow) {
  TestPc pc;
  Make(HKEY_LOCAL_MACHINE, "Software\\Shut\\below");
  pc.SetText(HKEY_LOCAL_MACHINE, "Software\\Readable", "v", "1");
  Make(HKEY_LOCAL_MACHINE, "Software\\Tree\\a\\kept");
  Make(HKEY_LOCAL_MACHINE, "Software\\Tree\\b");
  pc.DenyKey("hkey_local_machine\\SOFTWARE\\shut");
  pc.DenyKey("HKEY_LOCAL_MACHINE\\Software\\Readable", KEY_SET_VALUE | KEY_CREATE_SUB_KEY);
  pc.DenyKey("HKEY_LOCAL_MACHINE\\Software\\Tree\\a\\kept", KEY_SET_VALUE);

  EXPECT_EQ(Listing(HKEY_LOCAL_MACHINE, "Software\\Shut\\below"), "status 5");
  // RegOpenKeyA takes what is left; the single calls then fail.
  EXPECT_EQ(Listing(HKEY_LOCAL_MACHINE, "Software\\Readable"), "v=1 ");
  const UniqueKey readable = Make(HKEY_LOCAL_MACHINE, "Software\\Readable");
  EXPECT_EQ(RegDeleteValueA(readable.Get(), "v"), ERROR_ACCESS_DENIED);
  // A tree is deleted as far as it goes.
  EXPECT_EQ(SHDeleteKeyA(HKEY_LOCAL_MACHINE, "Software\\Tree"), ERROR_ACCESS_DENIED);
  EXPECT_EQ(Listing(HKEY_LOCAL_MACHINE, "Software\\Tree"), "a\\ ");
  pc.AllowAll();
  EXPECT_EQ(SHDeleteKeyA(HKEY_LOCAL_MACHINE, "Software\\Tree"), ERROR_SUCCESS);
}

TEST(HostedRegistry, ValuesOfAnyNameStayInTheirOrderWhateverWentBefore) {
  TestPc pc;
  const UniqueKey key = Make(HKEY_LOCAL_MACHINE, "Software\\Many");
  pc.SetText(HKEY_LOCAL_MACHINE, "software\\MANY\\\xC3\x84pfel", "\xC3\xB6", "a\xFF");
  EXPECT_EQ(Listing(key.Get(), "\xC3\xA4PFEL"), "\xC3\xB6=a\xEF\xBF\xBD ") << "mended";
  SHDeleteKeyA(key.Get(), "\xC3\xA4pfel");
  std::vector<int> left;
  for (int i = 0; i < 3000; ++i) {
    pc.SetText(HKEY_LOCAL_MACHINE, "Software\\Many", "v" + std::to_string(i), "x");
    if (i % 7 == 3) {  // now and then one of the older goes
      const std::string gone = "V" + std::to_string(i / 2);
      if (RegDeleteValueA(key.Get(), gone.c_str()) == ERROR_SUCCESS) std::erase(left, i / 2);
    }
    left.push_back(i);
  }
  std::string expected;
  for (const int number : left) expected += "v" + std::to_string(number) + "=x ";
  EXPECT_EQ(Listing(key.Get()), expected);
}

}  // namespace
}  // namespace tidemark::hosted
