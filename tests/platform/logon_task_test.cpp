#include "platform/logon_task.h"

#include <gtest/gtest.h>

#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

TEST(LogonTask, SaysWhoStartsWhatAndWithWhichRights) {
  const std::string xml = LogonTaskXml({"C:\\R&D <1>\\t.exe", "/m"}, "S-1-5-21");
  for (const char* const part :
       {"<LogonTrigger><UserId>S-1-5-21</UserId></LogonTrigger>",
        "<UserId>S-1-5-21</UserId><LogonType>InteractiveToken</LogonType><RunLevel>Highest",
        "<Command>\"C:\\R&amp;D &lt;1&gt;\\t.exe\"</Command><Arguments>/m</Arguments>"}) {
    EXPECT_NE(xml.find(part), std::string::npos) << part;
  }
}

TEST(LogonTask, IsRegisteredAgainAndRemovedOnce) {
  const TestPc pc(TestPc::Registry::kLive);
  const HRESULT first = RegisterLogonTask({"C:\\R&D \xC3\xA4\\tidemark.exe", "/m"});
  constexpr HRESULT kServiceNotRunning = -0x7FFBECEB;
  if (first == kServiceNotRunning) GTEST_SKIP() << "the Task Scheduler does not run";
  EXPECT_EQ(first, S_OK);
  EXPECT_EQ(RegisterLogonTask({"C:\\tidemark.exe", "/m"}), S_OK);
  EXPECT_EQ(RemoveLogonTask(), S_OK);
  EXPECT_EQ(RemoveLogonTask(), S_OK) << "none is left";
}

}  // namespace
}  // namespace tidemark
