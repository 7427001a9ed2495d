#include "shared/registry_key.h"

#include <array>

namespace trelin {

KeyHandle TryOpen(RegistryKey hParent, const std::string& sPath) {
  RegistryKey hKey = RegistryKey::None;
  const std::int32_t lResult = TheRegistry().OpenKey(hParent, sPath, RegistryReadWrite, hKey);
  return KeyHandle(lResult == RegistrySuccess ? hKey : RegistryKey::None);
}

std::string ReadText(RegistryKey hKey, const std::string& sName) {
  std::array<char, RegistryBufferBytes + 1> buffer{};
  std::uint32_t lSize = RegistryBufferBytes;
  if (TheRegistry().QueryValue(hKey, sName, buffer.data(), lSize) != RegistrySuccess) return "";
  if (lSize > 0 && buffer[lSize - 1] == '\0') --lSize;
  return {buffer.data(), lSize};
}

}  // namespace trelin
