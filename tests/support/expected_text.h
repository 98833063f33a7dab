// What a test has seen as lines, held against a text file below tests/. Where the variable
// TIDEMARK_WRITE_EXPECTED is set the file is written anew instead: read what has changed in it.
#pragma once

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace tidemark {

// The tests begin at the project's root; a test PC may go elsewhere.
inline const std::filesystem::path kTestsFolder = std::filesystem::current_path() / "tests";

inline void ExpectLinesOf(const std::string& name, const std::vector<std::string>& lines) {
  const std::filesystem::path path = kTestsFolder / name;
  if (std::getenv("TIDEMARK_WRITE_EXPECTED") != nullptr) {
    std::ofstream file(path);
    for (const std::string& line : lines) file << line << '\n';
  }
  std::ifstream file(path);
  std::vector<std::string> expected;
  for (std::string line; std::getline(file, line);) expected.push_back(line);
  ASSERT_EQ(lines.size(), expected.size()) << testing::PrintToString(lines);
  for (std::size_t line = 0; line < lines.size(); ++line) EXPECT_EQ(lines[line], expected[line]);
}

}  // namespace tidemark
