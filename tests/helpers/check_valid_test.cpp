#include "helpers/check_valid.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "helpers/key_names.h"
#include "helpers/system_helpers.h"
#include "helpers/text_helpers.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

using namespace std::string_literals;

struct Judged {
  std::string text;
  bool valid;
};

TEST(CheckValid, JudgesCommandLinesByTheProgramThatTheyStart) {
  TestPc pc;
  const std::string base = pc.folder();
  pc.MakeFile(base + "\\Program Files\\App\\app.exe");
  pc.MakeFile(base + "\\App.v2\\tool.exe");
  pc.MakeFile(base + "\\Tools\\app.exe");
  for (const char* name : {"bat.bat", "com.com"}) pc.MakeFile(base + "\\Tools\\" + name);
  pc.MakeFile(base + "\\lib\\codec.dll");
  pc.MakeFile(base + "\\lib\\plain");
  pc.MakeFile(base + "\\Größe Чайка\\app.exe");
  const std::vector<Judged> cases = {
      {base + "\\Program Files\\App", true},
      {base + "\\Program Files\\App\\app.exe", true},
      {base + "\\Program Files\\App\\app.exe /silent", true},
      {base + "\\Program Files\\App\\app.exe -run", true},
      {base + "\\Program Files\\App\\app.exe,-3", true},
      {base + "\\Program Files\\App\\app.exe;0", true},
      {base + "\\Program Files\\App\\app.exe%1", true},
      {"\"" + base + "\\Program Files\\App\\app.exe\" -run", true},
      {"\"" + base + "\\Program Files\\App\\gone.exe\" -run", false},
      {base + "\\Tools\\app", true},  // a program's extension is added
      {base + "\\Tools\\bat", true},
      {base + "\\Tools\\com", true},
      {base + "\\Tools\\app -x", false},
      {base + "\\App.v2\\tool.exe", true},
      {base + "\\App.v2\\tool.exe -x", false},  // the folder's dot ends the cut too early
      {base + "\\lib\\codec.dll", true},
      {base + "\\lib\\gone.dll", false},
      {"@" + base + "\\lib\\codec.dll,-101", true},
      {"\"" + base + "\\Größe Чайка\\app.exe\"", true},
      // No extension to cut at, so each sign has to be cut at by itself.
      {base + "\\lib\\plain,-3", true},
      {base + "\\lib\\plain /x", true},
      {base + "\\lib\\plain;0", true},
      {base + "\\lib\\plain%1", true},
      {"\"" + base + "\\lib\\plain\"", true},
      {base + "\\lib\\co@dec.dll", true},
      {"1 " + base + "\\lib\\gone.dll", false},
      {"run it: " + base + "\\lib\\codec.dll", true},
      {"Rundll32 " + base + "\\lib\\codec.dll,Start", true},
      {"RunDll32 " + base + "\\lib\\gone.dll,Start", false},
  };
  for (const Judged& one : cases) EXPECT_EQ(CheckValid(one.text), one.valid) << one.text;
}

TEST(CheckValid, LeansTowardsValidForWhatItCannotUnderstand) {
  TestPc pc;
  const std::vector<Judged> cases = {
      {"X:\\gone\\gone.exe", true},
      {"u:\\gone.exe", true},
      {"T:\\gone folder\\gone.exe", false},
      {"1.dll", true},
      {"%NoSuchVariable%\\gone.exe", true},
      {"%NoSuchVariable%;C:\\gone folder\\gone.exe", false},
      {"", true},  // the file-system object calls an empty folder name a mistake, not missing
      // Too long to be looked for.
      {"C:\\gone folder\\" + std::string(300, '\\') + "gone.exe", true},
      {"\"C:\\gone folder\\gone.exe\" " + std::string(300, 'x'), false},
      {"gone", false},
      {"gone.exe", false},
  };
  for (const Judged& one : cases) EXPECT_EQ(CheckValid(one.text), one.valid) << one.text;
}

