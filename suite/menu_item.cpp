#include "suite/menu_item.h"

#include <optional>

#include "seam/platform.h"
#include "suite/installation_record.h"
#include "suite/setup_list_error.h"

namespace trelin {

namespace {

TextNumber StatusText(const std::optional<InstallationRecord>& record) {
  if (!record) return TextNumber::NotInstalled;
  if (record->checkFile == CheckFile::Missing) return TextNumber::Incomplete;
  switch (record->revision) {
    case InstalledRevision::Equal:
      return TextNumber::Installed;
    case InstalledRevision::Lower:
      return TextNumber::OlderInstalled;
    case InstalledRevision::Higher:
      return TextNumber::NewerInstalled;
    case InstalledRevision::None:
      break;
  }
  return TextNumber::NotInstalled;
}

}  // namespace

void MenuItem::Initialize() {
  objDependencies_ = DependencyCollection();
  objDependencies_.Initialize();
  for (std::string* sField : {&sTitle_, &sImageFile_, &sReadMeFile_, &sInstallFile_, &sDescription_,
                              &sUninstallName_, &sProductCode_, &sRevision_})
    sField->clear();
  sStatus_ = LoadResourceString(TextNumber::NotInstalled);
  bNewerVersion_ = false;
  bUpdated_ = false;
}

void MenuItem::Terminate() { objDependencies_.Terminate(); }

void MenuItem::LoadFromFile(BlockParser& objParser) {
  for (;;) {
    const std::int16_t nToken = objParser.GetToken();
    if (nToken == BlockParser::TokenKeyValue()) {
      ProcessKeyValue(objParser.Key(), objParser.Value());
    } else if (nToken == BlockParser::TokenStartBlock()) {
      ExpectBlockType(objParser, "DEPENDENCY");
      objDependencies_.AddFromFile(objParser);
    } else {
      return;  // the end of the block or of the file
    }
  }
}

void MenuItem::ProcessKeyValue(std::string_view sKey, std::string_view sValue) {
  if (sKey == "PRODUCT")
    sTitle_ = std::string(sValue);
  else if (sKey == "PRODUCTCODE")
    sProductCode_ = std::string(sValue);
  else if (sKey == "REVISION")
    sRevision_ = std::string(sValue);
  else if (sKey == "DESCRIPTION")
    sDescription_ = std::string(sValue);
  else if (sKey == "IMAGE")
    sImageFile_ = std::string(sValue);
  else if (sKey == "UNINSTALLNAME")
    sUninstallName_ = std::string(sValue);
  else if (sKey == "INSTALLFILE")
    sInstallFile_ = std::string(sValue);
  else if (sKey == "READMEFILE")
    sReadMeFile_ = std::string(sValue);
  else
    TheSystem().Beep();
}

void MenuItem::CheckInstallation() {
  std::optional<InstallationRecord> record;
  if (!sProductCode_.empty()) record = ReadInstallationRecord(sProductCode_, sRevision_);

  std::string sStatus = LoadResourceString(StatusText(record));
  if (record && record->revision == InstalledRevision::Higher) bNewerVersion_ = true;
  bUpdated_ = sStatus != sStatus_;
  sStatus_ = std::move(sStatus);
}

bool MenuItem::CheckDependencies() {
  for (std::int32_t i = 1; i <= objDependencies_.Count(); ++i)
    if (!objDependencies_.Item(i)->CheckDependency()) return false;
  return true;
}

}  // namespace trelin
