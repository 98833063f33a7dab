// The schedule: while it is switched on, a timer looks once a minute whether a scan with repair is
// due, and makes it. It runs only while the program runs.
#pragma once

#include <string>

#include "window/frmMain.h"

namespace tidemark {

// Switches the timer on or off, as the stored setting says.
void Scheduler(frmMain& window);

// The timer's tick: when a run is due, scans, repairs what is ticked with no question, and returns
// to Home, as clicks would. A stored time or date that can't be read makes it due. It takes no
// notice of a scan that is running, and may so enter a second one.
void TmrScheduler_Timer(frmMain& window);

// When the schedule will run next, as the timer would find it at its ticks; empty while none is
// stored. A moment of the next eight days, or the words that stand for another.
std::string NextRun(const frmMain& window);

}  // namespace tidemark
