#include "suite/setup_list.h"

#include "seam/platform.h"
#include "suite/setup_list_error.h"

namespace trelin {

bool SetupList::Initialize() {
  MenuItems_ = std::make_unique<MenuItemCollection>();
  MenuItems_->Initialize();
  sTitle_.clear();
  nTopIndex_ = 0;
  nCurrentIndex_ = 0;
  nDisplayItems_ = 4;
  return true;
}

void SetupList::Terminate() noexcept {
  if (MenuItems_) MenuItems_->Terminate();
  MenuItems_.reset();
}

void SetupList::LoadFromFile(const std::string& sFile) {
  {
    BlockParser objParser;
    objParser.OpenFile(sFile, false);
    if (objParser.GetToken() != BlockParser::TokenStartBlock())
      throw SetupListError(TextNumber::NoBeginning, objParser.CurrentLine());
    ExpectBlockType(objParser, "SETUPLIST");
    ReadSetupList(objParser);
    if (objParser.GetToken() != BlockParser::TokenEndFile())
      throw SetupListError(TextNumber::AfterTheEnd, objParser.CurrentLine());
  }
  CheckInstallations();
}

void SetupList::ReadSetupList(BlockParser& objParser) {
  for (;;) {
    const std::int16_t nToken = objParser.GetToken();
    if (nToken == BlockParser::TokenKeyValue())
      ProcessKeyValue(objParser.Key(), objParser.Value());
    else if (nToken == BlockParser::TokenStartBlock())
      ReadApplication(objParser);
    else
      return;  // the end of the block or of the file
  }
}

void SetupList::ReadApplication(BlockParser& objParser) {
  ExpectBlockType(objParser, "APPLICATION");
  MenuItems_->AddFromFile(objParser);
}

void SetupList::ProcessKeyValue(std::string_view sKey, std::string_view sValue) {
  if (sKey == "TITLE")
    sTitle_ = std::string(sValue);
  else
    TheSystem().ShowMessage(FormatResourceString(TextNumber::UnknownKey,
                                                 LoadResourceString(TextNumber::MenuCaption), sKey),
                            MessageIcon::None, MessageButtons::Ok,
                            LoadResourceString(TextNumber::SetupListTitle));
}

void SetupList::CheckInstallations() {
  for (std::int32_t i = 1; i <= MenuItems_->Count(); ++i) MenuItems_->Item(i)->CheckInstallation();
}

bool SetupList::CheckDependencies() {
  for (std::int32_t i = 1; i <= MenuItems_->Count(); ++i)
    if (!MenuItems_->Item(i)->CheckDependencies()) return false;
  return true;
}

std::string SetupList::LastError() {
  std::string sError = MenuItems_->LastError();
  MenuItems_->ClearError();
  return sError;
}

}  // namespace trelin
