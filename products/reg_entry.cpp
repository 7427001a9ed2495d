#include "products/reg_entry.h"

#include <array>
#include <utility>

#include "platform/platform.h"
#include "startup/error.h"
#include "startup/messages.h"
#include "startup/string_resources.h"

namespace trelin {

namespace {

constexpr std::uint32_t DataBytes = 255;

// An open key, closed at the end of its scope.
class KeyHandle {
 public:
  explicit KeyHandle(RegistryKey hKey) : hKey_(hKey) {}
  ~KeyHandle() { TheRegistry().CloseKey(hKey_); }
  KeyHandle(const KeyHandle&) = delete;
  KeyHandle& operator=(const KeyHandle&) = delete;

  RegistryKey Get() const { return hKey_; }

 private:
  RegistryKey hKey_;
};

RegistryKey OpenInternal(RegistryKey hParent, const std::string& sPath) {
  RegistryKey hKey = RegistryKey::None;
  if (TheRegistry().OpenKey(hParent, sPath, RegistryReadWrite, hKey) != RegistrySuccess)
    throw Error(5001, "RegEntry.OpenInternal", FormatResourceString(35001, sPath));
  return hKey;
}

// Opens one level or else creates it. lTemplate describes the failure.
RegistryKey OpenOrCreateLevel(RegistryKey hParent, const std::string& sLevel,
                              std::int32_t lTemplate) {
  RegistryKey hKey = RegistryKey::None;
  if (TheRegistry().OpenKey(hParent, sLevel, RegistryReadWrite, hKey) == RegistrySuccess)
    return hKey;
  if (TheRegistry().CreateKey(hParent, sLevel, RegistryReadWrite, hKey) == RegistrySuccess)
    return hKey;
  throw Error(5000, "RegEntry.CreateInternal", FormatResourceString(lTemplate, sLevel));
}

RegistryKey CreateInternal(RegistryKey hParent, const std::string& sPath) {
  const std::size_t nBackslash = sPath.find('\\');
  if (nBackslash == std::string::npos) return OpenOrCreateLevel(hParent, sPath, 35001);
  const KeyHandle level(OpenOrCreateLevel(hParent, sPath.substr(0, nBackslash), 35002));
  return CreateInternal(level.Get(), sPath.substr(nBackslash + 1));
}

}  // namespace

void RegEntry::CloseKey() {
  if (hCurrentKey_ != RegistryKey::None)
    TheRegistry().CloseKey(std::exchange(hCurrentKey_, RegistryKey::None));
}

void RegEntry::OpenKey(const std::string& sKey) {
  CloseKey();
  hCurrentKey_ = OpenInternal(RegistryKey::LocalMachine, FullPath(sKey));
}

void RegEntry::CreateKey(const std::string& sKey) {
  CloseKey();
  hCurrentKey_ = CreateInternal(RegistryKey::LocalMachine, FullPath(sKey));
}

bool RegEntry::TestKey(const std::string& sKey) const {
  try {
    const KeyHandle key(OpenInternal(RegistryKey::LocalMachine, FullPath(sKey)));
    return true;
  } catch (...) {
    return false;
  }
}

std::string RegEntry::GetString(const std::string& sName) const {
  if (hCurrentKey_ == RegistryKey::None) return "";
  std::array<char, DataBytes + 1> buffer{};
  std::uint32_t lSize = DataBytes;
  if (TheRegistry().QueryValue(hCurrentKey_, sName, buffer.data(), lSize) != RegistrySuccess)
    return "";
  if (lSize > 0 && buffer[lSize - 1] == '\0') --lSize;
  return {buffer.data(), lSize};
}

std::string RegEntry::GetStringInternational(const std::string& sName, std::int32_t lId) const {
  std::string sText = GetString(LanguageCodeFromLocale(lId) + sName);
  return sText.empty() ? GetString(sName) : sText;
}

bool RegEntry::GetBoolean(const std::string& sName) const {
  std::string sText = GetString(sName);
  TheSystem().MakeUpperCase(sText);
  return !sText.empty() && sText != "0" && sText != "NO" && sText != "FALSE";
}

void RegEntry::SetString(const std::string& sName, const std::string& sValue) {
  if (hCurrentKey_ == RegistryKey::None) return;
  if (sValue.empty()) return DeleteValue(sName);
  const auto lSize = static_cast<std::uint32_t>(sValue.size());
  if (TheRegistry().SetValue(hCurrentKey_, sName, RegistryTypeText, sValue.data(), lSize) !=
      RegistrySuccess)
    throw Error(5002, "RegEntry.SetValue", FormatResourceString(35003, sName));
}

void RegEntry::SetBoolean(const std::string& sName, bool bValue) {
  SetString(sName, bValue ? "true" : "false");
}

void RegEntry::DeleteValue(const std::string& sName) {
  if (hCurrentKey_ != RegistryKey::None) TheRegistry().DeleteValue(hCurrentKey_, sName);
}

}  // namespace trelin
