// What the name of a shell link file tells on either ground.
#pragma once

#include <string>
#include <string_view>

namespace tidemark {

// The shell knows full paths alone: with a drive's letter, or of a network.
bool IsFullPath(std::string_view file);

// The shell's name of a link: that of its file without ".lnk".
std::string LinkNameOf(std::string_view file);

}  // namespace tidemark
