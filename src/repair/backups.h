// The Backups tab: the registry scripts in the backup folder, which are the manual backups and the
// undo files of the repairs. Nothing tells the two apart. The registry editor does the work; it is
// started and not awaited, and what it comes to is not looked at.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// Lists the files of the backup folder, which is made if it is missing, and behind them the
// complete records that have lost their undo file, or never had one.
void Loadbackup(frmMain& window);

// Has the whole registry exported to a new file, and tells at once of success.
void cmdBakupReg_Click(frmMain& window);

// Ask, and act on the selected file when the answer is not no: import it and delete it, or delete
// it. With no row selected nothing happens.
void cmdRestore_Click(frmMain& window);
void cmdRemove_Click(frmMain& window);

// What the selected row's complete record holds becomes the list's tool tip; nothing for a file
// that has none.
void LvBackup_MouseUp(frmMain& window);

}  // namespace tidemark
