// The windows of list views and trees: what they show of their controls, and what real messages to
// them raise.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

#include "desktop/win32/label_peer.h"
#include "desktop/win32/list_view_peer.h"
#include "desktop/win32/popup_menu.h"
#include "desktop/win32/tree_view_peer.h"
#include "desktop/win32/window_metrics.h"
#include "toolkit/controls.h"

namespace tidemark {
namespace {

LRESULT CALLBACK FormProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (const Answer answer = Peer::HandBack(message, wparam, lparam)) return *answer;
  return DefWindowProcA(window, message, wparam, lparam);
}

HWND MakeForm() {
  WNDCLASSA form{};
  form.lpfnWndProc = FormProcedure;
  form.lpszClassName = "ListPeersTest";
  RegisterClassA(&form);
  return CreateWindowA("ListPeersTest", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 800, 500,
                       nullptr, nullptr, nullptr, nullptr);
}

class ListPeers : public testing::Test {
 protected:
  ListPeers() {
    list_.columns = {{"First", 3000, {}}, {"Hidden", 0, {}}, {"Third", 1500, {}}};
    list_.check_boxes = tree_.check_boxes = true;
    list_.SetPlace({0, 0, 6000, 3000});
    tree_.SetPlace({6000, 0, 3000, 3000});
    list_.Clicked.Bind([this] { Log("click " + list_.SelectedItem()->Caption().String()); });
    list_.DoubleClicked.Bind([this] { Log("double"); });
    list_.ItemChecked.Bind([this](ListItem& item) {
      Log((item.Checked() ? "tick " : "clear ") + item.Key().String());
    });
    list_.ColumnClicked.Bind([this](int column) { Log("column " + std::to_string(column)); });
    list_.ContextMenu.Bind([this] { Log("menu"); });
    tree_.NodeChecked.Bind([this](TreeNode& node) {
      Log((node.Checked() ? "tick " : "clear ") + node.Key().String());
    });
  }
  void TearDown() override { DestroyWindow(window_); }

  void Fill(int rows) {
    for (int row = 1; row <= rows; ++row) {
      const std::string number = std::to_string(row);
      list_.Add("K" + number, "row " + number)->SetSubItem(2, "third " + number);
    }
  }
  void Refresh() {
    list_peer_.Refresh();
    tree_peer_.Refresh();
  }
  void Pump() {
    MSG message{};
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageA(&message);
    Refresh();
  }
  void Log(const std::string& act) { log_ += log_.empty() ? act : ", " + act; }
  std::string TakeLog() { return std::exchange(log_, {}); }

  std::string TextAt(int row, int place) const {
    std::string text(3000, ' ');
    LVITEMA item{};
    item.iSubItem = place;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    text.resize(static_cast<std::size_t>(SendMessageA(ListWindow(), LVM_GETITEMTEXTA,
                                                      static_cast<WPARAM>(row) - 1,
                                                      reinterpret_cast<LPARAM>(&item))));
    return text;
  }
  // The middle of a row's label, or of its check box.
  LPARAM PointOf(int row, bool check_box) const {
    RECT label{};
    ListView_GetItemRect(ListWindow(), row - 1, &label, LVIR_LABEL);
    return MAKELPARAM(check_box ? label.left / 2 : label.left + 20, (label.top + label.bottom) / 2);
  }
  static void Press(HWND window, UINT down, LPARAM point) {
    PostMessageA(window, down, 0, point);
    PostMessageA(window, down == WM_RBUTTONDOWN ? WM_RBUTTONUP : WM_LBUTTONUP, 0, point);
  }
  // What a press, and all that it brings with it, has raised.
  std::string Raised(UINT down, LPARAM point) {
    Press(ListWindow(), down, point);
    Pump();
    return TakeLog();
  }
  std::string Typed(HWND window, WPARAM key) {
    PostMessageA(window, WM_KEYDOWN, key, 1);
    Pump();
    return TakeLog();
  }
  bool NeedsPainting() const {
    UpdateWindow(ListWindow());
    const_cast<ListPeers*>(this)->Refresh();
    return GetUpdateRect(ListWindow(), nullptr, FALSE) != FALSE;
  }
  bool IsSelected(int row) const {
    return ListView_GetItemState(ListWindow(), row - 1, LVIS_SELECTED) != 0;
  }
  HWND ListWindow() const { return list_peer_.Window(); }

