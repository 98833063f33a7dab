// The hosted PC's clock: real time, or a time that tests set and that moves only when told, so that
// a pause of 1500 milliseconds costs none.
#pragma once

#include <cstdint>

#include "platform/winapi.h"

namespace tidemark::hosted {

// The calendar time that many milliseconds after 1601 began.
SYSTEMTIME CalendarTime(std::int64_t milliseconds);

class Clock {
 public:
  // Milliseconds since some moment before the PC was switched on; never goes back.
  std::uint64_t Milliseconds() const;

  // The local time of the PC.
  SYSTEMTIME LocalTime() const;

  // Real time: the thread sleeps. Set time: the time moves on by that much, at once.
  void Sleep(std::uint32_t milliseconds);

  // Stops following the real time and sets the local time; from here on only Sleep and Advance move
  // it.
  void SetLocalTime(const SYSTEMTIME& time);
  void Advance(std::uint64_t milliseconds);

 private:
  bool set_ = false;
  std::uint64_t set_milliseconds_ = 0;  // what Milliseconds() answers while the time is set
  std::int64_t set_local_ms_ = 0;       // local time at set_milliseconds_ == 0, in ms since 1601
};

}  // namespace tidemark::hosted
