#pragma once

#include "seam/registry.h"

namespace trelin {

// The registry of this machine. A 32-bit program sees the registry that
// Windows keeps for 32-bit programs.
class WindowsRegistry : public Registry {
 public:
  std::int32_t OpenKey(RegistryKey hParent, const std::string& sPath, std::uint32_t lAccess,
                       RegistryKey& hKey) override;
  std::int32_t CreateKey(RegistryKey hParent, const std::string& sPath, std::uint32_t lAccess,
                         RegistryKey& hKey) override;
  std::int32_t CloseKey(RegistryKey hKey) noexcept override;
  std::int32_t QueryValue(RegistryKey hKey, const std::string& sName, char* pData,
                          std::uint32_t& lSize) override;
  std::int32_t SetValue(RegistryKey hKey, const std::string& sName, std::uint32_t lType,
                        const char* pData, std::uint32_t lSize) override;
  std::int32_t DeleteValue(RegistryKey hKey, const std::string& sName) override;
  std::int32_t EnumKey(RegistryKey hKey, std::uint32_t lIndex, char* pName,
                       std::uint32_t lSize) override;
  std::int32_t EnumValue(RegistryKey hKey, std::uint32_t lIndex, char* pName,
                         std::uint32_t& lNameSize, char* pData, std::uint32_t& lDataSize) override;
  std::int32_t DeleteKey(RegistryKey hParent, const std::string& sName) override;
  std::int32_t QueryDefault(RegistryKey hKey, const std::string& sName, char* pData,
                            std::int32_t& lSize) override;
};

}  // namespace trelin
