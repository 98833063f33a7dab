#include "scan/saved_list.h"

#include <array>
#include <string_view>

#include "helpers/diagnostic_tests.h"
#include "platform/file_system_object.h"
#include "platform/letter_case.h"
#include "platform/unicode.h"
#include "window/finding_columns.h"

namespace tidemark {
namespace {

constexpr std::size_t kFields = 7;
using Record = std::array<std::string_view, kFields>;

constexpr Record kHeadings = {
    "Diagnostic Test", "Invalid data location", "Value name", "Value Data", "Reason", "Type",
    "Ticked"};

Record RecordOf(const ListItem& finding) {
  const std::string_view code = finding.SubItem(kTestCode).View();
  const DiagnosticTest* test = FindDiagnosticTest(code);
  return {test == nullptr ? code : test->name,
          finding.Caption().View(),
          finding.SubItem(kValueName).View(),
          finding.SubItem(kValueData).View(),
          finding.SubItem(kReason).View(),
          finding.SubItem(kValueType).View(),
          finding.SubItem(kSelected) == "1" ? "yes" : "no"};
}

// The registry can hold what is no character.
std::string WellFormed(std::string_view text) {
  constexpr char32_t kReplacement = 0xFFFD;
  std::string result;
  for (std::size_t position = 0; position < text.size();) {
    const char32_t character = NextCharacter(text, position);
    AppendUtf8(result, character == kNoCharacter ? kReplacement : character);
  }
  return result;
}

void AddCsv(std::string& file, const Record& record) {
  std::string_view separator;
  for (const std::string_view field : record) {
    file.append(separator).append("\"");
    for (const char character : WellFormed(field)) {
      file.append(character == '"' ? 2 : 1, character);
    }
    file += '"';
    separator = ",";
  }
  file += "\r\n";
}

std::string_view Escaped(const char& character) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    default:
      return {&character, 1};
  }
}

void AddTableRow(std::string& page, std::string_view cell, const Record& record) {
  page += "<tr>";
  for (const std::string_view field : record) {
    page.append("<").append(cell).append(">");
    for (const char& character : WellFormed(field)) page += Escaped(character);
    page.append("</").append(cell).append(">");
  }
  page += "</tr>\r\n";
}

template <class Add>
void AddFindings(const frmMain& window, const Add& add) {
  for (int index = 1; index <= window.lvInvalidLoc.Count(); ++index) {
    add(RecordOf(*window.lvInvalidLoc.Item(index)));
  }
}

bool IsWebPage(const std::string& path) {
  const std::string name = LowerCase(path);
  return name.ends_with(".htm") || name.ends_with(".html");
}

}  // namespace

std::string FindingsAsCsv(const frmMain& window) {
  std::string file = "\xEF\xBB\xBF";
  AddCsv(file, kHeadings);
  AddFindings(window, [&file](const Record& record) { AddCsv(file, record); });
  return file;
}

std::string FindingsAsWebPage(const frmMain& window) {
  std::string page =
      "<!DOCTYPE html>\r\n<html lang=\"en\"><head><meta charset=\"utf-8\">"
      "<title>Tidemark: problems found</title><style>body{font-family:sans-serif}"
      "table{border-collapse:collapse}th,td{border:1px solid #bbb;padding:2px 6px;text-align:left;"
      "overflow-wrap:anywhere}</style></head><body>\r\n<h1>Problems found</h1>\r\n<table>\r\n";
  AddTableRow(page, "th", kHeadings);
  AddFindings(window, [&page](const Record& record) { AddTableRow(page, "td", record); });
  return page + "</table></body></html>\r\n";
}

void mnuSaveList_Click(frmMain& window) {
  const std::string path = window.front_end.AskSaveFile("Save List", "Tidemark problems.csv");
  if (path.empty()) return;
  const std::string file = IsWebPage(path) ? FindingsAsWebPage(window) : FindingsAsCsv(window);
  if (FileSystemObject().WriteAll(path, file)) return;
  window.front_end.ShowMessage("The list could not be written to " + path, window.application.title,
                               MessageIcon::kExclamation);
}

}  // namespace tidemark
