#include "window/frmMain.h"

#include <initializer_list>
#include <utility>

#include "window/places.h"

namespace tidemark {
namespace {

void DesignWindow(frmMain& window) {
  window.form.SetCaption("Tidemark! - Keep Your PC In Trim!");
  for (Control* panel : std::initializer_list<Control*>{
           &window.picWelcome, &window.picScan, &window.picClear, &window.picOptions,
           &window.picJunkScan, &window.picScaningJunk, &window.picAbout}) {
    panel->SetVisible(panel == &window.picWelcome);
  }
  for (int index = 0; index <= 4; ++index) window.imgtoolbar.Add(&window.form, index);
}

void DesignHome(frmMain& window) {
  window.lblLastscanCaption.SetCaption("Errors Found on Last Scan");
  window.lblTotaltodateCaption.SetCaption("Total to date");
  window.cmdScanNow.SetCaption("Scan Now");
  window.cmdTellaFriend.SetCaption("Tell a Friend");
}

void DesignScan(frmMain& window) {
  // The texts of the two lists' headings lie over each other; one of them is visible at a time.
  window.lblscanmsg.Add(&window.picScan, 1)
      .SetCaption(
          "Simply select the diagnostic tests that you would like Tidemark to perform and click "
          "'Scan'");
  window.lblscanmsg.Add(&window.picScan, 2).SetCaption("Diagnostic tests to perform");
  window.lblscanmsg.Add(&window.picScan, 3).SetCaption("Diagnostic tests in progress");
  window.lblscanmsg(3).SetVisible(false);
  window.lvLocations.columns = {{"Diagnostic Test", 3200, {}}, {"Description", 6600, {}}};
  window.lvLocations.check_boxes = true;
  window.lvScan.columns = {
      {"Diagnostic Test", 4600, {}}, {"Status", 2600, {}}, {"Problems Found", 2600, {}}};
  window.chkSelectAll.SetCaption("Select all");
  window.cmdBack.SetCaption("Back");
  window.cmdScan.SetCaption("Scan");
  window.cmdStop.SetCaption("Stop");
  window.cmdStop.SetVisible(false);
  window.pbarScan.SetColor(0xFF773D);
}

void DesignResults(frmMain& window) {
  window.lblinfo3.SetCaption(
      "Below are the results from the scan to Remove all Errors found, please click the 'Repair' "
      "button "
      "below");
  window.lblsinfo.SetCaption("You can select or deselect the errors you wish Tidemark to fix!");
  window.lvFound.columns = {
      {"Diagnostic Test", 4600, {}}, {"Problems Found", 2600, {}}, {"Severity", 2600, {}}};
  window.lvProblems.columns = {{"Invalid data location", 4200, {}},
                               {"Value name", 1500, {}},
                               {"Value Data", 2600, {}},
                               {"Reason", 1900, {}},
                               {"Type", 600, {}},
                               {"Selected", 0, {}},
                               {"loc", 0, {}}};
  window.lvProblems.check_boxes = true;
  window.lvInvalidLoc.columns = {{"Invalid data location", 2500, {}},
                                 {"Value name", 1000, {}},
                                 {"Value data", 1500, {}},
                                 {"Reason", 1000, {}},
                                 {"Value Type", 600, {}},
                                 {"selected", 400, {}},
                                 {"test", 400, {}}};
  window.cmdFix.SetCaption("Repair");
  window.cmdCancel.SetCaption("Cancel");
  window.cmdStopFix.SetCaption("Stop");
  window.cmdStopFix.SetVisible(false);
  window.cmdFinish.SetCaption("Finish");
  window.cmdFinish.SetVisible(false);
  window.ProgressBar2.SetColor(255);
}

void DesignTabs(frmMain& window) {
  for (int tab = 0; tab <= 3; ++tab) window.lblOptions.Add(&window.picOptions, tab);
  for (int tab = 0; tab <= 2; ++tab) {
    window.picAdvOptions.Add(&window.picOptions, tab).SetVisible(false);
  }
}

}  // namespace

frmMain::frmMain(FrontEnd& the_front_end, Application the_application)
    : front_end(the_front_end), application(std::move(the_application)) {
  DesignWindow(*this);
  DesignHome(*this);
  DesignScan(*this);
  DesignResults(*this);
  DesignTabs(*this);
  PlaceControls(*this);
}

frmAbout::frmAbout() {
  form.SetCaption("About Tidemark!");
  lblTitle.SetCaption("Tidemark!");
  lblVersion.SetCaption("2.1.0");
  cmdOK.SetCaption("OK");
  cmdSupport.SetCaption("Contact Online Support");
}

frmMessBox::frmMessBox() {
  form.SetCaption("Tidemark! - Message!");
  cmdYes.SetCaption("Yes");
  cmdNo.SetCaption("No");
  cmdOK.SetCaption("OK");
}

}  // namespace tidemark
