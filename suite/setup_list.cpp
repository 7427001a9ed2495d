#include "suite/setup_list.h"

#include "seam/platform.h"
#include "suite/setup_list_error.h"

namespace trelin {

bool SetupList::Initialize() {
  MenuItems_ = std::make_unique<MenuItemCollection>();
  MenuItems_->Initialize();
  values_.Clear();
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
    ReadBlock(
        objParser,
        [this](std::string_view sKey, std::string_view sValue) { ProcessKeyValue(sKey, sValue); },
        [&] {
          ExpectBlockType(objParser, "APPLICATION");
          MenuItems_->AddFromFile(objParser);
        });
    if (objParser.GetToken() != BlockParser::TokenEndFile())
      throw SetupListError(TextNumber::AfterTheEnd, objParser.CurrentLine());
  }
  CheckInstallations();
}

void SetupList::ProcessKeyValue(std::string_view sKey, std::string_view sValue) {
  if (!values_.Set(sKey, sValue))
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
