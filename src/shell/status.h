// What the Home page shows: the counters, the last run, the picture of the registry's health.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// Loads everything that Home shows, and all stored options and lists. Runs at each visit of Home.
void SetInitValues(frmMain& window);

// Reads the last run's time and date and the outstanding errors, and shows the first two.
void SetStat(frmMain& window);

// How far a running scan or repair is, in percent; -1 while none runs.
int WorkProgress(const frmMain& window);

}  // namespace tidemark
