// The input is the export of a workstation's records. Whatever its encoding, the same is
// read, and each product stands as the records of the 64-bit or 32-bit view say.

#include "status/exports.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/platform.h"
#include "fuzz/target.h"
#include "seam/platform_error.h"
#include "shared/code_page.h"
#include "shared/registry_file.h"
#include "shared/registry_text.h"
#include "status/read_only.h"
#include "status/suite_status.h"

namespace trelin {

namespace {

constexpr const char* SetupListPath = "C:\\Suite\\TRELIN.CFG";
constexpr const char* ExportPath = "C:\\PC.reg";

// Of revision 2.0 each; Q requires P.
const std::vector<std::string> Codes = {"P", "Q", ""};

SuiteStatus& TheSuite(FakePlatform& platform) {
  static SuiteStatus suite = [&platform] {
    std::string sList = "BLOCK SETUPLIST\n";
    for (const std::string& sCode : Codes) {
      sList += "BLOCK APPLICATION\nREVISION=2.0\nPRODUCTCODE=" + sCode + '\n';
      if (sCode == "Q") sList += "BLOCK DEPENDENCY\nPRODUCTCODE=P\nREVISION=2.0\nEND\n";
      sList += "END\n";
    }
    platform.system.files[SetupListPath] = sList + "END\n";
    return SuiteStatus(SetupListPath, "");
  }();
  return suite;
}

// What is read of an export, or why it is not.
struct Export {
  std::unique_ptr<RegistryNode> tree;
  std::string sText;
};

Export Read(FakePlatform& platform, std::string sBytes) {
  platform.system.files[ExportPath] = std::move(sBytes);
  try {
    auto tree = ReadExport(ExportPath, sBytes);
    std::string sText = WriteRegistryText(*tree);
    return {std::move(tree), std::move(sText)};
  } catch (const PlatformError& error) {
    const std::string sBegin =
        std::string("Could not read the registry file \"") + ExportPath + "\": line ";
    Check(std::string_view(error.what()).starts_with(sBegin), "the error names file and line");
    return {nullptr, error.what()};
  }
}

// As the registry editor writes it, or with the high bytes first.
std::string Utf16Of(const std::string& sText, bool bHighByteFirst) {
  std::string sBytes = "\xFF\xFE" + EncodeUtf16Data(sText);
  if (bHighByteFirst)
    for (std::size_t i = 0; i < sBytes.size(); i += 2) std::swap(sBytes[i], sBytes[i + 1]);
  return sBytes;
}

const RegistryNode* LogOf(const RegistryNode& tree, bool b32Bits) {
  const RegistryNode* key = &tree;
  for (const char* pName :
       {"HKEY_LOCAL_MACHINE", "SOFTWARE", "WOW6432Node", "Korvanta", "InstallLog"}) {
    if (!b32Bits && std::string_view(pName) == "WOW6432Node") continue;
    if (key != nullptr) key = key->FindKey(pName);
  }
  return key;
}

std::string Recorded(const RegistryNode& log, const std::string& sName) {
  const RegistryValue* value = log.FindValue(sName);
  if (value == nullptr || value->sData.size() > 255) return "";
  return value->sData.substr(0, value->sData.size() - (value->sData.ends_with('\0') ? 1 : 0));
}

std::string RevisionOf(const RegistryNode& log, const std::string& sCode) {
  std::string sText = Recorded(log, sCode);
  while (sText.ends_with(' ')) sText.pop_back();
  return sText.substr(std::min(sText.find_first_not_of(' '), sText.size()));
}

ProductState ExpectedState(const std::string& sRevision) {
  if (sRevision.empty()) return ProductState::NotInstalled;
  if (sRevision == "2.0") return ProductState::Installed;
  return sRevision < "2.0" ? ProductState::Older : ProductState::Newer;
}

bool IsPrerequisiteMet(const RegistryNode* log) {
  return log != nullptr && RevisionOf(*log, "P") >= "2.0" && !Recorded(*log, "PCheckFile").empty();
}

void CheckProduct(const std::string& sCode, const ProductStatus& product, const RegistryNode* log) {
  const bool bRecorded = log != nullptr && !sCode.empty();
  const std::string sRevision = bRecorded ? RevisionOf(*log, sCode) : "";
  Check(product.state == ExpectedState(sRevision), "a product stands as its revision says");
  Check(product.installed.value_or("") == sRevision, "the revision is the recorded one");
  const bool bFile = bRecorded && !Recorded(*log, sCode + "CheckFile").empty();
  Check(product.checkFile == (bFile ? CheckFile::Present : CheckFile::NotRecorded),
        "nobody looks for the check file of another computer");
  Check(product.unmet.empty() == (sCode != "Q" || IsPrerequisiteMet(log)),
        "a prerequisite is met or not");
}

void CheckView(FakePlatform& platform, MemoryRegistry& exported, bool b32Bits) {
  SuiteStatus& suite = TheSuite(platform);
  ReadOnlyRegistry registry(exported, b32Bits);
  QuietSystem quiet(platform.system, true);
  const PlatformScope scope({&registry, &platform.libraries, &quiet});
  const Workstation workstation = suite.LookAt("PC");
  Check(workstation.products.size() == Codes.size(), "every product is there");
  for (std::size_t i = 0; i < Codes.size(); ++i)
    CheckProduct(Codes[i], workstation.products[i], LogOf(exported.Tree(), b32Bits));
}

}  // namespace

void Try(std::string_view sInput) {
  FakePlatform& platform = CleanPlatform();
  Export read = Read(platform, std::string(sInput));
  if (const std::string sText = FromUtf8(sInput); ToUtf8(sText) == sInput)
    CheckEqual(read.sText, Read(platform, Utf16Of(sText, sInput.size() % 2 == 0)).sText,
               "it does not count how the file is encoded");
  if (!read.tree) return;
  static MemoryRegistry exported;
  exported.ReplaceTree(std::move(read.tree));
  for (const bool b32Bits : {false, true}) CheckView(platform, exported, b32Bits);
  Check(exported.OpenHandles() == 0, "the registry's keys are closed");
  CheckEqual(read.sText, WriteRegistryText(exported.Tree()), "looking changes nothing");
}

}  // namespace trelin
