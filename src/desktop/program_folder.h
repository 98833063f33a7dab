// What has to be there before the program starts, as an installed program has it.
#pragma once

#include <string>

namespace tidemark {

// Makes the program's folder and its folder "backup", in which the undo files go: without it a
// repair would leave no record. Nothing is told when that fails.
void MakeProgramFolder(const std::string& folder);

}  // namespace tidemark
