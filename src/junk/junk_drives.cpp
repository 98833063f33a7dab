// The drives that a junk scan may walk: the tree and its stored ticks.
#include <string>

#include "junk/junk.h"
#include "platform/file_system_object.h"
#include "registry/stored_settings.h"

namespace tidemark {
namespace {

using Drive = FileSystemObject::Drive;

// Images of tvDrives, by number.
enum DriveImage {
  kFloppyImage = 1,
  kDiskImage = 2,
  kNoDiscImage = 3,
  kDiscImage = 4,
  kNetImage = 5
};

std::string StoredDrives() { return Setting("Drives", ""); }

struct Shown {
  std::string text;
  bool shown = true;
};

// A drive of unknown kind keeps the image of the drive before it, on purpose. The name and the
// image of optical and RAM drives are worked out for nothing: such a drive is not shown.
Shown Classify(const Drive& drive, int& image) {
  switch (drive.DriveType()) {
    case Drive::kRemovable:
      image = kFloppyImage;
      return {"Floppy Disk"};
    case Drive::kFixed:
      image = kDiskImage;
      return {"Local Disk"};
    case Drive::kRemote:
      image = kNetImage;
      return {"Network"};
    case Drive::kCdRom:
      image = drive.IsReady() ? kDiscImage : kNoDiscImage;
      return {drive.IsReady() ? drive.VolumeName().value_or("") : "CD-ROM", false};
    case Drive::kRamDisk:
      return {"RAM Disk", false};
    default:
      return {"Unknown"};
  }
}

void TickStored(TreeNode& node) {
  if (StoredDrives().find(node.Key().View()) != std::string::npos) node.SetChecked(true);
}

}  // namespace

void ShowDrivesList(frmMain& window) {
  TreeView& tree = window.tvDrives;
  tree.Clear();
  int image = 0;
  for (const Drive& drive : FileSystemObject().Drives()) {
    const Shown shown = Classify(drive, image);
    if (!shown.shown) continue;
    const bool network = drive.DriveType() == Drive::kRemote;
    std::string place = network ? drive.ShareName() : std::string();
    // Some drives of the network have no share, such as those that a program brings.
    if (place.empty()) place = drive.DriveLetter();
    if (TreeNode* node = tree.Add(drive.DriveLetter(), shown.text + " (" + place + ":)", image)) {
      TickStored(*node);
    }
    window.front_end.DoEvents();
  }
  for (int index = 1; index <= tree.Count(); ++index) {
    TickStored(*tree.Node(index));
    window.front_end.DoEvents();
  }
}

void SaveDrives(frmMain& window, TreeView& /*tree*/) {
  std::string drives;
  for (int index = 1; index <= window.tvDrives.Count(); ++index) {
    const TreeNode& node = *window.tvDrives.Node(index);
    if (node.Checked()) drives.append(node.Key().View()) += ';';
  }
  SaveSetting("Drives", drives);
}

}  // namespace tidemark
