#include "toolkit/controls.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/test_pc.h"
#include "toolkit/control_group.h"
#include "toolkit/list_view.h"
#include "toolkit/option_button.h"
#include "toolkit/text_box.h"

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
  for (const ListItem* none : {list.Item("K0"), list.Item(""), list.Item(0), list.Item(5001)}) {
    EXPECT_EQ(none, nullptr);
  }
  EXPECT_TRUE(list.Add("", "no key") && list.Add("", "no key either"));
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
}

TEST(ListView, SortsNumbersAndDatesAsWhatTheyAre) {
  const TestPc pc;  // whose locale writes the dates
  ListView list(nullptr, "list");
  list.columns = {
      {"Name", 1, {}}, {"Size", 1, {}, SortAs::kNumber}, {"Date", 1, {}, SortAs::kDate}};
  const auto add = [&list](const char* name, const char* size, const char* date) {
    ListItem* row = list.Add({}, name);
    row->SetSubItem(1, size);
    row->SetSubItem(2, date);
    list.PutInOrder(row);
  };
  add("a", "900", "11/4/2006 1:05:09 PM");
  add("b", "1000", "9/30/2007");
  add("c", "", "Unspecified");
  list.SortInTurns(2);
  EXPECT_EQ(Order(list), "cab");
  add("d", "95", "11/4/2006 9:05:09 AM");
  EXPECT_EQ(Order(list), "cdab");
  list.SortInTurns(2);
  EXPECT_EQ(Order(list), "badc");
  list.SortInTurns(3);
  EXPECT_EQ(Order(list), "cdab");
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

TEST(OptionButton, IsTheOnlyChosenOneOfItsContainer) {
  Form form("form");
  ControlGroup<OptionButton> options("options", &form, 3);
  OptionButton other(nullptr, "elsewhere");
  other.SetValue(true);
  int clicks = 0;
  options(1).Clicked.Bind([&] { clicks += options(1).Value() && !options(0).Value() ? 1 : 100; });
  options(0).SetValue(true);
  options(1).Click();
  options(1).SetValue(true);
  options(2).SetEnabled(false);
  options(2).Click();
  EXPECT_EQ(clicks, 1);
  EXPECT_TRUE(options(1).Value());
  EXPECT_FALSE(options(0).Value() || options(2).Value());
  EXPECT_TRUE(other.Value());
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

}  // namespace
}  // namespace tidemark