TEST(CheckValid, WhatCannotBeLookedAtIsNotGone) {
  TestPc pc;
  if (!TestPc::CanFault()) GTEST_SKIP() << "drives can't be made on this ground";
  for (const auto& [drive, valid] : {std::pair{"cdrom not ready", true},
                                     {"network error=53", true},    // no such server now
                                     {"network error=67", true},    // no such share now
                                     {"fixed error=33", true},      // a locked volume
                                     {"removable error=23", true},  // bad sectors
                                     {"fixed error=32", true},      // a sharing violation
                                     {"fixed error=5", true},
                                     {"fixed error=2", false},
                                     {"fixed error=3", false},
                                     {"fixed error=15", false},
                                     {"fixed error=123", false},
                                     {"fixed error=161", false}}) {
    pc.SetDrive('E', drive);
    // On a drive that fails, a name of any form may be that of a file.
    for (const std::string& text :
         {std::string("E:\\Disc\\play.exe"), std::string("E:\\Disc\\play.exe -x:1"),
          "E:\\Disc\\play.exe -x:" + std::string(250, 'y'),
          "\"E:\\Disc\\play.exe\" " + std::string(300, 'y')}) {
      EXPECT_EQ(CheckValid(text), valid) << drive << ' ' << text;
    }
  }
}

TEST(CheckValid, FindsBareNamesInTheSystemFoldersAlone) {
  TestPc pc;
  const std::string name = "tm-" + pc.folder().substr(pc.folder().rfind('\\') + 1);
  for (const std::string& file : {"\\system32\\" + name + ".dll", "\\system\\s" + name + ".dll",
                                  "\\w" + name + ".dll", "\\t.m.dll"s, "\\tmq"s}) {
    pc.MakeFile(GetWindowsDir() + file);
  }
  const std::string runner = GetWindowsDir() + "\\System32\\";
  pc.MakeFile(GetWindowsDir() + "\\system32\\rundll32.exe");
  const std::vector<Judged> cases = {
      {name + ".dll", true},
      {name + ".dll /s", true},
      {"s" + name + ".dll", true},
      {"w" + name + ".dll", true},
      {"t.m.dll -x", true},  // its first dot does not count
      {"tmqx -y", true},     // with no dot, three characters do
      {name, false},         // no extension is tried in the system folders
      {"%SystemRoot%\\system32\\" + name + ".dll", true},
      {"%SystemRoot%\\system32\\" + name + "-gone.dll", false},
      {"Rundll32 " + name + ".dll,Start", true},
      {"RunDll32 " + name + ".dll,Start", true},
      {runner + "rundll32.exe x", true},
      {runner + "Rundll32.exe x", false},  // the runner's name is taken out
  };
  for (const Judged& one : cases) EXPECT_EQ(CheckValid(one.text), one.valid) << one.text;
}

TEST(KeyNames, ARowCanNeverMeanAWholeRoot) {
  EXPECT_EQ(SplitSubKey("HKEY_CLASSES_ROOT\\"), "abcdefgh");
  EXPECT_EQ(SplitSubKey("HKEY_CLASSES_ROOT\\  "), "abcdefgh");
  EXPECT_EQ(SplitSubKey(""), "abcdefgh");
  EXPECT_EQ(SplitSubKey("HKEY_CLASSES_ROOT"), "HKEY_CLASSES_ROOT");
  EXPECT_EQ(SplitSubKey("HKEY_CLASSES_ROOT\\ CLSID\\x "), " CLSID\\x ");
  EXPECT_EQ(StripHkey("HKEY_CLASSES_ROOT"), nullptr);
  EXPECT_EQ(StripHkey("hkey_users\\x"), nullptr);
  for (const HKEY root : {HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, HKEY_USERS}) {
    EXPECT_EQ(StripHkey(std::string(HkeyText(root)) + "\\x"), root);
  }
}

TEST(TextHelpers, ReadNumbersAsThePlatformDoes) {
  EXPECT_EQ(LeadingNumber("  12 problems"), 12);
  EXPECT_EQ(LeadingNumber("-3x"), -3);
  for (const char* text : {"", "x", "inf", "nan", "+-1", "-", "."}) {
    EXPECT_EQ(LeadingNumber(text), 0) << text;
    EXPECT_FALSE(NumberOf(text)) << text;
  }
  EXPECT_EQ(NumberOf(" 01 "), 1);
  EXPECT_FALSE(NumberOf("1 problem"));
  EXPECT_EQ(RoundToLong(2.5), 2);
  EXPECT_EQ(RoundToLong(3.5), 4);
  EXPECT_FALSE(RoundToLong(LeadingNumber("1e999")));
}

}  // namespace
}  // namespace tidemark
