#include "tests/grounds/link_tool.h"

#include <cstdio>
#include <optional>

#include "helpers/modShortcut.h"
#include "platform/shell_link.h"
#include "toolkit/script_front_end.h"

namespace tidemark {
namespace {

struct Case {
  const char* file;
  NewShortcut link;
};

const std::vector<Case>& Cases() {
  static const std::vector<Case> kCases = {
      {"file", {.target = "C:\\windows\\notepad.exe"}},
      {"folder", {.target = "C:\\windows"}},
      {"root", {.target = "C:\\"}},
      {"gone", {.target = "C:\\Gone\\No Such\\program.exe"}},
      {"long", {.target = "C:\\" + std::string(200, 'd') + "\\a.exe"}},
      {"texts",
       {.target = "C:\\windows\\notepad.exe",
        .arguments = "/x \"a b\" \xD0\x96",
        .description = "\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x94\x97",
        .hot_key = "1603",
        .working_directory = "C:\\Gone \xC3\xA4",
        .icon_file = "%WINDIR%\\shell32.dll",
        .icon_index = -9}},
      {"arguments alone", {.target = "C:\\windows", .arguments = std::string(900, 'a')}},
      {"nothing", {}},
      {"share", {.target = "\\\\host\\share\\folder\\a.exe"}},
      {"share root", {.target = "\\\\host\\share"}},
      {"dr\xC3\xA4nage", {.target = "C:\\Gone \xC3\xA4\\\xC3\xB6.exe"}},
  };
  return kCases;
}

int Write(const std::string& folder) {
  ScriptFrontEnd front_end;
  int failures = 0;
  for (const Case& one : Cases()) {
    std::string file = folder + "\\" + one.file;
    if (WriteShortcut(front_end, file, AskBeforeReplacing::kNo, one.link)) continue;
    std::printf("%s: not written\n", one.file);
    ++failures;
  }
  return failures;
}

// All fields that a link is made of, divided by bars.
std::string FieldsOf(const LinkFields& link, const std::string& hot_key) {
  return link.target + '|' + link.arguments + '|' + link.description + '|' + hot_key + '|' +
         link.working_directory + '|' + link.icon_file + '|' + std::to_string(link.icon_index);
}

int Check(const std::string& folder) {
  int failures = 0;
  for (const Case& one : Cases()) {
    LinkFields read;
    const LinkStatus status = ReadLinkFile(folder + "\\" + one.file + ".lnk", read);
    const LinkFields wanted{.target = one.link.target,
                            .arguments = one.link.arguments,
                            .description = one.link.description,
                            .working_directory = one.link.working_directory,
                            .icon_file = one.link.icon_file,
                            .icon_index = one.link.icon_index};
    const std::string is = FieldsOf(read, std::to_string(read.hot_key));
    const std::string was = FieldsOf(wanted, one.link.hot_key.empty() ? "0" : one.link.hot_key);
    if (status == LinkStatus::kDone && is == was) continue;
    std::printf("%s: <%s>, not <%s>\n", one.file, is.c_str(), was.c_str());
    ++failures;
  }
  return failures;
}

}  // namespace

int RunLinkTool(const std::vector<std::string>& arguments) {
  if (arguments.size() == 2 && arguments[0] == "write") return Write(arguments[1]) != 0 ? 1 : 0;
  if (arguments.size() == 2 && arguments[0] == "check") return Check(arguments[1]) != 0 ? 1 : 0;
  std::puts("link_tool: write FOLDER | check FOLDER");
  return 2;
}

}  // namespace tidemark
