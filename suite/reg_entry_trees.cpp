// RegEntry's operations on whole trees of keys.

#include <array>
#include <optional>
#include <set>
#include <string_view>

#include "suite/reg_entry.h"
#include "texts/error.h"
#include "texts/messages.h"
#include "texts/numbers.h"
#include "texts/text.h"

namespace trelin {

namespace {

using Buffer = std::array<char, RegistryBufferBytes + 1>;

constexpr const char* ErrorSource = "RegEntry.CopyInternal";  // also of deletions

Error NotOpened(const std::string& sKey) {
  return {5001, ErrorSource, FormatResourceString(TextNumber::KeyNotOpened, sKey)};
}

Error NotCreated(const std::string& sKey) {
  return {5000, ErrorSource, FormatResourceString(TextNumber::KeyNotCreated, sKey)};
}

// Enumerates a subkey into a buffer of NULs.
bool EnumKey(RegistryKey hKey, std::uint32_t lIndex, Buffer& name) {
  name.fill('\0');
  return Succeeded(TheRegistry().EnumKey(hKey, lIndex, name.data(), RegistryBufferBytes));
}

// The text before the first NUL; nothing when there is none.
std::optional<std::string> TextBeforeNul(const Buffer& name) {
  const std::size_t nEnd = std::string_view(name.data(), name.size()).find('\0');
  if (nEnd == std::string_view::npos) return std::nullopt;
  return std::string(name.data(), nEnd);
}

std::optional<std::string> SubkeyName(RegistryKey hKey, std::uint32_t lIndex) {
  Buffer name;
  return EnumKey(hKey, lIndex, name) ? TextBeforeNul(name) : std::nullopt;
}

struct EnumeratedValue {
  std::string sName;
  std::string sData;  // its bytes as they are
};

std::optional<EnumeratedValue> ValueAt(RegistryKey hKey, std::uint32_t lIndex) {
  Buffer name{};
  Buffer data{};
  std::uint32_t lNameSize = RegistryBufferBytes;
  std::uint32_t lDataSize = RegistryBufferBytes;
  if (!Succeeded(
          TheRegistry().EnumValue(hKey, lIndex, name.data(), lNameSize, data.data(), lDataSize)))
    return std::nullopt;
  return EnumeratedValue{{name.data(), lNameSize}, {data.data(), lDataSize}};
}

void CopyValues(RegistryKey hDestination, RegistryKey hSource) {
  for (std::uint32_t lIndex = 0; auto value = ValueAt(hSource, lIndex); ++lIndex) {
    if (value->sName.ends_with('\0')) value->sName.pop_back();
    Succeeded(TheRegistry().SetValue(hDestination, value->sName, RegistryTypeText,
                                     value->sData.data(),
                                     static_cast<std::uint32_t>(value->sData.size())));
  }
}

KeyHandle OpenSubkey(RegistryKey hParent, const std::string& sKey) {
  KeyHandle key = TryOpen(hParent, sKey);
  if (!key.IsOpen()) throw NotOpened(sKey);
  return key;
}

KeyHandle CreateSubkey(RegistryKey hParent, const std::string& sKey) {
  RegistryKey hKey = RegistryKey::None;
  if (!Succeeded(TheRegistry().CreateKey(hParent, sKey, RegistryReadWrite, hKey)))
    throw NotCreated(sKey);
  return KeyHandle(hKey);
}

void CopyInternal(RegistryKey hDestination, RegistryKey hSource) {
  CopyValues(hDestination, hSource);
  for (std::uint32_t lIndex = 0; const auto sName = SubkeyName(hSource, lIndex); ++lIndex) {
    KeyHandle destination;  // closed after the source
    const KeyHandle source = OpenSubkey(hSource, *sName);
    destination = CreateSubkey(hDestination, *sName);
    CopyInternal(destination.Get(), source.Get());
  }
}

// The path as the registry takes it, up to its first NUL: in upper case, each
// level with one backslash behind it.
std::string Folded(const std::string& sPath) {
  const std::string_view sTaken = sPath.c_str();
  std::string sResult;
  for (const char c : std::string(sTaken) + "\\")
    if (c != '\\' || !(sResult.empty() || sResult.ends_with('\\'))) sResult += c;
  return UpperCase(sResult);
}

bool IsOrLiesInside(const std::string& sPath, const std::string& sOuterPath) {
  return Folded(sPath).starts_with(Folded(sOuterPath));
}

// Whether the registry may take sKey for the key that it stands below: up to its
// first NUL there are backslashes alone.
bool MeansItsParent(const std::string& sKey) {
  return std::string_view(sKey.c_str()).find_first_not_of('\\') == std::string_view::npos;
}

// Deletes what lies below the key. A name that comes back was not deleted.
void DeleteSubkeys(RegistryKey hKey) {
  std::set<std::string> deleted;
  while (const auto sName = SubkeyName(hKey, 0)) {
    if (!deleted.insert(*sName).second) throw NotOpened(*sName);
    RegEntry::DeleteInternal(hKey, *sName);
  }
}

// Every character of the data but the NULs at its end.
std::string WithoutNuls(const std::string& sData) {
  return sData.substr(0, sData.find_last_not_of('\0') + 1);
}

// The default value of the subkey sSubkey of the key sKey, which lies below the
// class key sParent; nothing when it cannot be read.
std::optional<std::string> ClassesDefault(const std::string& sParent, const std::string& sKey,
                                          const std::string& sSubkey) {
  if (MeansItsParent(sKey)) return std::nullopt;
  try {
    const KeyHandle key = OpenInternal(RegistryKey::ClassesRoot, sParent + sKey);
    Buffer data{};
    std::int32_t lSize = RegistryBufferBytes;
    if (!Succeeded(TheRegistry().QueryDefault(key.Get(), sSubkey, data.data(), lSize)))
      return std::nullopt;
    return std::string(data.data(), static_cast<std::size_t>(lSize) - 1);
  } catch (...) {
    return std::nullopt;
  }
}

// Deletes sKey below hParent, as far as it can.
void TryDelete(RegistryKey hParent, const std::string& sKey) {
  try {
    RegEntry::DeleteInternal(hParent, sKey);
  } catch (...) {
    // What is left stays.
  }
}

// The same below the class key sParent.
void TryDeleteClass(const std::string& sParent, const std::string& sKey) {
  try {
    TryDelete(OpenInternal(RegistryKey::ClassesRoot, sParent).Get(), sKey);
  } catch (...) {
    // There is nothing to delete it from.
  }
}

}  // namespace

void RegEntry::Copy(const std::string& sNewKey) const {
  if (!currentKey_.IsOpen()) return;
  if (IsOrLiesInside(FullPath(sNewKey), sCurrentPath_)) throw NotCreated(sNewKey);
  const KeyHandle destination = CreateInternal(RegistryKey::LocalMachine, FullPath(sNewKey));
  CopyInternal(destination.Get(), currentKey_.Get());
}

void RegEntry::DeleteKey(const std::string& sKey) const {
  if (currentKey_.IsOpen()) DeleteInternal(currentKey_.Get(), sKey);
}

void RegEntry::DeleteInternal(RegistryKey lParentKey, const std::string& sKey) {
  if (MeansItsParent(sKey)) throw NotOpened(sKey);
  DeleteSubkeys(OpenSubkey(lParentKey, sKey).Get());  // closed again before it goes
  Succeeded(TheRegistry().DeleteKey(lParentKey, sKey));
}

std::int16_t RegEntry::Query(std::vector<std::string>& colKeys) const {
  if (!currentKey_.IsOpen()) return 0;
  try {
    Buffer name;
    for (std::uint32_t lIndex = 0; EnumKey(currentKey_.Get(), lIndex, name); ++lIndex) {
      ToInt16(lIndex, "The number of keys");
      if (auto sName = TextBeforeNul(name))
        colKeys.push_back(std::move(*sName));
      else
        TheSystem().ShowMessage("No ending 0 found", MessageIcon::None, MessageButtons::Ok, "");
    }
    return ToInt16(static_cast<std::int64_t>(colKeys.size()), "The number of keys");
  } catch (...) {
    return 0;
  }
}

std::int16_t RegEntry::QueryValues(ValueArray& vResults) const {
  vResults.fill(std::vector<std::string>(1));
  if (!currentKey_.IsOpen()) return 0;
  try {
    std::uint32_t lIndex = 0;
    for (; const auto value = ValueAt(currentKey_.Get(), lIndex); ++lIndex) {
      const auto nColumns = static_cast<std::size_t>(ToInt16(lIndex + 1, "The number of values"));
      for (auto& row : vResults) row.resize(nColumns + 1);
      vResults[0][lIndex] = value->sName;
      vResults[1][lIndex] = WithoutNuls(value->sData);
    }
    return static_cast<std::int16_t>(lIndex);
  } catch (...) {
    return 0;
  }
}

void RegEntry::RemoveProgID(const std::string& sProgID) {
  const auto sClass = ClassesDefault("", sProgID, "Clsid");
  if (!sClass) return;
  TryDelete(RegistryKey::ClassesRoot, sProgID);
  const auto sTypeLibrary = ClassesDefault("CLSID\\", *sClass, "TypeLib");
  if (!sTypeLibrary) return;
  TryDeleteClass("CLSID", *sClass);
  TryDeleteClass("TypeLib", *sTypeLibrary);
}

}  // namespace trelin
