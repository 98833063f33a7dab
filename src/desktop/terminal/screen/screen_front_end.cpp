#include "desktop/terminal/screen/screen_front_end.h"

namespace tidemark {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kLookPause{10};
constexpr milliseconds kRedrawPause{80};

}  // namespace

void ScreenFrontEnd::AwaitInput() {
  TickTimer();
  Draw();
  Handle(screen_.Wait(TimeToNextTick()));
}

void ScreenFrontEnd::LookForInput() {
  if (last_pulse_ - last_look_ < kLookPause) return;
  last_look_ = last_pulse_;
  if (last_pulse_ - last_draw_ >= kRedrawPause) Draw();
  Handle(screen_.Wait(0));
}

// Another form may come to stand at its address, and must not take over its focus.
void ScreenFrontEnd::TakeOff(const Form& form) {
  focus_.erase(&form);
  DeskFrontEnd::TakeOff(form);
}

void ScreenFrontEnd::RunModally(Form& form, const bool& answered) {
  struct OnDesk {
    OnDesk(ScreenFrontEnd& front_end, Form& form) : front_end_(front_end), form_(form) {
      front_end_.desk_.forms.push_back({.form = &form_, .loaded = true});
      form_.SetVisible(true);
    }
    ~OnDesk() { front_end_.TakeOff(form_); }
    OnDesk(const OnDesk&) = delete;
    OnDesk& operator=(const OnDesk&) = delete;
    ScreenFrontEnd& front_end_;
    Form& form_;
  };
  bool closed = false;
  form.Unload.Bind([&closed] { closed = true; });
  EndEntry();
  const OnDesk on_desk(*this, form);
  while (!answered && !closed) AwaitInput();
}

}  // namespace tidemark
