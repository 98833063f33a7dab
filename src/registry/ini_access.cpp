#include "registry/ini_access.h"

#include "platform/unicode.h"
#include "platform/winapi.h"

namespace tidemark {

std::string ReadIniValue(const std::string& section, const std::string& key,
                         const std::string& file) {
  constexpr std::size_t kLongest = 126;
  const std::string text = ReadProfileText(section, key, file, kLongest);
  return text.size() > FirstCharacters(text, 1).size() ? text : std::string();
}

bool WriteIniValue(const std::string& section, const std::string& key, const std::string& value,
                   const std::string& file) {
  return WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(), file.c_str()) !=
         FALSE;
}

std::string ReadProfileText(const std::string& section, const std::string& key,
                            const std::string& file, std::size_t characters) {
  // In UTF-8 the platform's 16-bit characters take up to three bytes each.
  std::string text((characters + 1) * 3, '\0');
  text.resize(GetPrivateProfileStringA(section.c_str(), key.c_str(), "", text.data(),
                                       static_cast<DWORD>(text.size()), file.c_str()));
  text.resize(FirstCharacters(text, characters).size());
  return text;
}

}  // namespace tidemark
