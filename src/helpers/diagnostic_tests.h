// The twelve diagnostic tests: what each is called, the code by which the whole program knows it,
// and how severe its findings are. The position in the table is the test's identity.
#pragma once

#include <array>
#include <string_view>

namespace tidemark {

struct DiagnosticTest {
  std::string_view code;
  std::string_view name;
  std::string_view description;
  int severity;  // index into kSeverityWords and SeverityCounts
};

extern const std::array<DiagnosticTest, 12> kDiagnosticTests;

extern const std::array<std::string_view, 5> kSeverityWords;

// The test of that code, letter case counting; null for another code.
const DiagnosticTest* FindDiagnosticTest(std::string_view code);

}  // namespace tidemark
