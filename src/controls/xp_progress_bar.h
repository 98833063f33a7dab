// The program's own progress bar, `pbarScan` and `ProgressBar2`. It holds its position as a whole
// percentage and paints itself in one of ten styles.
//
// The position is reached from Value, Min and Max by the two formulas below, which are no inverses
// of each other on purpose: with a Max of 200 or more a loop of Value = Value + 1 stalls.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "controls/ole_color.h"
#include "toolkit/canvas_control.h"

namespace tidemark {

// What the painting of a bar depends on.
struct BarLook {
  int percent = 0;  // at most 100; nothing keeps it from being negative
  int brush_style = 4;
  OleColor color = PlainColor(0x8000000D);  // the system's highlight colour
  tidemark::Font font;
  Display display;
  std::optional<Canvas> image;
  int orientation = 0;
  int scrolling = 0;
  bool show_text = false;
};

// Paints the whole bar on the whole canvas.
void PaintBar(const BarLook& look, Canvas& canvas);
// "37 %", or the words of a style that shows no number.
std::string BarText(const BarLook& look);
// A tint: 0 leaves the colour, 255 gives white.
Pixel ShadeColor(Pixel color, int factor);

class XP_ProgressBar : public CanvasControl {
 public:
  using CanvasControl::CanvasControl;

  // The percentage turned back: percent / 100 * Max, divided by Min if that is 1 or more, rounded
  // half to even. 0 where that is no 32-bit number.
  int Value() const;
  // percent = value * 100 / Max + Min, rounded half to even, and at most 100. Min is added, not
  // subtracted, on purpose. A Max of 0, or a result that is no 32-bit number, leaves percent and
  // picture as they are.
  void SetValue(int value);
  int Percent() const { return look_.percent; }

  // A new Min, Max or BrushStyle shows at the next set of another property only.
  int Min() const { return min_; }
  void SetMin(int min) { SetStored(min_, min); }
  int Max() const { return max_; }
  void SetMax(int max) { SetStored(max_, max); }
  // The hatch of style 7, by the platform's HS_ numbers.
  int BrushStyle() const { return brush_style_; }
  void SetBrushStyle(int style) { SetStored(brush_style_, style); }

  // A system colour is turned into a plain one when it is set, so a plain one is read back.
  OleColor Color() const { return look_.color; }
  void SetColor(OleColor color) { SetShown(look_.color, PlainColor(color)); }
  const tidemark::Font& Font() const { return look_.font; }
  void SetFont(const tidemark::Font& font);
  // The pattern of style 8.
  const std::optional<Canvas>& Image() const { return look_.image; }
  void SetImage(std::optional<Canvas> image) { SetShown(look_.image, std::move(image)); }
  // 0 is horizontal, anything else vertical.
  int Orientation() const { return look_.orientation; }
  void SetOrientation(int orientation) { SetShown(look_.orientation, orientation); }
  // The painting style, 0 to 9.
  int Scrolling() const { return look_.scrolling; }
  void SetScrolling(int style) { SetShown(look_.scrolling, style); }
  bool ShowText() const { return look_.show_text; }
  void SetShowText(bool show) { SetShown(look_.show_text, show); }

  // Whether a property that belongs to the stored form was set since the control was made.
  bool Changed() const { return changed_; }

  void SetDisplay(const Display& display) override;
  void SetSize(int width, int height) override;
  // The picture of the last repaint. A set that repaints marks it, this call paints: a walker that
  // sets Value a million times pays for the pictures that someone sees.
  const Canvas& Painting() override;
  // Rises with every repaint that can show something new; a front end compares it before it copies.
  std::uint64_t PaintingVersion() const override { return version_; }

 private:
  template <class T>
  void SetStored(T& property, T value) {
    property = std::move(value);
    changed_ = true;
  }
  template <class T>
  void SetShown(T& property, T value) {
    SetStored(property, std::move(value));
    DrawProgressBar();
  }
  // The repaint: from here on the picture is that of the properties as they are now.
  void DrawProgressBar();

  int min_ = 0;
  int max_ = 100;
  int brush_style_ = 4;
  bool changed_ = false;
  BarLook look_;
  Canvas picture_;
  std::uint64_t version_ = 1;
  std::uint64_t painted_version_ = 0;
};

}  // namespace tidemark
