// What has to be there before the program starts, as an installed program has it.
#pragma once

#include <string>

namespace tidemark {

// Makes the program's folder and the folders in it: "backup", for the undo files, without which a
// repair would leave no record; and the two of "Startup Folder", for what is switched off from the
// start-up folders and would be lost without them. Nothing is told when that fails.
void MakeProgramFolder(const std::string& folder);

}  // namespace tidemark
