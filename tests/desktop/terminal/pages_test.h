// The pages of the main window with their lists full, on a desk.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "desktop/terminal/desk.h"
#include "tests/support/test_pc.h"
#include "toolkit/script_front_end.h"
#include "window/frmMain.h"
#include "window/panels.h"

namespace tidemark {

class PagesTest : public testing::Test {
 protected:
  PagesTest() {
    desk.main_window = &window.form;
    desk.forms.push_back({.form = &window.form, .loaded = true});
    desk.tray.emplace_back();
    window.form.SetVisible(true);
    window.tvDrives.Add("C", "Local Disk (C:)", 1);
    window.tvDrives.Add("D", "Data (D:)", 1);
    for (int row = 0; row < 40; ++row) {
      for (ListView* list :
           {&window.lvFileTypes, &window.lvExcludeFolders, &window.lvJunkFiles, &window.lvPrograms,
            &window.LvBackup, &window.lvLocations, &window.lvFound, &window.lvProblems}) {
        list->Add("", "row " + std::to_string(row));
      }
    }
    for (int tab = 0; tab < 4; ++tab) {
      window.lblOptions(tab).Clicked.Bind([] {});
      window.lblOptions(tab).SetBackColor(tab == 0 ? 0xFFFFFF : 0);
    }
  }

  // The panels of each page.
  std::vector<std::vector<Control*>> Pages() {
    window.lvScan.SetVisible(false);  // the selection covers it
    window.PbarRemoveJunk.SetVisible(true);
    PictureBox& options = window.picOptions;
    return {{&window.picWelcome},
            {&window.picScan},
            {&window.picClear},
            {&options, &window.picAdvOptions(0)},
            {&options, &window.picAdvOptions(1)},
            {&options, &window.picAdvOptions(2)},
            {&window.picJunkCriteria},
            {&window.picJunkScan, &window.picScaningJunk}};
  }

  void Turn(const std::vector<Control*>& panels) {
    HideAllFrames(window);
    for (Control* panel : panels) panel->SetVisible(true);
  }

  TestPc pc;
  ScriptFrontEnd front_end;
  frmMain window{front_end, {}};
  Desk desk;
};

}  // namespace tidemark
