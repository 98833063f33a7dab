#include "platform/shell_link.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "helpers/link_template.h"
#include "platform/link_format.h"
#include "tests/support/link_bytes.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

// A link with nothing in it: a header and the end block.
const std::string kEmptyLink = link_bytes::Header(0) + link_bytes::Zeros(4);

auto AllOf(const LinkFields& link) {
  return std::tie(link.target, link.arguments, link.name, link.description, link.hot_key,
                  link.show_command, link.working_directory, link.icon_file, link.icon_index);
}

TEST(ShellLink, AChangedLinkReadsBackInEveryField) {
  TestPc pc;
  const std::string file = pc.folder() + "\\Menu\\Tool \xC3\xA4.LNK";
  pc.MakeFile(file, kEmptyLink);
  LinkFields fields;
  ASSERT_EQ(ReadLinkFile(file, fields), LinkStatus::kDone);
  LinkFields wanted{.target = "C:\\Gone \xC3\xA4\\\xD0\x96.exe",
                    .arguments = "/x \"a b\"",
                    .name = "Tool \xC3\xA4",
                    .description = "What it \xE2\x82\xAC does",
                    .hot_key = 0x0643,
                    .working_directory = "C:\\Gone \xC3\xA4",
                    .icon_file = "C:\\icons.dll",
                    .icon_index = -7};
  ASSERT_EQ(ChangeLinkFile(file, wanted), LinkStatus::kDone);
  ASSERT_EQ(ReadLinkFile(file, fields), LinkStatus::kDone);
  EXPECT_EQ(AllOf(fields), AllOf(wanted));

  // Another target altogether, a folder that is there; the icon stays when none is given.
  LinkFields changed{.target = "C:\\windows", .name = wanted.name};
  ASSERT_EQ(ChangeLinkFile(file, changed), LinkStatus::kDone);
  changed.icon_file = wanted.icon_file;
  changed.icon_index = wanted.icon_index;
  ASSERT_EQ(ReadLinkFile(file, fields), LinkStatus::kDone);
  EXPECT_EQ(AllOf(fields), AllOf(changed));
}

// A shell may read less than this, or by another code page; Wine's does.
TEST(ShellLink, TheTargetIsWhatTheFileSays) {
  using namespace link_bytes;
  TestPc pc;
  const std::string folder = pc.folder() + "\\Menu";
  for (const auto& [bytes, target] : {
           std::pair{Header(kHasLinkInfo) + LinkInfo("C:\\\xE4.exe", "", ""),
                     std::string("C:\\\xC3\xA4.exe")},
           {Header(kHasLinkInfo) + LinkInfo("", "\\\\host\\share", "a.exe"),
            "\\\\host\\share\\a.exe"},
           {Header(kHasRelativePath) + String8("..\\App\\a.exe"), pc.folder() + "\\App\\a.exe"},
           {Header(kHasRelativePath | kIsWide) + String16(".\\a.exe"), folder + "\\a.exe"},
       }) {
    pc.MakeFile(folder + "\\x.lnk", bytes + Long(0));
    LinkFields fields;
    EXPECT_EQ(ReadLinkFile(folder + "\\x.lnk", fields), LinkStatus::kDone) << target;
    EXPECT_EQ(fields.target, target);
  }
}

TEST(ShellLink, NoDamageToALinkDoesMoreThanSpoilIt) {
  TestPc pc;
  const std::string file = pc.folder() + "\\x.lnk";
  std::string good(kLinkTemplate.begin(), kLinkTemplate.end());
  const auto read = [&](const std::string& bytes, const std::string& what) {
    pc.MakeFile(file, bytes);
    LinkFields fields{.target = "as it was"};
    const LinkStatus status = ReadLinkFile(file, fields);
    ASSERT_NE(status, LinkStatus::kNoItem) << what;
    EXPECT_EQ(status == LinkStatus::kFailed, fields.target == "as it was") << what;
  };
  for (std::size_t at = 0; at < good.size(); ++at) {
    read(good.substr(0, at), "cut at " + std::to_string(at));
    for (const char value : {'\0', '\x7F', '\xFF'}) {
      std::string damaged = good;
      damaged[at] = value;
      read(damaged, "changed at " + std::to_string(at));
    }
  }
}

}  // namespace
}  // namespace tidemark
