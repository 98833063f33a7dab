#include "platform/hosted/registry_store.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_editor.h"
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
  EXPECT_EQ(ExportRegistryText(Store(), name, RegistryTextForm::kRegedit4),
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
  EXPECT_EQ(SHDeleteKeyA(HKEY_LOCAL_MACHINE, kType), ERROR_SUCCESS);
  EXPECT_EQ(Listing(HKEY_CLASSES_ROOT, ".txt"), "a=user ");
}

TEST(HostedRegistry, ADeniedKeyRefusesWhatItDeniesAndAllBelow) {
  TestPc pc;
  Make(HKEY_LOCAL_MACHINE, "Software\\Shut\\below");
  Make(HKEY_LOCAL_MACHINE, "Software\\ShutNot");
  pc.SetText(HKEY_LOCAL_MACHINE, "Software\\Readable", "v", "1");
  Make(HKEY_LOCAL_MACHINE, "Software\\Tree\\a\\kept");
  Make(HKEY_LOCAL_MACHINE, "Software\\Tree\\b");
  Store().DenyKey("hkey_local_machine\\SOFTWARE\\shut", KEY_ALL_ACCESS);
  Store().DenyKey("HKEY_LOCAL_MACHINE\\Software\\Readable", KEY_SET_VALUE | KEY_CREATE_SUB_KEY);
  Store().DenyKey("HKEY_LOCAL_MACHINE\\Software\\Tree\\a\\kept", KEY_SET_VALUE);

  EXPECT_EQ(Listing(HKEY_LOCAL_MACHINE, "Software\\Shut\\below"), "status 5");
  EXPECT_EQ(SHDeleteKeyA(HKEY_LOCAL_MACHINE, "Software\\Shut"), ERROR_ACCESS_DENIED);
  EXPECT_EQ(Listing(HKEY_LOCAL_MACHINE, "Software\\ShutNot"), "");

  // RegOpenKeyA takes what is left; the single calls then fail.
  EXPECT_EQ(Listing(HKEY_LOCAL_MACHINE, "Software\\Readable"), "v=1 ");
  const UniqueKey readable = Make(HKEY_LOCAL_MACHINE, "Software\\Readable");
  EXPECT_EQ(RegDeleteValueA(readable.Get(), "v"), ERROR_ACCESS_DENIED);
  HKEY key = nullptr;
  EXPECT_EQ(RegCreateKeyA(readable.Get(), "sub", &key), ERROR_ACCESS_DENIED);
  EXPECT_EQ(RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Software\\Readable", 0, KEY_ALL_ACCESS, &key),
            ERROR_ACCESS_DENIED);

  // A tree is deleted as far as it goes.
  EXPECT_EQ(SHDeleteKeyA(HKEY_LOCAL_MACHINE, "Software\\Tree"), ERROR_ACCESS_DENIED);
  EXPECT_EQ(Listing(HKEY_LOCAL_MACHINE, "Software\\Tree"), "a\\ ");
  Store().AllowAll();
  EXPECT_EQ(SHDeleteKeyA(HKEY_LOCAL_MACHINE, "Software\\Tree"), ERROR_SUCCESS);
}

TEST(HostedRegistry, ManyValuesStayInTheirOrderAndAreFoundWhateverWentBefore) {
  TestPc pc;
  const UniqueKey key = Make(HKEY_LOCAL_MACHINE, "Software\\Many");
  std::vector<int> left;
  for (int i = 0; i < 3000; ++i) {
    pc.SetText(HKEY_LOCAL_MACHINE, "Software\\Many", "v" + std::to_string(i), "x");
    if (i % 7 == 3) {  // now and then one of the older goes
      const std::string gone = "V" + std::to_string(i / 2);
      if (RegDeleteValueA(key.Get(), gone.c_str()) == ERROR_SUCCESS) std::erase(left, i / 2);
    }
    left.push_back(i);
  }
  DWORD index = 0;
  for (const int number : left) {
    char name[16];
    DWORD size = sizeof name;
    ASSERT_EQ(RegEnumValueA(key.Get(), index++, name, &size, nullptr, nullptr, nullptr, nullptr),
              ERROR_SUCCESS);
    ASSERT_EQ(name, "v" + std::to_string(number));
    ASSERT_EQ(RegQueryValueExA(key.Get(), name, nullptr, nullptr, nullptr, nullptr), ERROR_SUCCESS);
  }
  EXPECT_EQ(RegEnumKeyA(key.Get(), 0, nullptr, 0), ERROR_NO_MORE_ITEMS);
}

TEST(HostedRegistry, NamesThatAreNoAsciiIgnoreCaseAndBytesThatAreNoUtf8AreMended) {
  TestPc pc;
  pc.SetText(HKEY_LOCAL_MACHINE, "Software\\\xC3\x84pfel", "\xC3\xB6", "a\xFF");
  EXPECT_EQ(Listing(HKEY_LOCAL_MACHINE, "software\\\xC3\xA4PFEL"), "\xC3\xB6=a\xEF\xBF\xBD ");
}

TEST(HostedRegistry, AnExportShowsTheRegistryAsItIsWhenItEnds) {
  TestPc pc;
  pc.SetText(HKEY_LOCAL_MACHINE, "Software\\Slow", "v", "before");
  HostedPc& hosted = HostedPc::Current();
  hosted.editor().SetDuration(60000);
  const std::string file = pc.program_folder() + "\\out.reg";
  const std::string start = "regedit /e \"" + file + "\" HKEY_LOCAL_MACHINE\\Software\\Slow";
  ASSERT_TRUE(hosted.editor().Start(start));
  EXPECT_EQ(GetFileAttributesA(file.c_str()), INVALID_FILE_ATTRIBUTES);
  Sleep(5);
  EXPECT_EQ(pc.ReadFile(file), "");
  EXPECT_TRUE(hosted.editor().IsWriting(file));
  EXPECT_FALSE(DeleteFileA(file.c_str()));
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_SHARING_VIOLATION));
  pc.SetText(HKEY_LOCAL_MACHINE, "Software\\Slow", "v", "after");
  hosted.editor().SetEightBit(true);
  hosted.editor().Finish();
  EXPECT_EQ(pc.ReadFile(file),
            "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Slow]\r\n\"v\"=\"after\"\r\n\r\n");

  ASSERT_TRUE(hosted.editor().Start(start));
  Sleep(5);
  EXPECT_EQ(SHDeleteKeyA(HKEY_LOCAL_MACHINE, "Software\\Slow"), ERROR_SUCCESS);
  hosted.editor().Finish();
  EXPECT_EQ(pc.ReadFile(file), "");
  EXPECT_TRUE(DeleteFileA(file.c_str()));
}

TEST(HostedRegistry, OnlyTheEditorIsStartedAndItsCommandLineIsSplitAsProgramsDo) {
  TestPc pc;
  RegistryEditor& editor = HostedPc::Current().editor();
  EXPECT_TRUE(editor.Start("\"C:\\Windows\\RegEdit.exe\""));
  EXPECT_FALSE(editor.Start("notepad regedit"));
  EXPECT_FALSE(editor.Start(""));
  EXPECT_EQ(SplitCommandLine("a  \"b c\"d \"\" \"e\\\\\" \"f\\\"g\\h"),
            (std::vector<std::string>{"a", "b cd", "", "e\\", "f\"g\\h"}));
}

}  // namespace
}  // namespace tidemark::hosted
