// What is the same on both grounds: setting up and looking, through platform calls.
#include "tests/support/test_pc.h"

#include <gtest/gtest.h>

#include "platform/unique_handle.h"

namespace tidemark {

void TestPc::MakeFolder(const std::string& path) {
  for (auto end = path.find('\\', 3); end != std::string::npos; end = path.find('\\', end + 1)) {
    CreateDirectoryA(path.substr(0, end).c_str(), nullptr);
  }
  const bool made = CreateDirectoryA(path.c_str(), nullptr) != FALSE;
  EXPECT_TRUE(made || GetLastError() == ERROR_ALREADY_EXISTS) << path << ' ' << GetLastError();
}

void TestPc::MakeFile(const std::string& path, std::string_view contents) {
  MakeFolder(path.substr(0, path.find_last_of('\\')));
  const UniqueFile file(CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
  DWORD written = 0;
  const bool done = file && WriteFile(file.Get(), contents.data(),
                                      static_cast<DWORD>(contents.size()), &written, nullptr);
  EXPECT_TRUE(done) << path << ' ' << GetLastError();
}

std::string TestPc::ReadFile(const std::string& path) {
  const UniqueFile file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  std::string contents;
  char block[4096];
  DWORD count = 0;
  while (file && ::ReadFile(file.Get(), block, sizeof(block), &count, nullptr) && count > 0) {
    contents.append(block, count);
  }
  return contents;
}

bool TestPc::FileExists(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

void TestPc::MakeKey(HKEY root, const std::string& key) {
  HKEY made = nullptr;
  EXPECT_EQ(RegCreateKeyA(root, key.c_str(), &made), ERROR_SUCCESS) << key;
  const UniqueKey owner(made);
}

void TestPc::SetText(HKEY root, const std::string& key, const std::string& name,
                     const std::string& text, DWORD type) {
  SetBinary(root, key, name, std::string_view(text.c_str(), text.size() + 1), type);
}

void TestPc::SetDword(HKEY root, const std::string& key, const std::string& name, DWORD value) {
  SetBinary(root, key, name, std::string_view(reinterpret_cast<const char*>(&value), sizeof(value)),
            REG_DWORD);
}

void TestPc::SetBinary(HKEY root, const std::string& key, const std::string& name,
                       std::string_view bytes, DWORD type) {
  HKEY made = nullptr;
  ASSERT_EQ(RegCreateKeyA(root, key.c_str(), &made), ERROR_SUCCESS) << key;
  const UniqueKey owner(made);
  EXPECT_EQ(RegSetValueExA(made, name.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                           static_cast<DWORD>(bytes.size())),
            ERROR_SUCCESS)
      << key << ' ' << name;
}

bool TestPc::KeyExists(HKEY root, const std::string& key) {
  HKEY opened = nullptr;
  const bool exists = RegOpenKeyExA(root, key.c_str(), 0, KEY_READ, &opened) == ERROR_SUCCESS;
  const UniqueKey owner(exists ? opened : nullptr);
  return exists;
}

std::optional<TestValue> TestPc::Value(HKEY root, const std::string& key, const std::string& name) {
  HKEY opened = nullptr;
  if (RegOpenKeyExA(root, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return std::nullopt;
  const UniqueKey owner(opened);
  TestValue value;
  DWORD size = 0;
  if (RegQueryValueExA(opened, name.c_str(), nullptr, &value.type, nullptr, &size) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  value.bytes.resize(size);
  RegQueryValueExA(opened, name.c_str(), nullptr, &value.type,
                   reinterpret_cast<BYTE*>(value.bytes.data()), &size);
  value.bytes.resize(size);
  return value;
}

std::string TestPc::Text(HKEY root, const std::string& key, const std::string& name) {
  const std::optional<TestValue> value = Value(root, key, name);
  return value ? value->bytes.substr(0, value->bytes.find('\0')) : std::string();
}

}  // namespace tidemark
