#include "desktop/terminal/screen/text_editing.h"

#include <string>

#include "platform/unicode.h"

namespace tidemark {
namespace {

constexpr char32_t kFirstPrinting = ' ';

void Insert(TextBox& box, char32_t character) {
  std::string text;
  AppendUtf8(text, character);
  box.SetSelText(text);
}

// Without a selection, the character before or behind the cursor.
void Erase(TextBox& box, bool before) {
  if (box.SelLength() == 0) {
    const int start = box.SelStart();
    if (before && start == 0) return;
    // A selection that begins or ends inside a character takes in all of it.
    box.SetSelStart(before ? start - 1 : start);
    box.SetSelLength(1);
  }
  box.SetSelText("");
}

void MoveTo(TextBox& box, int position) {
  box.SetSelStart(position);
  box.SetSelLength(0);
}

// To the next character on that side.
void Step(TextBox& box, bool back) {
  const int start = box.SelStart();
  if (box.SelLength() > 0) return MoveTo(box, back ? start : start + box.SelLength());
  if (back && start == 0) return;
  box.SetSelStart(back ? start - 1 : start);
  box.SetSelLength(1);
  MoveTo(box, back ? box.SelStart() : box.SelStart() + box.SelLength());
}

}  // namespace

bool EditText(TextBox& box, const ScreenInput& input) {
  switch (input.key) {
    case Key::kLeft:
      Step(box, true);
      return true;
    case Key::kRight:
      Step(box, false);
      return true;
    case Key::kHome:
      MoveTo(box, 0);
      return true;
    case Key::kEnd:
      MoveTo(box, static_cast<int>(box.Text().View().size()));
      return true;
    case Key::kBackspace:
    case Key::kDelete:
      if (!box.Locked()) Erase(box, input.key == Key::kBackspace);
      return true;
    case Key::kCharacter:
      if (input.alt || input.character < kFirstPrinting || box.Locked()) return false;
      Insert(box, input.character);
      return true;
    default:
      return false;
  }
}

}  // namespace tidemark