  HWND window_ = MakeForm();
  Resources resources_{""};
  Form form_{"form"};
  ListView list_{&form_, "list"};
  TreeView tree_{&form_, "tree"};
  ListViewPeer list_peer_{list_, resources_, window_};
  TreeViewPeer tree_peer_{tree_, resources_, window_};
  std::string log_;
};

TEST_F(ListPeers, AHundredThousandRowsArePaintedOnlyWhereTheyAreInViewAndHaveChanged) {
  Fill(100000);
  list_.Item(2)->SetCaption(std::string(500, 'x') + "\xC3\xBC");
  Pump();
  EXPECT_EQ(ListView_GetItemCount(ListWindow()), 100000);
  EXPECT_EQ(TextAt(100000, 1), "third 100000") << "a column of no width has no place";
  EXPECT_EQ(TextAt(2, 0), list_.Item(2)->Caption().String());

  EXPECT_FALSE(NeedsPainting());
  list_.Item(50000)->SetCaption("out of view");
  EXPECT_FALSE(NeedsPainting());
  list_.Item(3)->SetChecked(true);
  EXPECT_TRUE(NeedsPainting());
}

TEST_F(ListPeers, ALabelsWordsStandAboveTheColumnsWhereverTheListIsScrolledTo) {
  list_.columns = {{"First", 5000, {}}, {"Hidden", 0, {}}, {"Third", 3000, {}}};
  Label label(&form_, "label");
  label.SetPlace({0, 3000, 6000, 300});
  label.SetCaption("One:   Two words:");
  label.heads = &list_;
  LabelPeer peer(label, resources_, window_);
  Fill(3);
  Refresh();
  constexpr int kWidth = 400;
  for (const int scroll : {0, 60}) {
    SendMessageA(ListWindow(), LVM_SCROLL, static_cast<WPARAM>(scroll), 0);
    Refresh();
    peer.Refresh();
    const HDC screen = GetDC(window_);
    const HDC context = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, kWidth, 20);
    const HGDIOBJ former = SelectObject(context, bitmap);
    peer.PaintOn(context, {0, 0, kWidth, 20});
    RECT cell{};
    ListView_GetSubItemRect(ListWindow(), 0, 1, LVIR_LABEL, &cell);
    int ink = cell.left - 20;
    const auto is_blank = [&](int x) {
      for (int y = 0; y < 20; ++y) {
        if (GetPixel(context, x, y) != RGB(255, 255, 255)) return false;
      }
      return true;
    };
    while (ink < kWidth && is_blank(ink)) ++ink;
    EXPECT_GE(ink, cell.left) << scroll;
    EXPECT_LE(ink, cell.left + 12) << scroll;
    SelectObject(context, former);
    DeleteObject(bitmap);
    DeleteDC(context);
    ReleaseDC(window_, screen);
  }
}

TEST_F(ListPeers, APersonsActsInAListRaiseItsEvents) {
  Fill(20);
  Pump();
  const LPARAM second = PointOf(2, false);
  EXPECT_EQ(Raised(WM_LBUTTONDOWN, second), "click row 2");
  EXPECT_EQ(Raised(WM_LBUTTONDBLCLK, second), "double");
  EXPECT_EQ(Raised(WM_LBUTTONDOWN, PointOf(3, true)), "tick K3");
  EXPECT_EQ(Typed(ListWindow(), VK_SPACE), "tick K2");
  EXPECT_EQ(Typed(ListWindow(), VK_DOWN), "click row 3");
  EXPECT_EQ(Raised(WM_RBUTTONDOWN, PointOf(5, false)), "click row 5, menu");
  Press(ListView_GetHeader(ListWindow()), WM_LBUTTONDOWN, MAKELPARAM(250, 8));
  Pump();
  EXPECT_EQ(TakeLog(), "column 3");

  list_.Select(list_.Item(7));
  Pump();
  EXPECT_TRUE(IsSelected(7));
  EXPECT_FALSE(IsSelected(5));
  EXPECT_EQ(TakeLog(), "") << "the program's own selection raises nothing";
}

TEST_F(ListPeers, SeveralRowsAreSelectedTickedAndCopiedTogether) {
  list_.multi_select = true;
  ListViewPeer several(list_, resources_, window_);
  Fill(3);
  several.Refresh();
  const auto type = [&](WPARAM key, bool with_control) {
    std::array<BYTE, 256> keys{};
    keys[VK_CONTROL] = with_control ? 0x80 : 0;
    SetKeyboardState(keys.data());
    PostMessageA(several.Window(), WM_KEYDOWN, key, 1);
    Pump();
    several.Refresh();
    return TakeLog();
  };
  EXPECT_EQ(type('A', true), "click row 1");
  EXPECT_EQ(type(VK_SPACE, false), "tick K1, tick K2, tick K3");
  EXPECT_EQ(type('C', true), "");
  ASSERT_TRUE(OpenClipboard(nullptr));
  EXPECT_STREQ(static_cast<const char*>(GetClipboardData(CF_TEXT)),
               "row 1\tthird 1\r\nrow 2\tthird 2\r\nrow 3\tthird 3\r\n");
  CloseClipboard();
  list_.Select(list_.Item(2));
  several.Refresh();
  EXPECT_EQ(ListView_GetSelectedCount(several.Window()), 1U);
  EXPECT_EQ(type(VK_SPACE, false), "clear K2");
}

