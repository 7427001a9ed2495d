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

void MenuItem::Initialize() {
  constexpr std::size_t UsualBytes = 240;  // of a product's values
  objDependencies_ = DependencyCollection();
  objDependencies_.Initialize();
  values_.Clear();
  values_.Reserve(UsualBytes);
  sStatus_ = LoadResourceString(TextNumber::NotInstalled);
  bNewerVersion_ = false;
  bUpdated_ = false;
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
  values_.ShrinkToFit();
}

void MenuItem::ProcessKeyValue(std::string_view sKey, std::string_view sValue) {
  if (!values_.Set(sKey, sValue)) TheSystem().Beep();
}

std::optional<InstallationRecord> MenuItem::Record() const {
  const std::string sCode = ProductCode();
  if (sCode.empty()) return std::nullopt;
  return ReadInstallationRecord(sCode, Revision());
}

void MenuItem::CheckInstallation() {
  const std::optional<InstallationRecord> record = Record();
  std::string sStatus = LoadResourceString(StatusText(StateOf(record)));
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
