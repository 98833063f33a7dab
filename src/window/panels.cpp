#include "window/panels.h"

#include <initializer_list>
#include <string>

namespace tidemark {

void HideAllFrames(frmMain& window) {
  for (Control* panel : std::initializer_list<Control*>{
           &window.picAbout, &window.picAdvOptions(0), &window.picAdvOptions(1),
           &window.picAdvOptions(2), &window.picClear, &window.picJunkScan, &window.picOptions,
           &window.picScan, &window.picScaningJunk, &window.picWelcome, &window.picJunkCriteria}) {
    panel->SetVisible(false);
  }
}

void HighLightButtons(frmMain& window) {
  LoadProgramPicture(window, window.cmdMenuHome, "\\images\\overview.jpg");
  LoadProgramPicture(window, window.cmdMenuScan, "\\images\\RegistryScan.jpg");
  LoadProgramPicture(window, window.cmdMenuBackups, "\\images\\backup.jpg");
  LoadProgramPicture(window, window.cmdMenuAdvanced, "\\images\\settings.jpg");
}

void LoadButtonPictures(frmMain& window) {
  const std::string images = window.application.folder + "\\images\\";
  const std::string faces = images + "buttonfaces.bmp";
  window.cmdFinish.LoadFaces(faces);
  window.cmdJunkStop.LoadFaces(faces);
  for (int index = 0; index < window.cmdJunkFile.Count(); ++index) {
    window.cmdJunkFile(index).LoadFaces(faces);
    window.cmdJunkFile(index).LoadPicture(images + "junk" + std::to_string(index) + ".bmp");
  }
}

void CtlStatus(frmMain& /*window*/, bool /*enabled*/) {}

void LoadProgramPicture(const frmMain& window, ImageBox& image, std::string_view file) {
  image.LoadPicture(std::string(window.application.folder).append(file));
}

}  // namespace tidemark
