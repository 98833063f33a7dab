#include "toolkit/list_view.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "toolkit/controls.h"

namespace tidemark {
namespace {

std::string Order(const ListView& list) {
  std::string order;
  for (int index = 1; index <= list.Count(); ++index) order += list.Item(index)->Caption().View();
  return order;
}

TEST(ListView, FindsRowsByPositionAndKey) {
  ListView list(nullptr, "list");
  for (int number = 1; number <= 5000; ++number) {
    ASSERT_NE(list.Add("K" + std::to_string(number), "row"), nullptr);
  }
  EXPECT_EQ(list.Add("K17", "again"), nullptr) << "a key that is taken adds nothing";
  EXPECT_EQ(list.Count(), 5000);
  for (const int number : {1, 2499, 5000}) {
    EXPECT_EQ(list.Item("K" + std::to_string(number)), list.Item(number));
  }
  EXPECT_EQ(list.Item("K0"), nullptr);
  EXPECT_EQ(list.Item(""), nullptr);
  EXPECT_EQ(list.Item(0), nullptr);
  EXPECT_EQ(list.Item(5001), nullptr);
  EXPECT_NE(list.Add("", "no key"), nullptr);
  EXPECT_NE(list.Add("", "no key either"), nullptr);
}

TEST(ListView, TextsEndAtTheirFirstNull) {
  using namespace std::string_literals;
  ListView list(nullptr, "list");
  ListItem* row = list.Add("key\0x"s, "text\0x"s);
  row->SetSubItem(1, "\0x"s);
  row->SetSubItem(99, "nowhere");
  EXPECT_EQ(list.Item("key"), row);
  EXPECT_EQ(row->Caption(), "text");
  EXPECT_EQ(row->SubItem(1), "");
  EXPECT_EQ(row->SubItem(99), "");
}

TEST(ListView, SortsStablyInBothDirectionsAndKeepsSortingNewRows) {
  ListView list(nullptr, "list");
  for (const char* text : {"b", "A", "c", "a"}) list.Add("", text);
  list.SortBy(0, SortOrder::kAscending);
  EXPECT_EQ(Order(list), "bAca") << "sorting is not switched on yet";
  list.SetSorted(true);
  EXPECT_EQ(Order(list), "Aabc");
  list.Add("", "B");
  EXPECT_EQ(Order(list), "AabBc");
  list.SortBy(0, SortOrder::kDescending);
  EXPECT_EQ(Order(list), "cbBAa");
  EXPECT_EQ(list.IndexOf(list.Item(2)), 2);
  EXPECT_EQ(list.IndexOf(nullptr), 0);
}

TEST(ListView, AHandlerMayClearTheList) {
  ListView list(nullptr, "list");
  list.check_boxes = true;
  list.Add("K1", "row")->SetSubItem(1, "a text that is long enough to be stored on its own");
  list.ItemChecked.Bind([&list](ListItem&) { list.Clear(); });
  list.Clicked.Bind([&list] { list.Clear(); });
  list.UserCheck(*list.Item(1), true);
  EXPECT_EQ(list.Count(), 0);
  list.UserSelect(*list.Add("K1", "row"));
  EXPECT_EQ(list.SelectedItem(), nullptr) << "the list shrank under the selection";
}

TEST(Controls, APersonReachesOnlyWhatIsEnabled) {
  Form form("form");
  PictureBox panel(&form, "panel");
  CheckBox box(&panel, "box");
  int clicks = 0;
  box.Clicked.Bind([&clicks] { ++clicks; });
  box.SetValue(1);
  EXPECT_EQ(clicks, 0) << "setting a value is no click";
  box.Click();
  box.SetEnabled(false);
  box.Click();
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(box.Value(), 0);
  EXPECT_FALSE(box.IsShown()) << "the window is not shown yet";
  form.SetVisible(true);
  EXPECT_TRUE(box.IsShown());
  panel.SetVisible(false);
  EXPECT_FALSE(box.IsShown());
  EXPECT_EQ(form.Find("BOX"), &box);
}

TEST(Controls, BringToFrontReordersSiblings) {
  Form form("form");
  Label first(&form, "first");
  Label second(&form, "second");
  first.BringToFront();
  EXPECT_EQ(form.Controls(), (std::vector<Control*>{&second, &first}));
}

}  // namespace
}  // namespace tidemark
