// A profile file that remembers its path. A facility: the program's own flows use ini_access.
#pragma once

#include <string>

#include "toolkit/front_end.h"

namespace tidemark {

class clsIni {
 public:
  // The front end shows what DeleteIni has to say.
  explicit clsIni(FrontEnd& front_end) : front_end_(front_end) {}

  // Forgets the path; the file stays as it is.
  void ClearAllValues() { path_.clear(); }
  // Deletes the file if its path ends in ".ini", in small letters; says so if it does not, or if
  // there is no such file. Any other failure is silent.
  void DeleteIni();

  const std::string& IniPath() const { return path_; }
  void SetIniPath(std::string path) { path_ = std::move(path); }

  // At most 749 characters; empty when there is none.
  std::string GetIniSetting(const std::string& section, const std::string& key) const;
  // A failure is not told.
  void SaveIniSetting(const std::string& section, const std::string& key,
                      const std::string& value) const;

 private:
  FrontEnd& front_end_;
  std::string path_;
};

}  // namespace tidemark
