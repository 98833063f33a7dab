#include "registry/complete_record.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "helpers/text_helpers.h"
#include "platform/exact_text.h"
#include "platform/registry_rules.h"

namespace tidemark {
namespace {

std::string Utf16(std::string_view text) {
  std::string bytes;
  AppendAsUtf16(text, bytes);
  return bytes;
}

// Always of one size, so that the number can be put in later.
std::string Start(unsigned left_out) {
  std::array<char, 16> number{};
  std::snprintf(number.data(), number.size(), "%06u", left_out % 1'000'000U);
  return "\xFF\xFE" +
         Utf16(
             "Windows Registry Editor Version 5.00\r\n\r\n; Left out, because their names hold "
             "a NUL and no call can write them: " +
             std::string(number.data()) + "\r\n");
}

}  // namespace

std::string CodeLineBreaks(std::string_view text) {
  return ReplaceAll(ReplaceAll(ReplaceAll(text, "%", "%25"), "\r", "%0D"), "\n", "%0A");
}

std::string DecodeLineBreaks(std::string_view text) {
  return ReplaceAll(ReplaceAll(ReplaceAll(text, "%0A", "\n"), "%0D", "\r"), "%25", "%");
}

CompleteRecord::CompleteRecord(std::string folder)
    : folder_(std::move(folder)),
      script_(folder_ + "\\registry.reg", Start(0), Utf16("\r\n")),
      writer_(ScriptForm::kVersion5, [this](std::string_view bytes) { Put(bytes); }),
      files_(folder_) {
  writer_.QuoteOnlyPlainTexts();
}

CompleteRecord::~CompleteRecord() { End(); }

void CompleteRecord::End() {
  if (std::exchange(ended_, true)) return;
  if (number_ == 0 && (failures_ == 0 || !MakeFolder())) return;
  broken_ = false;
  // Without the one there is not the other: what reads on to the end knows of all that is missing.
  if (failures_ > 0) writer_.Comment("lost " + std::to_string(failures_));
  writer_.Comment("end");
  writer_.Flush();
  script_.Flush();
}

void CompleteRecord::KeepKey(HKEY root, std::string_view sub_key) {
  broken_ = incomplete_ = false;
  for (RealKey& place : RealPlaces(root, sub_key)) {
    ExactKey key;
    const LSTATUS status = ExactKey::Open(place.root, place.path, key);
    if (status == ERROR_FILE_NOT_FOUND) continue;
    std::string full_name = FullName(place);
    Begin(std::move(place), std::nullopt);
    if (status == ERROR_SUCCESS) {
      WriteTree(key, full_name);
    } else {
      incomplete_ = true;
    }
    EndPiece();
  }
  FinishKeeping();
}

void CompleteRecord::KeepValue(HKEY root, std::string_view sub_key, std::string_view name) {
  broken_ = incomplete_ = false;
  for (RealKey& place : RealPlaces(root, sub_key)) {
    ExactKey key;
    LSTATUS status = ExactKey::Open(place.root, place.path, key);
    ExactValue value;
    if (status == ERROR_SUCCESS) status = key.Read(name, value);
    if (status == ERROR_FILE_NOT_FOUND) continue;
    const std::string full_name = FullName(place);
    Begin(std::move(place), std::string(name));
    if (status == ERROR_SUCCESS) {
      WriteKey(full_name);
      WriteValue(key, name);
      pieces_.back().value = std::move(value);
    } else {
      incomplete_ = true;
    }
    EndPiece();
  }
  FinishKeeping();
}

void CompleteRecord::KeepFile(const std::string& path) {
  if (GetFileAttributesA(path.c_str()) == INVALID_FILE_ATTRIBUTES) return;
  keeps_file_ = MakeFolder() && files_.Keep(path);
  if (!keeps_file_) ++failures_;
}

void CompleteRecord::KeepValueOf(const RealKey& key, const std::string& name,
                                 const ExactValue& value) {
  broken_ = incomplete_ = false;
  Begin(key, name);
  WriteKey(FullName(key));
  writer_.StoredValue(name, value.type, value.bytes);
  EndPiece();
  FinishKeeping();
}

void CompleteRecord::KeepFileOf(const KeptFile& file, std::string_view bytes) {
  keeps_file_ = MakeFolder() && files_.Keep(file, bytes);
  if (!keeps_file_) ++failures_;
}

bool CompleteRecord::MakeFolder() {
  // Most often it is there. The folder above may be missing; the one above that is the caller's.
  const DWORD attributes = GetFileAttributesA(folder_.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES) return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  CreateDirectoryA(folder_.substr(0, folder_.rfind('\\')).c_str(), nullptr);
  return CreateDirectoryA(folder_.c_str(), nullptr) != FALSE;
}

void CompleteRecord::Begin(RealKey key, std::optional<std::string> value_name) {
  if (pieces_.empty() && !MakeFolder()) broken_ = true;
  checksum_ = {};
  writer_.Comment("piece " + std::to_string(++number_) + (value_name ? " value" : ""));
  pieces_.push_back({number_, std::move(key), std::move(value_name)});
}

void CompleteRecord::Put(std::string_view bytes) {
  checksum_.Add(bytes);
  if (!broken_ && !script_.Append(bytes)) broken_ = true;
}

void CompleteRecord::WriteTree(const ExactKey& key, std::string& full_name) {
  WriteKey(full_name);
  std::string name;
  for (DWORD index = 0; key.ValueName(index, name) == ERROR_SUCCESS; ++index) {
    WriteValue(key, name);
  }
  const std::size_t size = full_name.size();
  LSTATUS status = ERROR_SUCCESS;
  for (DWORD index = 0; (status = key.SubKeyName(index, name)) == ERROR_SUCCESS; ++index) {
    ExactKey below;
    const LSTATUS opened = ExactKey::Open(key.Handle(), name, below);
    full_name.append("\\").append(name);
    if (opened == ERROR_SUCCESS) {
      WriteTree(below, full_name);
    } else if (name.find('\0') != std::string::npos) {
      LeaveOut();
    } else if (opened != ERROR_FILE_NOT_FOUND) {
      incomplete_ = true;
      if (auto unread = KeyOfFullName(full_name)) unread_.push_back(*std::move(unread));
    }
    full_name.resize(size);
  }
  if (status != ERROR_NO_MORE_ITEMS) incomplete_ = true;
}

void CompleteRecord::WriteKey(std::string_view full_name) {
  if (full_name.find_first_of("\r\n") == std::string_view::npos) return writer_.Key(full_name);
  writer_.Comment("key " + CodeLineBreaks(full_name));
  writer_.Key(kUnspeakableKey);
}

void CompleteRecord::WriteValue(const ExactKey& key, std::string_view name) {
  if (name.find('\0') != std::string_view::npos) return LeaveOut();
  ExactValue value;
  const LSTATUS status = key.Read(name, value);
  if (status == ERROR_FILE_NOT_FOUND) return;
  if (status != ERROR_SUCCESS) {
    incomplete_ = true;
    return;
  }
  writer_.StoredValue(name, value.type, value.bytes);
}

void CompleteRecord::LeaveOut() {
  ++left_out_;
  incomplete_ = true;
}

void CompleteRecord::EndPiece() {
  writer_.Flush();
  writer_.Comment("whole " + std::to_string(number_) + " " + checksum_.Text());
  writer_.Flush();
}

void CompleteRecord::FinishKeeping() {
  if (pieces_.empty()) return;
  if (!script_.Flush()) broken_ = true;
  if (left_out_ > 0) script_.ReplaceStart(Start(left_out_));
  if (broken_) ++failures_;
}

void CompleteRecord::Deleted() {
  if (std::exchange(keeps_file_, false)) files_.Deleted();
  if (pieces_.empty()) return;
  // What could not be read is lost only if it could be deleted.
  if (incomplete_ && !broken_ && SomeAreGone()) ++failures_;
  broken_ = incomplete_ = false;
  for (const Piece& piece : pieces_) {
    NoteWhatIsLeft(piece);
    writer_.Comment("gone " + std::to_string(piece.number));
  }
  writer_.Flush();
  Forget();
}

void CompleteRecord::NoteWhatIsLeft(const Piece& piece) {
  const std::string mark = "stayed " + std::to_string(piece.number) + " ";
  std::string full_name = FullName(piece.key);
  ExactKey key;
  const LSTATUS status = ExactKey::Open(piece.key.root, piece.key.path, key);
  ExactValue value;
  if (status == ERROR_SUCCESS && !piece.value_name) {
    NoteKeysLeft(key, full_name, mark);
    return;
  }
  // Another value in its place is a new one.
  const bool stayed = piece.value_name ? status == ERROR_SUCCESS &&
                                             key.Read(*piece.value_name, value) == ERROR_SUCCESS &&
                                             (!piece.value || piece.value == value)
                                       : status != ERROR_FILE_NOT_FOUND;
  if (stayed) writer_.Comment(mark + CodeLineBreaks(full_name));
}

bool CompleteRecord::SomeAreGone() const {
  const auto is_gone = [](const RealKey& place) {
    ExactKey key;
    return ExactKey::Open(place.root, place.path, key) == ERROR_FILE_NOT_FOUND;
  };
  if (std::any_of(unread_.begin(), unread_.end(), is_gone)) return true;
  return std::any_of(pieces_.begin(), pieces_.end(), [](const Piece& piece) {
    ExactKey key;
    ExactValue value;
    LSTATUS status = ExactKey::Open(piece.key.root, piece.key.path, key);
    if (status == ERROR_SUCCESS && piece.value_name) status = key.Read(*piece.value_name, value);
    return status == ERROR_FILE_NOT_FOUND;
  });
}

void CompleteRecord::Replaced() {
  if (std::exchange(keeps_file_, false)) files_.Replaced();
  if (pieces_.empty()) return;
  if (incomplete_ && !broken_) ++failures_;
  broken_ = incomplete_ = false;
  for (const Piece& piece : pieces_) writer_.Comment("gone " + std::to_string(piece.number));
  writer_.Flush();
  Forget();
}

void CompleteRecord::Forget() {
  pieces_.clear();
  unread_.clear();
}

void CompleteRecord::NoteKeysLeft(const ExactKey& key, std::string& full_name,
                                  const std::string& mark) {
  writer_.Comment(mark + CodeLineBreaks(full_name));
  const std::size_t size = full_name.size();
  std::string name;
  for (DWORD index = 0; key.SubKeyName(index, name) == ERROR_SUCCESS; ++index) {
    full_name.append("\\").append(name);
    ExactKey below;
    if (ExactKey::Open(key.Handle(), name, below) == ERROR_SUCCESS) {
      NoteKeysLeft(below, full_name, mark);
    } else {
      writer_.Comment(mark + CodeLineBreaks(full_name));
    }
    full_name.resize(size);
  }
}

}  // namespace tidemark
