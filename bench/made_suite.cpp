#include "bench/made_suite.h"

#include <cstdio>
#include <utility>
#include <vector>

namespace trelin {

namespace {

using Keys = std::vector<std::pair<const char*, std::string>>;

struct Block {
  std::string sName;
  Keys keys;
};

std::string Number(std::int32_t nProduct) {
  char digits[16];
  std::snprintf(digits, sizeof digits, "%05d", static_cast<int>(nProduct));
  return digits;
}

std::string MadeTitle(std::int32_t nProduct) { return "Inspection Station " + Number(nProduct); }

Block Product(std::int32_t n) {
  const std::string sNumber = Number(n);
  Block block{"Product" + sNumber,
              {{"PRODUCT", MadeTitle(n)},
               {"DESCRIPTION", "Measures the parts of series " + sNumber + " against drawings"},
               {"IMAGE", "product" + sNumber + ".bmp"},
               {"PRODUCTCODE", MadeProductCode(n)},
               {"REVISION", "2.1." + std::to_string(n % 10)},
               {"INSTALLFILE", "product" + sNumber + "\\setup.exe"},
               {"READMEFILE", "product" + sNumber + "\\readme.exe"}}};
  if (n % 2 == 0) block.keys.emplace_back("UNINSTALLNAME", "Inspection " + sNumber);
  return block;
}

Block Prerequisite(const char* sName, std::int32_t nProduct, const char* sRevision) {
  return {sName,
          {{"PRODUCTCODE", MadeProductCode(nProduct)},
           {"REVISION", sRevision},
           {"TITLE", MadeTitle(nProduct)}}};
}

// The first product has none, all others need it.
std::vector<Block> Prerequisites(std::int32_t n) {
  std::vector<Block> blocks;
  if (n > 1) blocks.push_back(Prerequisite("Runtime", 1, "1.0"));
  if (n > 2 && n % 2 == 0) blocks.push_back(Prerequisite("Previous", n - 1, "2.0"));
  return blocks;
}

void AddKeys(std::string& sText, const Keys& keys, const char* sIndent, const char* sLineEnd) {
  for (const auto& [sKey, sValue] : keys)
    sText.append(sIndent).append(sKey).append(" = ").append(sValue).append(sLineEnd);
}

}  // namespace

std::string MadeProductCode(std::int32_t nProduct) { return "PRODUCT" + Number(nProduct); }

std::string MadeCheckFile(std::int32_t nProduct) { return "product" + Number(nProduct) + ".exe"; }

std::string MadeSetupList(std::int32_t nProducts) {
  std::string sText = "; The benchmark's suite\r\nBLOCK SETUPLIST Suite\r\nTITLE = Suite\r\n";
  for (std::int32_t n = 1; n <= nProducts; ++n) {
    const Block product = Product(n);
    sText += "\r\n  ; Number " + std::to_string(n) + "\r\n";
    sText += "  BLOCK APPLICATION " + product.sName + "\r\n";
    AddKeys(sText, product.keys, "    ", "\r\n");
    for (const Block& block : Prerequisites(n)) {
      sText += "    BLOCK DEPENDENCY " + block.sName + "\r\n";
      AddKeys(sText, block.keys, "      ", "\r\n");
      sText += "    END\r\n";
    }
    sText += "  END\r\n";
  }
  return sText + "END\r\n";
}

std::size_t MadeValueBytes(std::int32_t nProducts) {
  std::size_t nBytes = 0;
  const auto add = [&nBytes](const Block& block) {
    for (const auto& [sKey, sValue] : block.keys) nBytes += sValue.size();
  };
  for (std::int32_t n = 1; n <= nProducts; ++n) {
    add(Product(n));
    for (const Block& block : Prerequisites(n)) add(block);
  }
  return nBytes;
}

std::string MadeIniFile(std::int32_t nProducts) {
  std::string sText = "# The benchmark's suite\n[Suite]\nTITLE = Suite\n";
  for (std::int32_t n = 1; n <= nProducts; ++n) {
    const Block product = Product(n);
    sText += "\n# Number " + std::to_string(n) + "\n[" + product.sName + "]\n";
    AddKeys(sText, product.keys, "", "\n");
    for (const Block& block : Prerequisites(n)) {
      sText += "[" + product.sName + " " + block.sName + "]\n";
      AddKeys(sText, block.keys, "", "\n");
    }
  }
  return sText;
}

std::string MadeRegistryFile(std::int32_t nProducts, const std::string& sFolder) {
  std::string sEscaped;
  for (const char c : sFolder) sEscaped.append(c == '\\' ? 2 : 1, c);
  std::string sText =
      "Windows Registry Editor Version 5.00\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\"
      "InstallLog]\n";
  for (std::int32_t n = 1; n <= nProducts; ++n) {
    const std::string sCode = MadeProductCode(n);
    sText += "\"" + sCode + "\"=\"2.1." + std::to_string(n % 7) + "\"\n";
    sText += "\"" + sCode + "CheckFile\"=\"" + sEscaped + MadeCheckFile(n) + "\"\n";
  }
  return sText;
}

}  // namespace trelin
