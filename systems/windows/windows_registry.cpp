#include "systems/windows/windows_registry.h"

#include <windows.h>

namespace trelin {

namespace {

// Of a 64-bit handle only the low 32 bits count; the others repeat the sign.
HKEY Native(RegistryKey hKey) { return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(hKey)); }

BYTE* Bytes(char* pData) { return reinterpret_cast<BYTE*>(pData); }

// Gives out a handle that the system has opened. One that 32 bits cannot hold
// is closed again instead.
std::int32_t GiveOut(LSTATUS lResult, HKEY hOpened, RegistryKey& hKey) {
  if (lResult != ERROR_SUCCESS) return lResult;
  const auto hNarrow = static_cast<RegistryKey>(reinterpret_cast<LONG_PTR>(hOpened));
  if (Native(hNarrow) != hOpened) {
    RegCloseKey(hOpened);
    return RegistryInvalidHandle;
  }
  hKey = hNarrow;
  return RegistrySuccess;
}

}  // namespace

std::int32_t WindowsRegistry::OpenKey(RegistryKey hParent, const std::string& sPath,
                                      std::uint32_t lAccess, RegistryKey& hKey) {
  HKEY hOpened = nullptr;
  const LSTATUS lResult = RegOpenKeyExA(Native(hParent), sPath.c_str(), 0, lAccess, &hOpened);
  return GiveOut(lResult, hOpened, hKey);
}

std::int32_t WindowsRegistry::CreateKey(RegistryKey hParent, const std::string& sPath,
                                        std::uint32_t lAccess, RegistryKey& hKey) {
  HKEY hOpened = nullptr;
  char noClass[] = "";
  const LSTATUS lResult =
      RegCreateKeyExA(Native(hParent), sPath.c_str(), 0, noClass, REG_OPTION_NON_VOLATILE, lAccess,
                      nullptr, &hOpened, nullptr);
  return GiveOut(lResult, hOpened, hKey);
}

std::int32_t WindowsRegistry::CloseKey(RegistryKey hKey) noexcept {
  return RegCloseKey(Native(hKey));
}

std::int32_t WindowsRegistry::QueryValue(RegistryKey hKey, const std::string& sName, char* pData,
                                         std::uint32_t& lSize) {
  DWORD lLength = lSize;
  const LSTATUS lResult =
      RegQueryValueExA(Native(hKey), sName.c_str(), nullptr, nullptr, Bytes(pData), &lLength);
  lSize = lLength;
  return lResult;
}

// Of a text the system stores a NUL that happens to stand behind it, too: it
// gets a copy with another character there.
std::int32_t WindowsRegistry::SetValue(RegistryKey hKey, const std::string& sName,
                                       std::uint32_t lType, const char* pData,
                                       std::uint32_t lSize) {
  std::string sData(pData, lSize);
  sData += '.';
  return RegSetValueExA(Native(hKey), sName.c_str(), 0, lType, Bytes(sData.data()), lSize);
}

std::int32_t WindowsRegistry::DeleteValue(RegistryKey hKey, const std::string& sName) {
  return RegDeleteValueA(Native(hKey), sName.c_str());
}

std::int32_t WindowsRegistry::EnumKey(RegistryKey hKey, std::uint32_t lIndex, char* pName,
                                      std::uint32_t lSize) {
  return RegEnumKeyA(Native(hKey), lIndex, pName, lSize);
}

std::int32_t WindowsRegistry::EnumValue(RegistryKey hKey, std::uint32_t lIndex, char* pName,
                                        std::uint32_t& lNameSize, char* pData,
                                        std::uint32_t& lDataSize) {
  DWORD lNameLength = lNameSize;
  DWORD lDataLength = lDataSize;
  const LSTATUS lResult = RegEnumValueA(Native(hKey), lIndex, pName, &lNameLength, nullptr, nullptr,
                                        Bytes(pData), &lDataLength);
  lNameSize = lNameLength;
  lDataSize = lDataLength;
  return lResult;
}

std::int32_t WindowsRegistry::DeleteKey(RegistryKey hParent, const std::string& sName) {
  return RegDeleteKeyA(Native(hParent), sName.c_str());
}

// The system gives a text as it is stored, here mostly without a NUL, and for
// a missing one a NUL, whether the buffer has room or not.
std::int32_t WindowsRegistry::QueryDefault(RegistryKey hKey, const std::string& sName, char* pData,
                                           std::int32_t& lSize) {
  const LONG lRoom = lSize;
  if (lRoom <= 0) return RegistryMoreData;
  LONG lLength = lRoom;
  const LSTATUS lResult = RegQueryValueA(Native(hKey), sName.c_str(), pData, &lLength);
  lSize = lLength;
  if (lResult != ERROR_SUCCESS || (lLength > 0 && pData[lLength - 1] == '\0')) return lResult;
  lSize = lLength + 1;
  if (lSize > lRoom) return RegistryMoreData;
  pData[lLength] = '\0';
  return RegistrySuccess;
}

}  // namespace trelin
