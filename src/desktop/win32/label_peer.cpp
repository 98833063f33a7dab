#include "desktop/win32/label_peer.h"

#include <algorithm>
#include <string>

#include "desktop/win32/colors.h"
#include "desktop/win32/gdi_objects.h"
#include "platform/windows/wide_text.h"
#include "toolkit/access_key.h"
#include "toolkit/list_view.h"
// It wants the platform's headers before it.
#include <oleacc.h>

namespace tidemark {
namespace {

// Several lines where there is room for them. A line that is too long ends in dots; of a path,
// whose end tells the most, the middle is left out.
UINT TextFormat(HDC context, const RECT& area, std::string_view text) {
  TEXTMETRICA metric{};
  GetTextMetricsA(context, &metric);
  if (area.bottom - area.top >= 2 * metric.tmHeight) return DT_NOPREFIX | DT_WORDBREAK;
  const bool is_path = text.find('\\') != std::string_view::npos;
  return DT_NOPREFIX | DT_SINGLELINE | (is_path ? DT_PATH_ELLIPSIS : DT_END_ELLIPSIS);
}

constexpr unsigned kSystemHighlight = 0x80000000U + COLOR_HIGHLIGHT;

COLORREF TextColor(const Label& label) {
  return label.Enabled() ? ColorOf(label.ForeColor()) : GetSysColor(COLOR_GRAYTEXT);
}

// Without the picture that it was meant for, a label's colour tells only which of several is up.
COLORREF ColorInWords(const Label& label) {
  return label.ForeColor() == kSystemHighlight ? GetSysColor(COLOR_HIGHLIGHTTEXT)
                                               : PanelTextColor();
}

void PaintText(HDC context, RECT area, const Text& text) {
  const std::wstring wide = Wide(text.View());
  DrawTextW(context, wide.c_str(), static_cast<int>(wide.size()), &area,
            TextFormat(context, area, text.View()));
}

}  // namespace

LabelPeer::LabelPeer(Label& label, Resources& resources, HWND parent)
    : ClickablePeer(label, resources, parent), label_(label) {}

void LabelPeer::Refresh() {
  ClickablePeer::Refresh();
  if (!label_.Visible()) return;
  if (label_.heads != nullptr && scrolled_pixels_ != label_.heads->scrolled_pixels) {
    scrolled_pixels_ = label_.heads->scrolled_pixels;
    Invalidate();
  }
  const bool same_text = caption_ == label_.Caption();
  if (same_text && back_color_ == label_.BackColor() && fore_color_ == label_.ForeColor()) return;
  if (!same_text) {
    caption_ = label_.Caption();
    SetWindowTextQuietly(caption_);
  }
  back_color_ = label_.BackColor();
  fore_color_ = label_.ForeColor();
  Invalidate();
}

void LabelPeer::PaintOn(HDC context, const RECT& area) {
  if (label_.Transparent()) {
    PaintBeneath(context);
  } else {
    FillWith(context, area, ColorOf(label_.BackColor()));
  }
  // What lies beneath an area to click on is told by a picture, if there is one.
  const bool in_words = caption_.empty() && Clickable() && SystemColorsOnly();
  if (in_words && label_.ForeColor() == kSystemHighlight) {
    FillWith(context, area, GetSysColor(COLOR_HIGHLIGHT));
  }
  const Text text = in_words ? Text(ShowCaption(label_.AccessibleName().View()).text) : caption_;
  if (!text.empty()) {
    const Selection font(context, resources_.FontOf(label_.Font()));
    SetTextColor(context, in_words ? ColorInWords(label_) : TextColor(label_));
    SetBkMode(context, TRANSPARENT);
    if (label_.heads != nullptr) {
      PaintHeadings(context, area);
    } else {
      PaintText(context, area, text);
    }
  }
  PaintFocus(context, area);
}

// Each word where its column's texts begin, wherever the list has been scrolled to.
void LabelPeer::PaintHeadings(HDC context, RECT area) const {
  constexpr int kInsetAt96 = 6;  // of a text in its column
  const std::wstring words = Wide(caption_.View());
  area.left += resources_.Scaled(kInsetAt96) - scrolled_pixels_;
  std::size_t at = 0;
  for (const ColumnHeader& column : label_.heads->columns) {
    if (at == std::wstring::npos) break;
    if (column.width_twips <= 0) continue;
    const std::size_t end = words.find(L"  ", at);
    area.right = area.left + resources_.Pixels(column.width_twips);
    DrawTextW(context, words.data() + at, static_cast<int>(std::min(end, words.size()) - at), &area,
              DT_NOPREFIX | DT_SINGLELINE | DT_END_ELLIPSIS);
    area.left = area.right;
    at = words.find_first_not_of(L' ', end);
  }
}

// A tab's label has no caption of its own, a link has.
long LabelPeer::Role() const {
  if (!Clickable()) return 0;
  return label_.Caption().empty() ? ROLE_SYSTEM_PAGETAB : ROLE_SYSTEM_LINK;
}

}  // namespace tidemark
