#include "window/places.h"

#include <initializer_list>

namespace tidemark {
namespace {

struct Placed {
  Control& control;
  Bounds place;
};

void Place(std::initializer_list<Placed> controls) {
  for (const Placed& placed : controls) placed.control.SetPlace(placed.place);
}

void PlaceOnForm(frmMain& window) {
  Place({{window.form, {0, 0, 11670, 7425}},
         {window.cmdMenuHome, {600, 300, 2400, 900}},
         {window.cmdMenuScan, {3100, 300, 2400, 900}},
         {window.cmdMenuBackups, {5600, 300, 2400, 900}},
         {window.cmdMenuAdvanced, {8100, 300, 2400, 900}},
         {window.lblTitle, {0, 9000, 3000, 300}},
         {window.imgClose, {3200, 9000, 300, 300}},
         {window.imgMin, {3600, 9000, 300, 300}},
         {window.lvInvalidLoc, {840, 9720, 7440, 1395}}});
  for (int index = 0; index < window.imgtoolbar.Count(); ++index) {
    window.imgtoolbar(index).SetPlace({4200 + index * 600, 9000, 500, 500});
  }
  for (Control* panel : std::initializer_list<Control*>{
           &window.picWelcome, &window.picScan, &window.picClear, &window.picOptions,
           &window.picJunkScan, &window.picScaningJunk, &window.picAbout}) {
    panel->SetPlace({600, 1440, 10515, 5415});
  }
}

void PlaceOnPanels(frmMain& window) {
  Place({{window.IMGRegistryStatus, {300, 300, 3000, 3000}},
         {window.lblLastscanCaption, {3900, 600, 3600, 300}},
         {window.lblLastscan, {7700, 600, 2000, 300}},
         {window.lblTotaltodateCaption, {3900, 1200, 3600, 300}},
         {window.lblTotaltodate, {7700, 1200, 2000, 300}},
         {window.lblLastDate, {3900, 1800, 6000, 300}},
         {window.cmdScanNow, {3900, 4600, 2000, 450}},
         {window.cmdTellaFriend, {6200, 4600, 2000, 450}}});

  constexpr Bounds kScanList = {200, 840, 10100, 2880};
  Place({{window.lblscanmsg(1), {200, 120, 10100, 270}},
         {window.lblscanmsg(2), {200, 480, 10100, 270}},
         {window.lblscanmsg(3), {200, 480, 10100, 270}},
         {window.lvLocations, kScanList},
         {window.lvScan, kScanList},
         {window.chkSelectAll, {200, 3800, 3000, 270}},
         {window.AnmSearch, {9200, 3760, 1100, 450}},
         {window.pbarScan, {200, 4260, 10100, 270}},
         {window.lblstatus, {200, 4590, 10100, 270}},
         {window.cmdBack, {200, 4920, 1500, 420}},
         {window.cmdScan, {8800, 4920, 1500, 420}},
         {window.cmdStop, {8800, 4920, 1500, 420}}});

  Place({{window.lblFound, {200, 60, 5000, 270}},
         {window.lblinfo3, {200, 345, 10100, 270}},
         {window.lvFound, {200, 645, 10100, 1500}},
         {window.lblsinfo, {200, 2205, 10100, 270}},
         {window.lvProblems, {200, 2505, 10100, 1950}},
         {window.ProgressBar2, {200, 4530, 8800, 270}},
         {window.Animation1, {9200, 4500, 1100, 360}},
         {window.cmdFix, {200, 4920, 1500, 420}},
         {window.cmdStopFix, {200, 4920, 1500, 420}},
         {window.cmdCancel, {1900, 4920, 1500, 420}},
         {window.cmdFinish, {8800, 4920, 1500, 420}}});

  window.picopttoolback.SetPlace({0, 0, 10515, 480});
  for (int tab = 0; tab < window.lblOptions.Count(); ++tab) {
    window.lblOptions(tab).SetPlace({tab * 2600, 0, 2600, 480});
  }
  for (int tab = 0; tab < window.picAdvOptions.Count(); ++tab) {
    window.picAdvOptions(tab).SetPlace({0, 480, 10515, 4935});
  }
}

}  // namespace

void PlaceControls(frmMain& window) {
  PlaceOnForm(window);
  PlaceOnPanels(window);
}

}  // namespace tidemark
