#include "suite/reg_entry.h"

#include "texts/error.h"
#include "texts/messages.h"
#include "texts/string_resources.h"
#include "texts/text.h"

namespace trelin {

namespace {

// Opens one level or else creates it. lTemplate describes the failure.
KeyHandle OpenOrCreateLevel(RegistryKey hParent, const std::string& sLevel, TextNumber lTemplate) {
  if (KeyHandle key = TryOpen(hParent, sLevel); key.IsOpen()) return key;
  RegistryKey hKey = RegistryKey::None;
  if (Succeeded(TheRegistry().CreateKey(hParent, sLevel, RegistryReadWrite, hKey)))
    return KeyHandle(hKey);
  throw Error(5000, "RegEntry.CreateInternal", FormatResourceString(lTemplate, sLevel));
}

}  // namespace

KeyHandle OpenInternal(RegistryKey hParent, const std::string& sPath) {
  KeyHandle key = TryOpen(hParent, sPath);
  if (!key.IsOpen())
    throw Error(5001, "RegEntry.OpenInternal",
                FormatResourceString(TextNumber::KeyNotOpened, sPath));
  return key;
}

KeyHandle CreateInternal(RegistryKey hParent, const std::string& sPath) {
  const std::size_t nBackslash = sPath.find('\\');
  if (nBackslash == std::string::npos)
    return OpenOrCreateLevel(hParent, sPath, TextNumber::KeyNotOpened);
  const KeyHandle level =
      OpenOrCreateLevel(hParent, sPath.substr(0, nBackslash), TextNumber::KeyNotCreated);
  return CreateInternal(level.Get(), sPath.substr(nBackslash + 1));
}

std::string RegEntry::FullPath(const std::string& sKey) const {
  std::string sPath;
  sPath.reserve(DefaultRoot().size() + 1 + sKey.size());
  sPath.append(DefaultRoot()).append("\\").append(sKey);
  return sPath;
}

void RegEntry::OpenKey(const std::string& sKey) {
  CloseKey();
  sCurrentPath_ = FullPath(sKey);
  currentKey_ = OpenInternal(RegistryKey::LocalMachine, sCurrentPath_);
}

void RegEntry::CreateKey(const std::string& sKey) {
  CloseKey();
  sCurrentPath_ = FullPath(sKey);
  currentKey_ = CreateInternal(RegistryKey::LocalMachine, sCurrentPath_);
}

bool RegEntry::TestKey(const std::string& sKey) const {
  return TryOpen(RegistryKey::LocalMachine, FullPath(sKey)).IsOpen();
}

std::string RegEntry::GetString(const std::string& sName) const {
  return currentKey_.IsOpen() ? ReadText(currentKey_.Get(), sName) : "";
}

std::string RegEntry::GetStringInternational(const std::string& sName, std::int32_t lId) const {
  std::string sText = GetString(LanguageCodeFromLocale(lId) + sName);
  return sText.empty() ? GetString(sName) : sText;
}

bool RegEntry::GetBoolean(const std::string& sName) const {
  const std::string sText = UpperCase(GetString(sName));
  return !sText.empty() && sText != "0" && sText != "NO" && sText != "FALSE";
}

void RegEntry::SetString(const std::string& sName, const std::string& sValue) {
  if (!currentKey_.IsOpen()) return;
  if (sValue.empty()) return DeleteValue(sName);
  const auto lSize = static_cast<std::uint32_t>(sValue.size());
  if (!Succeeded(
          TheRegistry().SetValue(currentKey_.Get(), sName, RegistryTypeText, sValue.data(), lSize)))
    throw Error(5002, "RegEntry.SetValue",
                FormatResourceString(TextNumber::ValueNotWritten, sName));
}

void RegEntry::SetBoolean(const std::string& sName, bool bValue) {
  SetString(sName, bValue ? "true" : "false");
}

void RegEntry::DeleteValue(const std::string& sName) {
  if (currentKey_.IsOpen()) Succeeded(TheRegistry().DeleteValue(currentKey_.Get(), sName));
}

}  // namespace trelin
