// Reads registry scripts, the text format of the registry editor, line by line: "Windows Registry
// Editor Version 5.00", which is 16-bit text (also read as 8-bit), and the older "REGEDIT4" in the
// system's 8-bit code page, where binary-coded texts are 8-bit too.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/registry_script_cursor.h"
#include "platform/registry_script_value.h"

namespace tidemark {

// Brings a script's bytes to UTF-8 (exact_text.h). In the strict manner it throws ScriptFault on
// half a character; in both on what is no known encoding.
std::string DecodeScript(std::string_view bytes, ScriptManner manner);

// Reads a script that has been brought to UTF-8, which is kept by who asks.
class ScriptReader {
 public:
  enum class Line { kKey, kRemovedKey, kValue, kComment, kEnd };

  // Reads the first line; throws ScriptFault when it is that of no script.
  ScriptReader(std::string_view text, ScriptManner manner);
  ScriptReader(const ScriptReader&) = delete;
  ScriptReader& operator=(const ScriptReader&) = delete;

  // From here on comments that start a line are told too.
  void TellComments() { tells_comments_ = true; }

  // Moves to the next key or value. In the strict manner it throws ScriptFault at what can't be
  // understood, in the lenient one that is passed over.
  Line Next();

  // Of a key's line: its full name. No part of it is longer than a key's name can be. Empty for a
  // line that can't be understood, in the lenient manner: what follows belongs to no key.
  std::string_view key() const { return key_; }
  const ScriptValue& value() const { return *value_; }
  // Without the ";" and the blanks behind it.
  std::string_view comment() const { return comment_; }
  // Where the line that was read last begins, in bytes from the start of the text.
  std::size_t line_start() const { return line_start_; }

  // The number of the line that was read last, or that is at fault.
  std::size_t line() const;

 private:
  Line ReadLine();
  Line ReadKeyLine();
  Line ReadComment();

  ScriptCursor cursor_;
  ScriptManner manner_;
  ScriptValueReader values_;
  std::size_t line_start_ = 0;
  std::string_view key_;
  std::string_view comment_;
  bool tells_comments_ = false;
  const ScriptValue* value_ = nullptr;
};

}  // namespace tidemark
