// The platform's file list box: the names of the files of one folder that match a pattern, sorted.
// It has no picture of its own here; procedures use it as a directory listing.
#pragma once

#include <string>
#include <vector>

#include "toolkit/control.h"

namespace tidemark {

class FileListBox : public Control {
 public:
  FileListBox(Control* container, std::string name) : Control(container, std::move(name)) {
    SetVisible(false);
  }

  const std::string& Path() const { return path_; }
  // Lists the folder. False, and the old folder and its list stay, when there is no such folder.
  bool SetPath(const std::string& path);
  const std::string& Pattern() const { return pattern_; }
  // "*.reg", or several with ";" between them. Lists again.
  void SetPattern(std::string pattern);
  // Reads the folder again. A folder that is gone gives an empty list.
  void Refresh();

  int ListCount() const { return static_cast<int>(names_.size()); }
  // The file's name, with its extension; empty for an index that is not from 0 to ListCount() - 1.
  std::string List(int index) const;
  int ListIndex() const { return list_index_; }  // -1: none
  void SetListIndex(int index) { list_index_ = index; }

 private:
  std::string path_;
  std::string pattern_ = "*.*";
  std::vector<std::string> names_;
  int list_index_ = -1;
};

}  // namespace tidemark
