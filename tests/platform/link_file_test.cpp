#include "platform/link_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "helpers/link_template.h"
#include "platform/link_format.h"
#include "tests/support/link_bytes.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

using namespace link_bytes;

std::string WholePath(const std::string& name, const std::string& long_name = {},
                      std::size_t version = 3) {
  return ItemList({RootItem(), DriveItem("C:\\"), FileItem(name, long_name, version)});
}

TEST(LinkFile, TheTargetIsFoundWhereverTheLinkHoldsIt) {
  TestPc pc;
  pc.SetVariable("TOOLS", "C:\\Tools");
  const std::uint32_t both = kHasItemList | kHasLinkInfo;
  const std::string local = LinkInfo("C:\\Apps", "", "a.exe");
  struct Case {
    const char* what;
    std::string bytes;
    std::string target;
  };
  const std::vector<Case> cases = {
      {"item list before link info", Header(both) + WholePath("b.exe") + local, "C:\\b.exe"},
      {"long name of an old block", Header(both) + WholePath("LO~1.EXE", "lo ng.exe") + local,
       "C:\\lo ng.exe"},
      {"of a new one", Header(both) + WholePath("LO~1.EXE", "lo ng.exe", 9) + local,
       "C:\\lo ng.exe"},
      {"a short name alone", Header(both) + WholePath("LO~1.EXE") + local, "C:\\LO~1.EXE"},
      {"one of a long name that can't be read",
       Header(both) + WholePath("LO~1.EXE", "lo ng.exe", 4) + local, "C:\\Apps\\a.exe"},
      {"a place of the network",
       Header(both) +
           ItemList({RootItem(), NetworkItem('\x47', "Entire Network"),
                     NetworkItem('\x42', "\\\\host"), NetworkItem('\xC3', "\\\\host\\share"),
                     FileItem("d"), FileItem("a.exe")}) +
           local,
       "\\\\host\\share\\d\\a.exe"},
      {"a network without a place",
       Header(both) + ItemList({RootItem(), NetworkItem('\x47', "All"), FileItem("d")}) + local,
       "C:\\Apps\\a.exe"},
      {"a drive by its class",
       Header(both) + ItemList({'\x2E' + std::string(17, '\x20'), FileItem("b.exe")}) + local,
       "C:\\Apps\\a.exe"},
      {"an item that says it is longer than the list",
       Header(both) + Word(8) + Word(0x1000) + "\x32" + Zeros(5) + local, "C:\\Apps\\a.exe"},
      {"a root and a suffix", Header(kHasLinkInfo) + LinkInfo("C:\\", "", "b.exe"), "C:\\b.exe"},
      {"8 bits of the code page", Header(kHasLinkInfo) + LinkInfo("C:\\\xE4", "", ""),
       "C:\\\xC3\xA4"},
      {"16-bit texts before 8-bit ones",
       Header(kHasLinkInfo) + LinkInfo("C:\\???.exe", "", "", "C:\\wide.exe"), "C:\\wide.exe"},
      {"an empty 16-bit suffix before another 8-bit one",
       Header(kHasLinkInfo) + LinkInfo("C:\\a", "", "b.exe", "C:\\wide.exe"), "C:\\wide.exe"},
      {"a share", Header(kHasLinkInfo) + LinkInfo("", "\\\\host\\share", "d\\a.exe"),
       "\\\\host\\share\\d\\a.exe"},
      {"a share that was a drive",
       Header(kHasLinkInfo) + LinkInfo("", "\\\\host\\share", "d\\a.exe", "", "Z:"),
       "\\\\host\\share\\d\\a.exe"},
      {"link info that is not to be read",
       Header(kHasLinkInfo | kForceNoLinkInfo | kHasRelativePath) + local + String8(".\\r.exe"),
       "C:\\Menu\\Sub\\r.exe"},
      {"a path with variables", Header(0) + EnvironmentBlock("%TOOLS%\\e.exe", ""),
       "C:\\Tools\\e.exe"},
      {"the same in 16 bits", Header(0) + EnvironmentBlock("?", "%tools%\\w.exe"),
       "C:\\Tools\\w.exe"},
      {"advertised", Header(both | kHasAdvertisedTarget) + WholePath("b.exe") + local, ""},
      {"relative, 8 bits", Header(kHasRelativePath) + String8("..\\..\\App\\r.exe"),
       "C:\\App\\r.exe"},
      {"relative, 16 bits", Header(kHasRelativePath | kIsWide) + String16("r.exe"),
       "C:\\Menu\\Sub\\r.exe"},
      {"offsets beyond link info",
       Header(kHasLinkInfo | kHasRelativePath) + Long(0x1C) + Long(0x1C) + Long(3) +
           Long(0xFFFFFFF0) + Long(0x1C) + Long(0xFFFFFFFF) + Long(0x1000) + String8("r.exe"),
       "C:\\Menu\\Sub\\r.exe"},
      {"nothing", Header(0), ""},
      {"the template", {kLinkTemplate.begin(), kLinkTemplate.end()}, "C:\\boot.ini"},
  };
  for (const Case& test : cases) {
    const auto link = ParseLinkFile(test.bytes);
    ASSERT_TRUE(link) << test.what;
    EXPECT_EQ(TargetOf(*link, "C:\\Menu\\Sub\\x.lnk"), test.target) << test.what;
  }
}

TEST(LinkFile, TextsAreReadInBothWidths) {
  const std::uint32_t all =
      kHasDescription | kHasRelativePath | kHasWorkingDirectory | kHasArguments | kHasIcon;
  const std::string narrow = Header(all, 7) + String8("d\xE4") + String8("r") + String8("w") +
                             String8(std::string("a\0b", 3)) + String8("i") + Long(0);
  const std::string wide = Header(all | kIsWide, 7) + Word(2) + Wide("d\xE4") + String16("r") +
                           String16("w") + String16("a") + String16("i") + Long(0);
  for (const std::string& bytes : {narrow, wide}) {
    const auto link = ParseLinkFile(bytes);
    ASSERT_TRUE(link);
    EXPECT_EQ(link->description, "d\xC3\xA4");
    EXPECT_EQ(link->relative_path, "r");
    EXPECT_EQ(link->working_directory, "w");
    EXPECT_EQ(link->arguments, "a");
    EXPECT_EQ(link->icon_file, "i");
    EXPECT_EQ(link->show_command, 7);
  }
}

}  // namespace
}  // namespace tidemark
