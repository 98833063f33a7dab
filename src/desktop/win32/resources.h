// What the windows of one form share: the dots per inch of its display, fonts, pictures and icons
// made for them, how far the form is scrolled, and whether the focus is shown.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/winapi.h"
#include "toolkit/control.h"
#include "toolkit/font.h"

namespace tidemark {

class Resources {
 public:
  explicit Resources(std::string program_folder);
  ~Resources();
  Resources(const Resources&) = delete;
  Resources& operator=(const Resources&) = delete;

  const std::string& ProgramFolder() const { return program_folder_; }

  // Whether the form shows which control has the focus: from the first use of the keyboard on.
  bool FocusIsShown() const { return focus_is_shown_; }
  void ShowFocus() { focus_is_shown_ = true; }

  // How far the form is scrolled in its window, in pixels.
  POINT Scrolled() const { return scrolled_; }
  void SetScrolled(POINT scrolled) { scrolled_ = scrolled; }

  int DotsPerInch() const { return dots_per_inch_; }
  // Drops all that was made for the old ones.
  void SetDotsPerInch(int dots_per_inch);

  // Twips to pixels, rounded.
  int Pixels(int twips) const;
  // Rounded at both ends, so that neighbours stay neighbours.
  RECT PixelsOf(const Bounds& bounds) const;
  // Pixels at 96 dots per inch, for metrics.
  int Scaled(int pixels_at_96) const;

  // Owned by the resources, until SetDotsPerInch. Tahoma, or the nearest that the system has.
  HFONT FontOf(const Font& font);
  // A picture file in the size asked for, scaled smoothly; null when it can't be read, and where
  // the program's pictures step back for the system's colours. "file" is a full path.
  HBITMAP PictureOf(const std::string& file, int width, int height);
  // The size in pixels that a picture file has by itself; empty when it can't be read.
  SIZE PictureSizeOf(const std::string& file);
  // An image list of icon files (paths below the program folder, "\\images\\..."), at the small
  // icons' size of the display. A file that can't be read gives an empty picture.
  HIMAGELIST IconsOf(const std::vector<std::string>& files);

 private:
  struct Made;
  std::string program_folder_;
  POINT scrolled_{};
  int dots_per_inch_ = 96;
  bool focus_is_shown_ = false;
  std::unique_ptr<Made> made_;
};

}  // namespace tidemark
