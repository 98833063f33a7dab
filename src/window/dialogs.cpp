#include "window/dialogs.h"

#include <array>

namespace tidemark {
namespace {

struct Topic {
  const char* title;
  const char* text;
};
constexpr std::array<Topic, 5> kTopics = {{
    {"Registry Scan",
     "Finds registry entries that point at things that no longer exist. Clear the ticks of those "
     "that are to stay, then press Repair. An undo file is written first."},
    {"Backups",
     "Lists the undo files of repairs and your own backups of the registry. Restore puts what is "
     "in the selected one back into the registry."},
    {"Advanced",
     "Has the schedule of automatic repairs, and the programs that start with Windows: switch off "
     "those that you do not want."},
    {"Junk files",
     "Clean Junk Files, on Home, looks for files that are no longer needed. What you remove goes "
     "to the recycle bin."},
    {"Keys",
     "Tab and the arrow keys move, Space ticks a row, Enter presses the button that stands out, "
     "Alt and an underlined letter that button. The menu key opens the menu of a row."},
}};

}  // namespace

frmSplash::frmSplash(const std::string& program_folder) {
  form.SetCaption("Tidemark!");
  form.SetFrame(FormFrame::kNone);
  form.SetPlace({0, 0, 6300, 3600});
  form.SetPictureFile(program_folder + "\\images\\splash.jpg");
}

frmAbout::frmAbout(const Application& application) {
  form.SetCaption("About Tidemark!");
  form.SetFrame(FormFrame::kDialog);
  form.SetPlace({0, 0, 5400, 2700});
  imgAbout.SetPictureFile(application.folder + "\\images\\about.jpg");
  imgAbout.SetPlace({300, 300, 1440, 1440});
  lblTitle.SetCaption("Tidemark!");
  lblTitle.SetFont({.tenths_of_points = 180, .bold = true});
  lblTitle.SetPlace({2040, 360, 3060, 540});
  lblVersion.SetCaption(Application::kVersion);
  lblVersion.SetPlace({2040, 960, 3060, 285});
  cmdSupport.SetCaption("Contact Online &Support");
  cmdSupport.SetPlace({300, 2025, 2400, 390});
  cmdSupport.SetVisible(!application.web_address.empty());
  cmdOK.SetCaption("&OK");
  cmdOK.SetPlace({3525, 2025, 1575, 390});
  cmdOK.SetDefault(true);
  cmdOK.SetCancel(true);
}

frmHelp::frmHelp(const Application& application) {
  form.SetCaption("Tidemark! - Help");
  form.SetFrame(FormFrame::kDialog);
  form.SetPlace({0, 0, 8700, 4500});
  for (int index = 0; index < static_cast<int>(kTopics.size()); ++index) {
    const Topic& topic = kTopics.at(static_cast<std::size_t>(index));
    Label& title = lblTopic.Add(&form, index);
    title.SetCaption(topic.title);
    title.SetFont({.tenths_of_points = 97, .bold = true});
    title.SetPlace({300, 270 + index * 675, 1650, 270});
    Label& text = lblText.Add(&form, index);
    text.SetCaption(topic.text);
    text.SetPlace({2025, 285 + index * 675, 6375, 600});
  }
  cmdSupport.SetCaption("Contact Online &Support");
  cmdSupport.SetPlace({300, 3825, 2400, 390});
  cmdSupport.SetVisible(!application.web_address.empty());
  cmdClose.SetCaption("&Close");
  cmdClose.SetPlace({6825, 3825, 1575, 390});
  cmdClose.SetDefault(true);
  cmdClose.SetCancel(true);
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
  // A question is not answered with yes by an Enter too many, and Esc closes a notice alone.
  cmdNo.SetDefault(true);
  cmdOK.SetDefault(true);
  cmdOK.SetCancel(true);
}

}  // namespace tidemark
