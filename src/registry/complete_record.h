// The complete record: what is about to be deleted, to the last bit, in a folder of its own. Beside
// the undo file, which loses much by its format, it is what really brings things back.
//
//   registry.reg   a registry script of version 5.00 that the editor can import too. Each key or
//                  value that was to go is a piece between comments: "; piece 1", or "; piece 1
//                  value", its lines,
//                  "; whole 1 CHECKSUM"; then, after the deletion, "; stayed 1 KEY" for each key
//                  that is still there, "; gone 1", and at last, if so many deletions took what
//                  is not in the record, "; lost 2", and "; end"
//   files.txt, 000001.lnk, ...   files, as kept_files.h tells
//
// Every piece is on the disk before its deletion. What can't be recorded is counted, and holds
// nothing up. Memory does not grow with the number of pieces.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/registry_script_writer.h"
#include "platform/winapi.h"
#include "registry/exact_registry.h"
#include "registry/kept_files.h"
#include "registry/real_keys.h"
#include "registry/record_file.h"

namespace tidemark {

class CompleteRecord {
 public:
  // The folder is made when the first thing is kept; the one that it lies in, too.
  explicit CompleteRecord(std::string folder);
  ~CompleteRecord();
  CompleteRecord(const CompleteRecord&) = delete;
  CompleteRecord& operator=(const CompleteRecord&) = delete;

  // Before a deletion: what it is about to take. What is not there needs no keeping.
  void KeepKey(HKEY root, std::string_view sub_key);
  void KeepValue(HKEY root, std::string_view sub_key, std::string_view name);
  void KeepFile(const std::string& path);
  // What another record holds; Replaced follows.
  void KeepValueOf(const RealKey& key, const std::string& name, const ExactValue& value);
  void KeepFileOf(const KeptFile& file, std::string_view bytes);
  // After it: notes what of that has gone.
  void Deleted();
  // Instead: what was kept is about to be replaced, so its return may replace what stands then.
  void Replaced();
  // Nothing follows; all of it is on the disk then. What has no end is cut.
  void End();

  // How many deletions took something that could not be kept.
  std::size_t failures() const { return failures_; }

 private:
  struct Piece {
    unsigned number = 0;
    RealKey key;
    std::optional<std::string> value_name;
    std::optional<ExactValue> value = {};
  };

  bool MakeFolder();
  void Begin(RealKey key, std::optional<std::string> value_name);
  void Put(std::string_view bytes);
  void WriteTree(const ExactKey& key, std::string& full_name);
  void WriteKey(std::string_view full_name);
  void WriteValue(const ExactKey& key, std::string_view name);
  void LeaveOut();
  void NoteKeysLeft(const ExactKey& key, std::string& full_name, const std::string& mark);
  bool SomeAreGone() const;
  void NoteWhatIsLeft(const Piece& piece);
  void EndPiece();
  void FinishKeeping();
  void Forget();

  std::string folder_;
  RecordFile script_;
  ScriptWriter writer_;
  KeptFiles files_;
  Checksum checksum_;
  std::vector<Piece> pieces_;    // of what is kept now
  std::vector<RealKey> unread_;  // keys in them that can't be read
  unsigned number_ = 0;
  unsigned left_out_ = 0;
  std::size_t failures_ = 0;
  bool keeps_file_ = false;
  bool ended_ = false;
  bool broken_ = false;      // what is kept now could not be written
  bool incomplete_ = false;  // some of it could not be read
};

// A key's name in a comment, or in a script: line breaks are coded "%0D", "%0A", "%" itself "%25".
std::string CodeLineBreaks(std::string_view text);
std::string DecodeLineBreaks(std::string_view text);

// Stands for a key whose name holds a line break; the comment before it tells the name. The editor
// passes over what follows.
inline constexpr std::string_view kUnspeakableKey = "its name holds a line break";

}  // namespace tidemark
