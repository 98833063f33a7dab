// A fresh PC with Tidemark's main window on it, its handlers bound, a script for a front end.
#pragma once

#include <string>
#include <vector>

#include "scan/results.h"
#include "shell/wiring.h"
#include "tests/support/test_pc.h"
#include "toolkit/script_front_end.h"
#include "window/frmMain.h"

namespace tidemark {

class WindowPc {
 public:
  explicit WindowPc(TestPc::Registry registry = TestPc::Registry::kRedirected)
      : pc(registry), window(front_end, Application{.folder = pc.program_folder()}) {
    BindHandlers(window);
    LoadReasons(window);
    LoadIgnoreLst(window.IgnoreList, pc.program_folder());
  }

  // Rows of a list as "text|sub-item 1|...", the wanted columns only (0 is the text).
  static std::vector<std::string> Rows(const ListView& list, const std::vector<int>& columns,
                                       char separator = '|') {
    std::vector<std::string> rows;
    for (int index = 1; index <= list.Count(); ++index) {
      const ListItem& item = *list.Item(index);
      std::string row;
      for (const int column : columns) {
        if (column != columns.front()) row += separator;
        row += column == 0 ? item.Caption().String() : item.SubItem(column).String();
      }
      rows.push_back(row);
    }
    return rows;
  }

  // The findings as "value name|reason".
  std::vector<std::string> NamesAndReasons() const {
    return Rows(window.lvInvalidLoc, {kValueName, kReason});
  }

  // The text of the only ".reg" file in the backup folder; empty when there is none.
  std::string UndoText() {
    const std::string folder = pc.program_folder() + "\\backup";
    for (const std::string& name : pc.FileNames(folder)) {
      if (name.ends_with(".reg")) return pc.ReadFile(folder + '\\' + name);
    }
    return {};
  }

  TestPc pc;
  ScriptFrontEnd front_end;
  frmMain window;
};

}  // namespace tidemark
