#include "toolkit/option_button.h"

#include <gtest/gtest.h>

#include "toolkit/control_group.h"
#include "toolkit/controls.h"

namespace tidemark {
namespace {

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

}  // namespace
}  // namespace tidemark
