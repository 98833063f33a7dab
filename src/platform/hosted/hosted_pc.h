// A hosted PC: a folder that behaves as a Windows PC. The platform calls of winapi.h act on the one
// that is switched on. The folder holds
//
//   registry.reg      the registry, as the registry editor exports it
//   drives/C/...      what is on drive C; more drives beside it
//   recycled/         the recycle bin; recycle_bin.h says what is in it
//   pc.ini            environment variables, special folders, locale, drive kinds
//
// or it is a mounted disk of Windows, whose registry is read from its hives and written back to
// them. pc.ini may name such a disk.
//
// Used by the native program, the tests and the benchmarks; nothing else names it.
#pragma once

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/hosted/pc_choice.h"

namespace tidemark::hosted {

class Clock;
class FileStore;
struct PcParts;
struct PcSettings;
class RecycleBin;
class RegistryEditor;
class RegistryStore;

// A folder that is no hosted PC, or one that can't be read or written. what() is one line that
// names the file and, where there is one, the line number: "/pc/registry.reg:12: unknown value
// type".
class HostedPcError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class HostedPc {
 public:
  // Reads the folder and switches the PC on: from here to the destructor the platform calls of this
  // process act on it. Throws HostedPcError, and nothing in the folder is changed, when the folder
  // is no hosted PC, can't be written, or holds a registry.reg or pc.ini that can't be understood.
  explicit HostedPc(const std::filesystem::path& folder, DiskChoice choice = {});

  // Switches the PC off without saving: what was changed in the registry since the last ShutDown is
  // lost, as when the plug is pulled. (Files are on disk at once.)
  ~HostedPc();

  HostedPc(const HostedPc&) = delete;
  HostedPc& operator=(const HostedPc&) = delete;

  // Lets the programs that were started come to their end, and stores the registry if it was
  // changed, safely: no half-written registry can ever be met. Throws HostedPcError when it can't
  // be written; what is stored is then what it was. Stores nothing while another process works on
  // the folder.
  void ShutDown();

  // False when another process was working on the folder when this PC was switched on.
  bool IsSoleUser() const;

  // Why nothing on the PC can be changed, as one line; empty when it can.
  const std::string& WhyReadOnly() const;
  // What the person should know of how the PC was found, one line each.
  std::vector<std::string> Notes() const;
  // Files of the host that are kept from before changes, until the person lets them go.
  std::vector<std::filesystem::path> FormerFiles() const;

  const std::filesystem::path& folder() const { return folder_; }
  PcSettings& settings() { return *settings_; }
  Clock& clock() { return *clock_; }
  FileStore& files() { return *files_; }
  RecycleBin& recycle_bin() { return *recycle_bin_; }
  RegistryStore& registry() { return *registry_; }
  RegistryEditor& editor() { return *editor_; }

  // The PC that is switched on. Platform calls with no PC on are a mistake of the caller: it throws
  // std::logic_error.
  static HostedPc& Current();

 private:
  std::filesystem::path folder_;
  std::unique_ptr<PcParts> parts_;
  std::unique_ptr<RegistryStore> registry_;
  std::unique_ptr<PcSettings> settings_;
  std::unique_ptr<Clock> clock_;
  std::unique_ptr<FileStore> files_;
  std::unique_ptr<RecycleBin> recycle_bin_;
  std::unique_ptr<RegistryEditor> editor_;
};

}  // namespace tidemark::hosted
