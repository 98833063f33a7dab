// What the walkers have in common: the key they walk, the tests on its data, the steps of the bar.
#pragma once

#include <string>
#include <string_view>

#include "platform/unique_handle.h"
#include "window/frmMain.h"

namespace tidemark {

// A key opened for a walk, with its numbers of sub-keys and values, taken once.
struct WalkedKey {
  WalkedKey(HKEY hive, const std::string& key);
  std::string SubKeyName(DWORD index) const;

  UniqueKey handle;
  DWORD sub_keys = 0;
  DWORD values = 0;
};

// One value of a walked key, as EnumRegValue gives it.
struct WalkedValue {
  WalkedValue(const WalkedKey& key, DWORD index);

  std::string name;
  std::string data;
  DWORD type = 0;
  // The name came with its NUL. Else the value is none to judge: it lies past the end, where others
  // have gone meanwhile, or its name does not fit, and the data may be that of another one.
  bool is_there = false;
};

std::string ChildPath(const std::string& key, const std::string& name);

// Whether the data is to be judged as a path: it holds ":\", behind one of the drive letters A to
// P. (CheckValid looks at more drives; this narrower test stands ahead of it on purpose.)
bool HoldsPathToCheck(std::string_view data);

// HoldsPathToCheck, and CheckValid says that it is gone.
bool IsInvalidPath(const std::string& data);

// Whether the key belongs to the class tree, which some walkers never enter.
bool IsInClassTree(std::string_view key);

// The last piece of the key's path, in capitals.
std::string CapitalLeaf(std::string_view key);

void RaiseMaximum(frmMain& window, DWORD by);
void StepBar(frmMain& window);

// Yields; whether the walk is to stop.
bool YieldAndTestStop(frmMain& window);

}  // namespace tidemark
