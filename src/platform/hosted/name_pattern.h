// The two ways in which the platform holds a file's name against a pattern with "*" and "?".
#pragma once

#include <string>
#include <string_view>

namespace tidemark::hosted {

// The pattern of a file search, by the rules that file systems keep from the days of 8.3 names: a
// "?" before a dot or the end may stand for nothing, "*." leaves out names with a dot, "x.*" finds
// "x" too, and "*.*" finds everything (Windows documentation, FsRtlIsNameInExpression).
class SearchPattern {
 public:
  // The last name of the searched path. Blanks and dots at its end don't count, but for "*.".
  explicit SearchPattern(std::string_view pattern);

  bool Matches(std::string_view upper_name) const;

 private:
  std::u32string symbols_;  // in capitals; wild cards are the file system's
};

bool HasWildCards(std::string_view name);

// PathMatchSpecA: several patterns with ";" between them, each ignoring blanks before it. Here a
// wild card means just what it shows.
bool FitsPatternList(std::string_view name, std::string_view patterns);

}  // namespace tidemark::hosted
