// The value lines of a registry script: a name, and the text, number or bytes that it is set to.
#pragma once

#include <optional>
#include <string>

#include "platform/registry_script_cursor.h"
#include "platform/winapi.h"

namespace tidemark {

struct ScriptValue {
  std::string name;
  bool removes = false;  // "name"=-; the type and the data then mean nothing
  DWORD type = 0;
  std::string data;  // texts as UTF-8 (exact_text.h), with the NULs that end them
  // What is left over of a 16-bit text with an odd number of bytes.
  std::optional<char> odd_byte = {};
};

class ScriptValueReader {
 public:
  ScriptValueReader(ScriptCursor& cursor, ScriptManner manner) : cursor_(cursor), manner_(manner) {}

  // Whether texts that are written as bytes are in the system's code page, not 16-bit.
  void set_eight_bit(bool eight_bit) { eight_bit_ = eight_bit; }

  // Reads the value that starts at the cursor with "@" or a quote, up to the start of the line
  // behind it. Throws ScriptFault. Valid until the next call.
  const ScriptValue& Read();

 private:
  void ReadData();
  void ReadQuoted(std::string& into);
  void ReadEscape(std::string& into);
  void ReadNumber();
  void ReadTypedBytes();
  void ReadBytes(DWORD type);
  void ContinueLine();
  void DecodeData();
  void EndLine();

  ScriptCursor& cursor_;
  ScriptManner manner_;
  bool eight_bit_ = false;
  ScriptValue value_;
};

}  // namespace tidemark
