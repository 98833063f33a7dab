// The picture file that a control shows.
#pragma once

#include <string>
#include <utility>

namespace tidemark {

class Picture {
 public:
  // Empty for none.
  const std::string& File() const { return file_; }
  // It need not be there.
  void SetFile(std::string file) { file_ = std::move(file); }
  // A file that is missing leaves the old picture.
  void Load(const std::string& file);

 private:
  std::string file_;
};

}  // namespace tidemark
