// Operations on the panels and page buttons of the window alone.
#pragma once

#include <string_view>

#include "window/frmMain.h"

namespace tidemark {

// Hides every panel.
void HideAllFrames(frmMain& window);

// Gives all four page buttons their plain picture back.
void HighLightButtons(frmMain& window);

// Loads the faces and the pictures of the self-drawn buttons; without the files they have the faces
// that are built in.
void LoadButtonPictures(frmMain& window);

// Does nothing, on purpose: a scan calls it at the place where controls could be locked.
void CtlStatus(frmMain& window, bool enabled);

// Loads a picture from beneath the program's folder; file is "\images\..." with its backslashes.
void LoadProgramPicture(const frmMain& window, ImageBox& image, std::string_view file);

}  // namespace tidemark
