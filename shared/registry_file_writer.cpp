#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "shared/code_page.h"
#include "shared/registry_file.h"
#include "shared/registry_text.h"

namespace trelin {

namespace {

constexpr std::size_t BytesPerLine = 24;

bool IsPrintable(char c) { return static_cast<unsigned char>(c) >= 0x20 || c == '\t'; }

// Free of NULs, line breaks and whatever else does not show in an editor.
bool IsPrintable(std::string_view sText) {
  return std::all_of(sText.begin(), sText.end(), [](char c) { return IsPrintable(c); });
}

void AppendQuoted(std::string& sOut, std::string_view sText) {
  sOut += '"';
  for (const char c : ToUtf8(sText)) {
    if (c == '"' || c == '\\') sOut += '\\';
    sOut += c;
  }
  sOut += '"';
}

void AppendName(std::string& sOut, const std::string& sName) {
  if (sName.empty())
    sOut += '@';
  else
    AppendQuoted(sOut, sName);
  sOut += '=';
}

// "01,02,...", continued on further lines.
void AppendBytes(std::string& sOut, std::string_view sBytes) {
  constexpr const char* Digits = "0123456789abcdef";
  for (std::size_t i = 0; i < sBytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(sBytes[i]);
    if (i > 0) sOut += i % BytesPerLine == 0 ? ",\\\n  " : ",";
    sOut += Digits[byte >> 4];
    sOut += Digits[byte & 0xF];
  }
}

void AppendHex(std::string& sOut, const RegistryValue& value) {
  if (value.lType == RegistryTypeBinary)
    sOut += "hex:";
  else
    sOut += "hex(" + HexNumber(value.lType, 1) + "):";
  AppendBytes(sOut, IsRegistryText(value.lType) ? EncodeUtf16Data(value.sData) : value.sData);
}

std::uint32_t Dword(const std::string& sData) {
  std::uint32_t lNumber = 0;
  for (std::size_t i = sizeof lNumber; i-- > 0;)
    lNumber = lNumber << 8 | static_cast<unsigned char>(sData[i]);
  return lNumber;
}

void AppendValue(std::string& sOut, const RegistryValue& value) {
  AppendName(sOut, value.sName);
  if (value.lType == RegistryTypeText && IsPrintable(value.sData))
    AppendQuoted(sOut, value.sData);
  else if (value.lType == RegistryTypeDword && value.sData.size() == sizeof(std::uint32_t))
    sOut += "dword:" + HexNumber(Dword(value.sData), 8);
  else
    AppendHex(sOut, value);
  sOut += '\n';
}

// A key without values appears only where no subkey implies it.
void AppendKey(std::string& sOut, const RegistryNode& node, const std::string& sPath) {
  const bool bHive = node.Depth() == 1;
  if (!node.AllValues().empty() || (node.KeyCount() == 0 && !bHive))
    sOut += "\n[" + ToUtf8(sPath) + "]\n";
  for (const RegistryValue& value : node.AllValues()) AppendValue(sOut, value);
  for (std::size_t i = 0; i < node.KeyCount(); ++i)
    AppendKey(sOut, node.Key(i), sPath + '\\' + node.Key(i).Name());
}

}  // namespace

std::string WriteRegistryText(const RegistryNode& tree) {
  std::string sOut = std::string(RegistryFileHeader) + '\n';
  for (std::size_t i = 0; i < tree.KeyCount(); ++i)
    AppendKey(sOut, tree.Key(i), tree.Key(i).Name());
  return sOut;
}

}  // namespace trelin
