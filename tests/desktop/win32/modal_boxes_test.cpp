// The modal boxes of the Windows front end, answered as a person does, or ended from outside.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

#include "desktop/win32/folder_dialog.h"
#include "desktop/win32/input_box.h"
#include "desktop/win32/message_boxes.h"
#include "desktop/win32/modal_loops.h"
#include "desktop/win32/popup_menu.h"

namespace tidemark {
namespace {

// Tests that run at the same time see each other's windows.
const std::string kTitle = "Tidemark " + std::to_string(GetCurrentProcessId());

bool InMenu() {
  GUITHREADINFO info{};
  info.cbSize = sizeof(info);
  return GetGUIThreadInfo(GetCurrentThreadId(), &info) != FALSE &&
         (info.flags & GUI_INMENUMODE) != 0;
}

class ModalBoxes : public testing::Test {
 protected:
  ~ModalBoxes() override {
    if (IsWindow(owner_) != FALSE) DestroyWindow(owner_);
  }

  // Does it once, from within the loop of the box that is opened next.
  void WhenOpen(std::function<void()> act) {
    act_ = std::move(act);
    SetTimer(nullptr, 0, 50, [](HWND, UINT, UINT_PTR timer, DWORD) {
      KillTimer(nullptr, timer);
      std::exchange(act_, nullptr)();
    });
  }
  static HWND Box() { return FindWindowA("#32770", kTitle.c_str()); }
  static HWND EditOf(HWND box) { return FindWindowExA(box, nullptr, "Edit", nullptr); }
  std::string Ask() { return AskForText(owner_, resources_, "Pattern:", kTitle, "*.tmp \xC3\xBC"); }

  Resources resources_{""};
  HWND owner_ = CreateWindowA("Static", "owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200,
                              nullptr, nullptr, nullptr, nullptr);
  static inline std::function<void()> act_;
};

TEST_F(ModalBoxes, AQuestionIsNotAnsweredWithYesByAnEnterTooMany) {
  WhenOpen([] { PostMessageA(GetFocus(), WM_KEYDOWN, VK_RETURN, 0x1C0001); });
  EXPECT_FALSE(ShowMessageBox(owner_, "Go?", kTitle, MessageIcon::kNone, true));
}

TEST_F(ModalBoxes, InputBoxGivesWhatWasTyped) {
  WhenOpen([] { PostMessageA(Box(), WM_COMMAND, IDOK, 0); });
  EXPECT_EQ(Ask(), "*.tmp \xC3\xBC");

  // The default text is selected: what is typed takes its place.
  WhenOpen([this] {
    EXPECT_FALSE(IsWindowEnabled(owner_));
    const HWND edit = EditOf(Box());
    for (const wchar_t letter : {L'a', L'\u20AC', L'b'}) PostMessageW(edit, WM_CHAR, letter, 1);
    PostMessageA(edit, WM_KEYDOWN, VK_RETURN, 0x1C0001);
  });
  EXPECT_EQ(Ask(),
            "a\xE2\x82\xAC"
            "b");
  EXPECT_TRUE(IsWindowEnabled(owner_));
  EXPECT_EQ(Box(), nullptr);
}

TEST_F(ModalBoxes, InputBoxIsEmptyWithoutAnAnswer) {
  const std::pair<const char*, std::function<void()>> ends[] = {
      {"Escape", [] { PostMessageA(EditOf(Box()), WM_KEYDOWN, VK_ESCAPE, 0x10001); }},
      {"its frame's button", [] { PostMessageA(Box(), WM_CLOSE, 0, 0); }},
      {"from outside", EndModalLoops},
      {"its owner's end", [this] { DestroyWindow(owner_); }},
  };
  for (const auto& [how, end] : ends) {
    WhenOpen(end);
    EXPECT_EQ(Ask(), "") << how;
    EXPECT_EQ(Box(), nullptr) << how;
  }
}

TEST_F(ModalBoxes, TheFolderDialogGivesThePathThatWasChosenOrNothing) {
  constexpr int kNameBox = 0x480;  // of the platform's file dialogs
  WhenOpen([] {
    SetDlgItemTextA(Box(), kNameBox, "C:\\windows\\system32");
    PostMessageA(Box(), WM_COMMAND, IDOK, 0);
  });
  EXPECT_STRCASEEQ(AskForFolder(owner_, kTitle).c_str(), "C:\\windows\\system32");
  WhenOpen(EndModalLoops);
  EXPECT_EQ(AskForFolder(owner_, kTitle), "");
  EXPECT_EQ(Box(), nullptr);
}

TEST_F(ModalBoxes, EndModalLoopsAnswersNoAndClosesNotices) {
  WhenOpen(EndModalLoops);
  EXPECT_FALSE(ShowMessageBox(owner_, "Sure?", kTitle, MessageIcon::kNone, true));
  WhenOpen(EndModalLoops);
  ShowMessageBox(owner_, "Done", kTitle, MessageIcon::kInformation, false);
  EXPECT_EQ(Box(), nullptr);
  WhenOpen([] { PostMessageA(Box(), WM_COMMAND, IDYES, 0); });
  EXPECT_TRUE(ShowMessageBox(owner_, "Sure?", kTitle, MessageIcon::kExclamation, true));
}

TEST_F(ModalBoxes, PopupMenuClicksTheChosenItemWhenItIsClosed) {
  Form form("form");
  Menu menu(&form, "menu");
  MenuItem hidden(&menu, "hidden"), separator(&menu, "separator"), last(&menu, "last");
  hidden.SetCaption("Hidden");
  hidden.SetVisible(false);
  separator.SetCaption("-");
  last.SetCaption("&Last");
  int clicks = 0;
  last.Clicked.Bind([&] {
    ++clicks;
    EXPECT_FALSE(InMenu());
  });
  hidden.Clicked.Bind([] { FAIL(); });

  WhenOpen([this] {
    EXPECT_TRUE(InMenu());
    PostMessageA(owner_, WM_KEYDOWN, VK_DOWN, 0x500001);  // over the separator
    PostMessageA(owner_, WM_KEYDOWN, VK_RETURN, 0x1C0001);
  });
  PopUp(owner_, menu, {10, 10});
  EXPECT_EQ(clicks, 1);

  WhenOpen(EndModalLoops);
  PopUp(owner_, menu, {10, 10});
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace tidemark
