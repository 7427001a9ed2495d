#include "shared/registry_key.h"

#include <array>

#include "seam/platform_error.h"

namespace trelin {

bool Succeeded(std::int32_t lResult) {
  if (lResult == RegistryUnusable) throw PlatformError(TheRegistry().Trouble());
  return lResult == RegistrySuccess;
}

KeyHandle TryOpen(RegistryKey hParent, const std::string& sPath) {
  RegistryKey hKey = RegistryKey::None;
  const bool bOpen = Succeeded(TheRegistry().OpenKey(hParent, sPath, RegistryReadWrite, hKey));
  return KeyHandle(bOpen ? hKey : RegistryKey::None);
}

std::string ReadText(RegistryKey hKey, const std::string& sName) {
  std::array<char, RegistryBufferBytes + 1> buffer{};
  std::uint32_t lSize = RegistryBufferBytes;
  if (!Succeeded(TheRegistry().QueryValue(hKey, sName, buffer.data(), lSize))) return "";
  if (lSize > 0 && buffer[lSize - 1] == '\0') --lSize;
  return {buffer.data(), lSize};
}

}  // namespace trelin
