// The small windows beside the main one.
#pragma once

#include "toolkit/control_group.h"
#include "toolkit/controls.h"
#include "window/application.h"

namespace tidemark {

// Shown for the first 1500 milliseconds of the program.
struct frmSplash {
  explicit frmSplash(const std::string& program_folder);
  Form form{"frmSplash"};
};

struct frmAbout {
  explicit frmAbout(const Application& application);
  Form form{"frmAbout"};
  ImageBox imgAbout{&form, "imgAbout"};
  Label lblTitle{&form, "lblTitle"};
  Label lblVersion{&form, "lblVersion"};
  CommandButton cmdOK{&form, "cmdOK"};
  CommandButton cmdSupport{&form, "cmdSupport"};
};

// What the pages are for, how a repair is undone, and the keys.
struct frmHelp {
  explicit frmHelp(const Application& application);
  Form form{"frmHelp"};
  ControlGroup<Label> lblTopic{"lblTopic"};
  ControlGroup<Label> lblText{"lblText"};  // of the topic of the same index
  CommandButton cmdClose{&form, "cmdClose"};
  CommandButton cmdSupport{&form, "cmdSupport"};
};

// The question box. It is shown without modality: who asks sets MessBoxAnswer to "EMPTY" and yields
// until it says "YES" or "NO".
struct frmMessBox {
  explicit frmMessBox(const std::string& program_folder);
  Form form{"frmMessBox"};
  ImageBox imgBanner{&form, "imgBanner"};  // the two decorations
  ImageBox imgMark{&form, "imgMark"};
  Label lblMessage{&form, "lblMessage"};
  CommandButton cmdYes{&form, "cmdYes"};
  CommandButton cmdNo{&form, "cmdNo"};
  CommandButton cmdOK{&form, "cmdOK"};
};

}  // namespace tidemark
