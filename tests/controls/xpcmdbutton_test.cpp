#include "controls/xpcmdbutton.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <utility>

#include "tests/support/link_bytes.h"
#include "tests/support/test_pc.h"
#include "toolkit/access_key.h"

namespace tidemark {
namespace {

// A button that writes down what it raises, in a window of another font.
struct PushButton : testing::Test {
  PushButton() {
    form.SetFont({.tenths_of_points = 97, .bold = true});
    button = std::make_unique<xpcmdbutton>(&form, "cmdFinish");
    button->SetSize(80, 26);
    const auto write = [this](const char* name) { log += std::string(name) + ' '; };
    button->MouseDown.Bind([write](int, int, int, int) { write("down"); });
    button->MouseMove.Bind([write](int, int, int, int) { write("move"); });
    button->MouseUp.Bind([write](int, int, int, int) { write("up"); });
    button->MouseLeave.Bind([write] { write("leave"); });
    button->KeyDown.Bind([write](int, int) { write("keydown"); });
    button->KeyPress.Bind([write](int) { write("keypress"); });
    button->KeyUp.Bind([write](int, int) { write("keyup"); });
    button->Clicked.Bind([write] { write("click"); });
  }

  void Act(char act, int x) {
    const int y = 25;
    if (act == 'd' || act == 'r') button->UserMouseDown(act == 'd' ? 1 : 2, 0, x, y);
    if (act == 'u' || act == 'q') button->UserMouseUp(act == 'u' ? 1 : 2, 0, x, y);
    if (act == 'm' || act == 'M') button->UserMouseMove(act == 'm' ? 0 : 1, 0, x, y);
    if (act != 't') return;
    button->SetCursor(x, y);
    button->LeaveTimer().Tick();
  }
  // What was raised since the last call.
  std::string Raised() { return std::exchange(log, {}); }
  int Face() const { return static_cast<int>(button->Face()); }
  Pixel At(int x, int y) { return button->Painting().GetPixel(x, y); }
  // The smallest rectangle that holds all pixels of the colour.
  Rect Extent(Pixel color) {
    const Canvas& painting = button->Painting();
    Rect extent = {painting.Width(), painting.Height(), 0, 0};
    for (int y = 0; y < painting.Height(); ++y) {
      for (int x = 0; x < painting.Width(); ++x) {
        if (painting.GetPixel(x, y) != color) continue;
        extent = {std::min(extent.left, x), std::min(extent.top, y), std::max(extent.right, x + 1),
                  std::max(extent.bottom, y + 1)};
      }
    }
    return extent;
  }

