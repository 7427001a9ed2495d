#include "suite/menu_item.h"

#include "seam/platform.h"
#include "suite/setup_list_error.h"

namespace trelin {

TextNumber StatusText(ProductState state) {
  switch (state) {
    case ProductState::Incomplete:
      return TextNumber::Incomplete;
    case ProductState::Installed:
      return TextNumber::Installed;
    case ProductState::Older:
      return TextNumber::OlderInstalled;
    case ProductState::Newer:
      return TextNumber::NewerInstalled;
    case ProductState::NotInstalled:
      break;
  }
  return TextNumber::NotInstalled;
}

constexpr std::array<BlockKey<MenuItem>, 8> MenuItem::Keys = {{
    {"PRODUCT", &MenuItem::sTitle_},
    {"PRODUCTCODE", &MenuItem::sProductCode_},
    {"REVISION", &MenuItem::sRevision_},
    {"DESCRIPTION", &MenuItem::sDescription_},
    {"IMAGE", &MenuItem::sImageFile_},
    {"UNINSTALLNAME", &MenuItem::sUninstallName_},
    {"INSTALLFILE", &MenuItem::sInstallFile_},
    {"READMEFILE", &MenuItem::sReadMeFile_},
}};

void MenuItem::Initialize() {
  objDependencies_ = DependencyCollection();
  objDependencies_.Initialize();
  for (const auto& key : Keys) (this->*key.pMember).clear();
  sStatus_ = LoadResourceString(TextNumber::NotInstalled);
  bNewerVersion_ = false;
  bUpdated_ = false;
  record_.reset();
}

void MenuItem::Terminate() { objDependencies_.Terminate(); }

void MenuItem::LoadFromFile(BlockParser& objParser) {
  ReadBlock(
      objParser,
      [this](std::string_view sKey, std::string_view sValue) { ProcessKeyValue(sKey, sValue); },
      [&] {
        ExpectBlockType(objParser, "DEPENDENCY");
        objDependencies_.AddFromFile(objParser);
      });
}

void MenuItem::ProcessKeyValue(std::string_view sKey, std::string_view sValue) {
  if (!SetByKey(*this, Keys, sKey, sValue)) TheSystem().Beep();
}

void MenuItem::CheckInstallation() {
  std::optional<InstallationRecord> record;
  if (!sProductCode_.empty()) record = ReadInstallationRecord(sProductCode_, sRevision_);

  std::string sStatus = LoadResourceString(StatusText(StateOf(record)));
  if (record && record->revision == InstalledRevision::Higher) bNewerVersion_ = true;
  bUpdated_ = sStatus != sStatus_;
  sStatus_ = std::move(sStatus);
  record_ = std::move(record);
}

bool MenuItem::CheckDependencies() {
  for (std::int32_t i = 1; i <= objDependencies_.Count(); ++i)
    if (!objDependencies_.Item(i)->CheckDependency()) return false;
  return true;
}

}  // namespace trelin
