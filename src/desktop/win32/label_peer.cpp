#include "desktop/win32/label_peer.h"

#include <string>

#include "desktop/win32/colors.h"
#include "desktop/win32/gdi_objects.h"
#include "platform/windows/wide_text.h"
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

}  // namespace

LabelPeer::LabelPeer(Label& label, Resources& resources, HWND parent)
    : ClickablePeer(label, resources, parent), label_(label) {}

void LabelPeer::Refresh() {
  ClickablePeer::Refresh();
  if (!label_.Visible()) return;
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
  if (!caption_.empty()) {
    const Selection font(context, resources_.FontOf(label_.Font()));
    SetTextColor(context,
                 label_.Enabled() ? ColorOf(label_.ForeColor()) : GetSysColor(COLOR_GRAYTEXT));
    SetBkMode(context, TRANSPARENT);
    RECT place = area;
    const std::wstring text = Wide(caption_.View());
    DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &place,
              TextFormat(context, area, caption_.View()));
  }
  PaintFocus(context, area);
}

long LabelPeer::Role() const { return Clickable() ? ROLE_SYSTEM_PAGETAB : 0; }

}  // namespace tidemark