  Form form{"form"};
  std::unique_ptr<xpcmdbutton> button;
  std::string log;
};

TEST_F(PushButton, FollowsTheMouse) {
  // d, u: the left button down, up; r, q: the right one; m: the mouse moves, M: with the left
  // button down; t: a tick of the leave detector. I and O: inside (79, 25) or just outside (80,
  // 25).
  const struct {
    const char* acts;
    const char* raised;
    int face;
    bool timer;
  } cases[] = {
      {"mI tI", "move ", 3, true},
      {"mI tO", "move leave ", 0, false},
      {"mI dI", "move down ", 1, true},
      {"mI dI uI mI", "move down up click move ", 3, true},
      {"dI MO tO uO", "down leave up ", 0, false},
      {"dI MO MI uI", "down move up click ", 0, true},
      {"dI MO", "down ", 1, true},
      {"uI", "up ", 0, false},  // pressed elsewhere
      {"rI qI", "down up ", 0, false},
      {"mO", "", 0, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.acts);
    button->LeaveTimer().SetEnabled(false);
    button->SetEnabled(false);  // forgets a press
    button->SetEnabled(true);
    std::istringstream acts(c.acts);
    for (std::string act; acts >> act;) Act(act[0], act[1] == 'I' ? 79 : 80);
    EXPECT_EQ(Raised(), c.raised);
    EXPECT_EQ(Face(), c.face);
    EXPECT_EQ(button->LeaveTimer().Enabled(), c.timer);
  }
}

TEST_F(PushButton, ClicksByKey) {
  button->UserKeyDown(32, 0);
  button->UserKeyPress(' ');
  button->UserKeyUp(32, 0);
  EXPECT_EQ(Raised(), "keydown keypress click keyup ");
  button->UserKeyPress(13);
  button->UserKeyPress('x');
  EXPECT_EQ(Raised(), "keypress click keypress ");
  button->UserAccessKey();
  EXPECT_EQ(Raised(), "click ");
  button->SetFocused(true);
  EXPECT_EQ(Extent(0x404040), (Rect{3, 3, 77, 23})) << "a dotted rectangle";
}

TEST_F(PushButton, RaisesNothingWhenDisabled) {
  Act('d', 5);
  button->SetEnabled(false);
  EXPECT_EQ(Face(), 2);
  Raised();
  for (const char act : {'m', 'd', 'u'}) Act(act, 5);
  button->UserKeyPress(' ');
  button->UserAccessKey();
  button->Click();
  EXPECT_EQ(Raised(), "");
  EXPECT_EQ(Face(), 2);
  button->SetEnabled(true);
  EXPECT_EQ(Face(), 0);
  Act('u', 5);  // of the press from before
  EXPECT_EQ(Raised(), "up ");
}

TEST_F(PushButton, PaintsItsCaptionInTheMiddle) {
  EXPECT_EQ(button->Caption(), "cmdFinish") << "its name when new";
  EXPECT_EQ(button->Font(), form.Font());
  button->SetFont({});
  button->SetCaption("&HI && O");  // 6 characters: 35 by 8 pixels
  EXPECT_EQ(Extent(0x000000), (Rect{22, 9, 57, 17}));
  EXPECT_EQ(At(22, 16), 0U);  // the line below the access key
  EXPECT_NE(At(29, 16), 0U);
  EXPECT_EQ(ShowCaption("Tom && J\xC3\xA9&\xC3\xA9r&ry&").text, "Tom & J\xC3\xA9\xC3\xA9rry");
  EXPECT_EQ(WithoutAccessKey("A&uto Scan && Fix"), "Auto Scan & Fix");
  button->SetEnabled(false);
  EXPECT_EQ(Extent(0xA1A192), (Rect{22, 9, 57, 17}));
}

// Five cells of 8 by 7 pixels: in cell n a border of 3 pixels in 0x10 + n around n.
std::string FaceArtwork(std::uint32_t width = 40) {
  using link_bytes::Number;
  std::string bytes = "BM" + Number(0, 4) + Number(0, 4) + Number(54, 4) + Number(40, 4) +
                      Number(width, 4) + Number(7, 4) + Number(1, 2) + Number(24, 2) +
                      std::string(24, '\0');
  for (std::uint32_t y = 0; y < 7; ++y) {
    for (std::uint32_t x = 0; x < width; ++x) {
      const bool middle = y == 3 && (x % 8 == 3 || x % 8 == 4);
      bytes += std::string(3, static_cast<char>((middle ? 0 : 0x10) + x / 8));
    }
  }
  return bytes;
}

TEST_F(PushButton, PaintsItsFaceFromTheArtworkInNinePieces) {
  TestPc pc;
  const std::string file = pc.folder() + "\\buttonfaces.bmp";
  pc.MakeFile(file, FaceArtwork());
  ASSERT_TRUE(button->LoadFaces(file));
  button->SetCaption("");
  button->SetState(1);
  EXPECT_EQ(Extent(0x141414), button->Painting().Area());
  EXPECT_EQ(Extent(0x040404), (Rect{3, 3, 77, 23}));
  button->SetEnabled(false);
  EXPECT_EQ(At(40, 12), 0x020202U);
  const auto version = button->PaintingVersion();
  pc.MakeFile(file, FaceArtwork(41));  // no five cells
  EXPECT_FALSE(button->LoadFaces(file));
  EXPECT_EQ(button->PaintingVersion(), version);
  button->SetSize(1, 4);  // smaller than its edges
  EXPECT_EQ(button->Painting().Pixels().size(), 4U);
}

}  // namespace
}  // namespace tidemark
