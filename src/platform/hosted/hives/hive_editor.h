// A hive that is being changed by the library that writes them: a copy in memory.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/hosted/host_file.h"
#include "platform/winapi.h"

struct hive_h;

namespace tidemark::hosted {

// After a call that failed the copy is spoilt. All throw std::system_error with the library's
// error.
class HiveEditor {
 public:
  // Of a hive that the check found sound: damaged ones can end the process.
  explicit HiveEditor(std::string_view hive);

  struct Value {
    std::string name;  // UTF-8
    DWORD type;
    std::string data;  // as it lies in a hive
  };

  // Offsets are those of HiveKey. A key that is made gets the security of its parent.
  void SetValues(std::uint32_t key, const std::vector<Value>& values);
  void DeleteKey(std::uint32_t key);
  std::uint32_t AddKey(std::uint32_t parent, const std::string& name);

  // The changed hive; its sequence numbers are one higher.
  std::string Bytes();

 private:
  struct Close {
    void operator()(hive_h* hive) const;
  };

  HostFile file_;  // which lies in memory only; the library opens by name
  std::unique_ptr<hive_h, Close> hive_;
};

}  // namespace tidemark::hosted
