#include "window/dialogs.h"

#include "window/application.h"

namespace tidemark {

frmSplash::frmSplash(const std::string& program_folder) {
  form.SetCaption("Tidemark!");
  form.SetFrame(FormFrame::kNone);
  form.SetPlace({0, 0, 6300, 3600});
  form.SetPictureFile(program_folder + "\\images\\splash.jpg");
}

frmAbout::frmAbout(const std::string& program_folder) {
  form.SetCaption("About Tidemark!");
  form.SetFrame(FormFrame::kDialog);
  form.SetPlace({0, 0, 5400, 2700});
  imgAbout.SetPictureFile(program_folder + "\\images\\about.jpg");
  imgAbout.SetPlace({300, 300, 1440, 1440});
  lblTitle.SetCaption("Tidemark!");
  lblTitle.SetFont({.tenths_of_points = 180, .bold = true});
  lblTitle.SetPlace({2040, 360, 3060, 540});
  lblVersion.SetCaption(Application::kVersion);
  lblVersion.SetPlace({2040, 960, 3060, 285});
  cmdSupport.SetCaption("Contact Online &Support");
  cmdSupport.SetPlace({300, 2025, 2400, 390});
  cmdOK.SetCaption("&OK");
  cmdOK.SetPlace({3525, 2025, 1575, 390});
  cmdOK.SetDefault(true);
  cmdOK.SetCancel(true);
}

frmMessBox::frmMessBox(const std::string& program_folder) {
  form.SetCaption("Tidemark! - Message!");
  form.SetFrame(FormFrame::kDialog);
  form.SetPlace({0, 0, 6300, 2700});
  imgBanner.SetPictureFile(program_folder + "\\images\\messbanner.jpg");
  imgBanner.SetPlace({0, 0, 6300, 450});
  imgMark.SetPictureFile(program_folder + "\\images\\messmark.jpg");
  imgMark.SetPlace({300, 750, 720, 720});
  lblMessage.SetPlace({1245, 750, 4830, 1050});
  cmdYes.SetCaption("&Yes");
  cmdYes.SetPlace({1245, 2025, 1350, 390});
  cmdNo.SetCaption("&No");
  cmdNo.SetPlace({2745, 2025, 1350, 390});
  cmdOK.SetCaption("&OK");
  cmdOK.SetPlace({4725, 2025, 1350, 390});
  // A question has to be answered: Esc closes a notice alone.
  cmdYes.SetDefault(true);
  cmdOK.SetDefault(true);
  cmdOK.SetCancel(true);
}

}  // namespace tidemark