TEST_F(ListPeers, ACellShowsBothEndsOfAPathAndTellsAllOfIt) {
  const std::string path = "HKEY_CLASSES_ROOT\\" + std::string(60, 'x') + "\\the end";
  list_.Add("K1", path);
  list_.Add("K2", std::string(90, 'y'));
  Pump();
  NMLVCUSTOMDRAW drawing{};
  drawing.nmcd.hdr = {ListWindow(), 0, static_cast<UINT>(NM_CUSTOMDRAW)};
  drawing.nmcd.hdc = GetDC(ListWindow());
  drawing.nmcd.dwDrawStage = CDDS_PREPAINT;
  list_peer_.OnNotify(drawing.nmcd.hdr);
  const std::string painted = TextAt(1, 0);
  EXPECT_TRUE(painted.starts_with("HKEY_C") && painted.ends_with("\\the end")) << painted;
  EXPECT_LT(painted.size(), 45U);
  EXPECT_EQ(TextAt(2, 0).size(), 90U) << "no path";
  drawing.nmcd.dwDrawStage = CDDS_POSTPAINT;
  list_peer_.OnNotify(drawing.nmcd.hdr);
  ReleaseDC(ListWindow(), drawing.nmcd.hdc);
  EXPECT_EQ(TextAt(1, 0), path) << "to a screen reader";
}

TEST_F(ListPeers, AnActOnRowsThatHaveGoneMeanwhileIsDropped) {
  Fill(20);
  Pump();
  list_.Select(list_.Item(9));
  Refresh();
  Press(ListWindow(), WM_LBUTTONDOWN, PointOf(2, true));
  list_.Clear();
  Fill(3);
  Pump();
  EXPECT_EQ(TakeLog(), "");
  EXPECT_FALSE(list_.Item(2)->Checked());
  EXPECT_EQ(ListView_GetItemCount(ListWindow()), 3);
  EXPECT_EQ(ListView_GetSelectedCount(ListWindow()), 0U);
}

TEST_F(ListPeers, AMenuByTheKeyboardOpensBelowTheSelectedRow) {
  static RECT opened;
  Menu menu(&form_, "menu");
  MenuItem item(&menu, "item");
  item.SetCaption("Item");
  list_.ContextMenu.Bind([&] {
    SetTimer(window_, 1, 50, [](HWND, UINT, UINT_PTR, DWORD) {
      if (const HWND shown = FindWindowA("#32768", nullptr)) opened = PlaceOnScreen(shown);
      EndMenu();
    });
    PopUp(window_, menu);
    KillTimer(window_, 1);
  });
  Fill(100);
  Refresh();
  for (const int row : {3, 90}) {  // the second is out of view
    list_.UserSelect(*list_.Item(row));
    Refresh();
    SetCursorPos(700, 400);
    SendMessageA(ListWindow(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(ListWindow()), -1);
    Pump();
    RECT label{LVIR_LABEL, 0, 0, 0};
    SendMessageA(ListWindow(), LVM_GETITEMRECT, static_cast<WPARAM>(row) - 1,
                 reinterpret_cast<LPARAM>(&label));
    POINT below{label.left, label.bottom};
    ClientToScreen(ListWindow(), &below);
    EXPECT_NEAR(opened.left, below.x, 4) << row;
    EXPECT_NEAR(opened.top, below.y, 4) << row;
  }
}

TEST_F(ListPeers, ARowStaysSelectedWhenTheListIsSorted) {
  Fill(9);
  list_.Select(list_.Item(1));
  Pump();
  list_.SortBy(2, SortOrder::kDescending);
  list_.SetSorted(true);
  Pump();
  EXPECT_TRUE(IsSelected(9));
  HDITEMA heading{};
  heading.mask = HDI_FORMAT;
  SendMessageA(ListView_GetHeader(ListWindow()), HDM_GETITEMA, 1,
               reinterpret_cast<LPARAM>(&heading));
  EXPECT_NE(heading.fmt & HDF_SORTDOWN, 0);
}

TEST_F(ListPeers, ATreeShowsTicksAndTakesThem) {
  tree_.Add("C", "Local Disk (C:)", 0)->SetChecked(true);
  tree_.Add("D", "Local Disk (D:)", 0);
  tree_.Select(tree_.Node(1));
  Pump();
  const HWND window = tree_peer_.Window();
  const HTREEITEM first = TreeView_GetRoot(window);
  const HTREEITEM second = TreeView_GetNextSibling(window, first);
  EXPECT_EQ(TreeView_GetCheckState(window, first), 1U);

  EXPECT_EQ(Typed(window, VK_SPACE), "clear C");
  RECT label{};
  TreeView_GetItemRect(window, second, &label, TRUE);
  Press(window, WM_LBUTTONDOWN, MAKELPARAM(label.left - 8, (label.top + label.bottom) / 2));
  Pump();
  EXPECT_EQ(TakeLog(), "tick D");
  tree_peer_.Forget();
  Pump();
  EXPECT_EQ(TreeView_GetCheckState(window, first), 0U);
  EXPECT_EQ(TreeView_GetCheckState(window, second), 1U);
}

}  // namespace
}  // namespace tidemark
