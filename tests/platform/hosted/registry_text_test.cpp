#include "platform/hosted/registry_text.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/exact_text.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_store.h"
#include "tests/support/temporary_folder.h"

namespace tidemark::hosted {
namespace {

using namespace std::string_literals;

constexpr const char* kHeader5 = "Windows Registry Editor Version 5.00\r\n\r\n";
constexpr const char* kHeader4 = "REGEDIT4\r\n\r\n";
constexpr const char* kKey = "[HKEY_LOCAL_MACHINE\\K]\r\n";

std::string Wide(const std::string& text) {
  std::string bytes = "\xFF\xFE";
  AppendAsUtf16(text, bytes);
  return bytes;
}

class RegistryText : public testing::Test {
 protected:
  void Write(const std::string& bytes) const { std::ofstream(file_, std::ios::binary) << bytes; }

  std::string Read() const {
    std::ifstream in(file_, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  // The one value of HKEY_LOCAL_MACHINE\K, after a load of the script; or what is wrong with it,
  // behind the file's name.
  std::string Loaded(const std::string& script) const {
    Write(script);
    RegistryStore store("S-1-5-21");
    try {
      store.Load(file_);
    } catch (const HostedPcError& error) {
      return std::string(error.what()).substr(file_.string().size());
    }
    const RegistryView key = store.Open(store.Root(HKEY_LOCAL_MACHINE), "K");
    if (store.ValueCount(key) != 1) return "no value";
    const RegistryValue& value = store.ValueAt(key, 0);
    return std::to_string(value.type()) + ":" + std::string(value.data());
  }

  TemporaryFolder folder_;
  const std::filesystem::path file_ = folder_.path() / "script.reg";
};

TEST_F(RegistryText, EveryWayToWriteAValueIsRead) {
  const struct {
    std::string line;
    std::string in_version5;
    std::string in_regedit4;
  } kCases[] = {
      {"@=\"a\\\\b\\\"c\"", "1:a\\b\"c\0"s, "1:a\\b\"c\0"s},
      {" \"x\" = \"two\r\nlines\" ; comment", "1:two\r\nlines\0"s, "1:two\r\nlines\0"s},
      {"\"x\"=dword:0000ff01", "4:\x01\xFF\0\0"s, "4:\x01\xFF\0\0"s},
      {"\"x\"=hex:", "3:", "3:"},
      {"\"x\"=hex:1,\\\r\n  fE", "3:\x01\xFE", "3:\x01\xFE"},
      {"\"x\"=hex(2):41,00,e4,00,00,00", "2:A\xC3\xA4\0"s, "2:A\0\xC3\xA4\0\0\0"s},
      {"\"x\"=hex(1):41,00,3d,d8", "1:A\xED\xA0\xBD", "1:A\0=\xC3\x98"s},
      {"\"x\"=\"\xE4\"", "1:\xC3\xA4\0"s, "1:\xC3\xA4\0"s},
      {"\"x\"=\"1\"\r\n\"X\"=-", "no value", "no value"},
  };
  for (const auto& test : kCases) {
    EXPECT_EQ(Loaded(std::string(kHeader5) + kKey + test.line), test.in_version5) << test.line;
    EXPECT_EQ(Loaded(std::string(kHeader4) + kKey + test.line), test.in_regedit4) << test.line;
  }
}

TEST_F(RegistryText, AScriptThatIsWrongIsRefusedWithItsLine) {
  std::string deep;
  for (int level = 0; level < 100000; ++level) deep += "\\k";
  const struct {
    std::string script;
    std::string fault;
  } kCases[] = {
      {"[HKEY_NOWHERE\\x]\r\n", ":3: unknown root of a key"},
      {"[HKEY_USERS\\x\r\n", ":3: a key without its closing bracket"},
      {"\"x\"=\"1\"\r\n", ":3: a value without a key"},
      {std::string(kKey) + "rubbish\r\n", ":4: neither a key nor a value"},
      {std::string(kKey) + "\r\n\"x\"=\"cut", ":5: a text without its closing quote"},
      {std::string(kKey) + "\"x\"=\"a\"b\"\r\n", ":4: something stands behind the value"},
      {std::string(kKey) + "\"x\"=\"\\q\"\r\n", ":4: unknown escape in a text"},
      {std::string(kKey) + "\"x\"=qword:1\r\n", ":4: unknown value type"},
      {std::string(kKey) + "\"x\"=dword:123456789\r\n", ":4: wrong number"},
      {std::string(kKey) + "\"x\"=hex:01,zz\r\n", ":4: bytes end in a comma"},
      {std::string(kKey) + "\"x\"=hex:01,\\", ":4: bytes are cut"},
      {std::string(kKey) + "\"x\"=hex:01 02\r\n", ":4: wrong bytes"},
      {"[HKEY_USERS\\" + std::string(257, 'k') + "]\r\n", ":3: the name of a key is too long"},
      {"[HKEY_LOCAL_MACHINE" + deep + "]\r\n", ":3: the key can't be made"},
  };
  for (const auto& test : kCases) {
    EXPECT_EQ(Loaded(kHeader5 + test.script), test.fault);
    EXPECT_EQ(Loaded(Wide(kHeader5 + test.script)), test.fault);
  }
  EXPECT_EQ(Loaded(""), ":1: no registry script: unknown first line");
  EXPECT_EQ(Loaded(Wide(kHeader5) + "x"), ":3: 16-bit text with half a character at its end");
  EXPECT_EQ(Loaded("\xFE\xFF\0W"s).substr(0, 20), ":1: unknown encoding");
}

TEST_F(RegistryText, ASavedRegistryIsByteForByteWhatTheEditorWrites) {
  const std::string script =
      Wide(std::string(kHeader5) +
           "[HKEY_LOCAL_MACHINE]\r\n\r\n[HKEY_LOCAL_MACHINE\\A]\r\n@=\"d\"\r\n"
           "\"q\\\"\\\\\"=\"\xED\xA0\xBD \xF0\x9F\x98\x80 line\nbreak\"\r\n"
           "\"long name to start with\"=hex:00,01,02,03,04,05,06,07,08,09,0a,0b,0c,0d,0e,0f,\\\r\n"
           "  10,11,12,13,14,15,16,17,18,19,1a,1b,1c,1d,1e,1f,20,21,22,23,24,25,26,27,28,\\\r\n"
           "  29,2a\r\n"
           "\"unended\"=hex(1):41,00\r\n\"nul inside\"=hex(1):41,00,00,00,42,00,00,00\r\n"
           "\"e\"=hex(2):25,00,00,00\r\n\"m\"=hex(7):00,00\r\n\"n\"=dword:00000abc\r\n"
           "\"odd\"=hex(7):41,00,42\r\n\"short\"=hex(4):01\r\n\"none\"=hex(0):\r\n"
           "\r\n[HKEY_LOCAL_MACHINE\\A\\b]\r\n\r\n[HKEY_LOCAL_MACHINE\\A\\C]\r\n"
           "\r\n[HKEY_USERS]\r\n\r\n[HKEY_USERS\\S-1-5-21]\r\n\r\n");
  Write(script);
  RegistryStore store("S-1-5-21");
  store.Load(file_);
  EXPECT_FALSE(store.changed());
  store.Save(file_);
  EXPECT_EQ(Read(), script);
}

TEST_F(RegistryText, RootsThatAreViewsAreTakenToWhereTheyBelong) {
  RegistryStore store("S-1-5-21");
  Write(std::string(kHeader5) + "[HKEY_CLASSES_ROOT]\r\n@=\"x\"\r\n[HKEY_CLASSES_ROOT\\.a\\b]\r\n" +
        "[hkey_current_user\\Software]\r\n");
  store.Load(file_);
  EXPECT_TRUE(store.Open(store.Root(HKEY_LOCAL_MACHINE), "Software\\Classes\\.a\\b").exists());
  EXPECT_TRUE(store.Open(store.Root(HKEY_USERS), "S-1-5-21\\Software").exists());
}

}  // namespace
}  // namespace tidemark::hosted
