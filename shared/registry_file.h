#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "seam/registry.h"
#include "shared/registry_node.h"

namespace trelin {

constexpr std::string_view RegistryFileHeader = "Windows Registry Editor Version 5.00";

constexpr std::uint32_t RegistryTypeExpandText = 2;  // REG_EXPAND_SZ
constexpr std::uint32_t RegistryTypeBinary = 3;      // REG_BINARY
constexpr std::uint32_t RegistryTypeDword = 4;       // REG_DWORD
constexpr std::uint32_t RegistryTypeTexts = 7;       // REG_MULTI_SZ

// Types whose hexadecimal form in the file is UTF-16; in memory they are text
// of the code page 1252, as the ANSI functions of Windows deliver them.
constexpr bool IsRegistryText(std::uint32_t lType) {
  return lType == RegistryTypeText || lType == RegistryTypeExpandText || lType == RegistryTypeTexts;
}

// Reads the text of a registry file (registry_file_reader.cpp describes it).
// sBytes: the file's content; path gives its path, for the error. Throws
// PlatformError, with the line and what is wrong, for anything else.
std::unique_ptr<RegistryNode> ReadRegistryText(std::string_view sBytes,
                                               const std::function<std::string()>& path);
std::unique_ptr<RegistryNode> ReadRegistryText(std::string_view sBytes, const std::string& sPath);

// The text of a registry file that holds the tree: UTF-8 without byte order
// mark, lines ended with LF. Reading it gives an equal tree.
std::string WriteRegistryText(const RegistryNode& tree);

}  // namespace trelin
