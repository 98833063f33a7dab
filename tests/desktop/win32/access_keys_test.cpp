#include <gtest/gtest.h>

#include <initializer_list>
#include <map>
#include <string>

#include "desktop/win32/form_keyboard.h"
#include "tests/desktop/win32/desktop_pc.h"
#include "window/panels.h"

namespace tidemark {
namespace {

// The names of the controls that share a key with another one, and of those that say nothing.
std::string Clashes(frmMain& window) {
  Resources resources(window.application.folder);
  const HWND parent = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 900, 600, nullptr, nullptr,
                                      nullptr, nullptr);
  std::string clashes;
  {
    FormPeers peers(window.form, resources, parent);
    peers.Refresh();
    std::map<char, std::string> taken;
    for (const Peer* peer : peers.Reachable()) {
      const char key = FormKeyboard::AccessKeyOf(peer->AccessKeyText().View());
      const std::string& name = peer->GetControl().Name();
      const bool has_text = GetWindowTextLengthA(peer->Window()) > 0;
      if (peer->AccessKeyText().empty() && !has_text) clashes += name + " says nothing; ";
      if (key == 0 || taken.emplace(key, name).second) continue;
      clashes += std::string(1, key) + ": " + taken[key] + " and " + name + "; ";
    }
    EXPECT_GT(taken.size(), 4U) << "the page buttons and something on the page";
  }
  DestroyWindow(parent);
  return clashes;
}

TEST(AccessKeys, NoTwoControlsOfAPageShareOneAndAllHaveNames) {
  DesktopPc on;
  frmMain& window = on.window;
  window.form.SetVisible(true);
  window.SetInitValues();
  for (Control* control : std::initializer_list<Control*>{&window.cmdStop, &window.cmdStopFix,
                                                          &window.cmdFinish, &window.cmdOptApply}) {
    control->SetVisible(true);
    control->SetEnabled(true);
  }
  for (PictureBox* page : {&window.picWelcome, &window.picScan, &window.picClear,
                           &window.picJunkCriteria, &window.picJunkScan}) {
    HideAllFrames(window);
    page->SetVisible(true);
    EXPECT_EQ(Clashes(window), "") << page->Name();
  }
  for (int tab = 0; tab <= 2; ++tab) {
    HideAllFrames(window);
    window.picOptions.SetVisible(true);
    window.picAdvOptions(tab).SetVisible(true);
    EXPECT_EQ(Clashes(window), "") << "tab " << tab;
  }
}

}  // namespace
}  // namespace tidemark
