#include "suite/dependency.h"

#include "seam/platform.h"
#include "suite/setup_list_error.h"

namespace trelin {

constexpr std::array<BlockKey<Dependency>, 3> Dependency::Keys = {{
    {"PRODUCTCODE", &Dependency::sProductCode_},
    {"REVISION", &Dependency::sRevision_},
    {"TITLE", &Dependency::sTitle_},
}};

void Dependency::Initialize() {
  for (const auto& key : Keys) (this->*key.pMember).clear();
}

void Dependency::LoadFromFile(BlockParser& objParser) {
  ReadBlock(
      objParser,
      [this](std::string_view sKey, std::string_view sValue) { ProcessKeyValue(sKey, sValue); },
      [&] {
        throw SetupListError(TextNumber::BlockInDependency, objParser.CurrentLine(),
                             objParser.BlockType());
      });
}

void Dependency::ProcessKeyValue(std::string_view sKey, std::string_view sValue) {
  if (!SetByKey(*this, Keys, sKey, sValue)) TheSystem().Beep();
}

bool Dependency::CheckDependency() {
  record_ = ReadInstallationRecord(sProductCode_, sRevision_);
  if (!record_) {
    sLastError_ = FormatResourceString(TextNumber::NoLog, sTitle_);
    return false;
  }

  bool bMet = true;
  const auto fail = [&](const std::string& sReason) {
    sLastError_ = sReason;
    bMet = false;
  };
  if (record_->revision == InstalledRevision::None)
    fail(FormatResourceString(TextNumber::NoRevision, sTitle_));
  else if (record_->revision == InstalledRevision::Lower)
    fail(FormatResourceString(TextNumber::RevisionTooLow, sRevision_, sTitle_, record_->sRevision));

  // A fault of the check file replaces that of the revision.
  if (record_->checkFile == CheckFile::NotRecorded)
    fail(FormatResourceString(TextNumber::NoCheckFile, sTitle_));
  else if (record_->checkFile == CheckFile::Missing)
    fail(FormatResourceString(TextNumber::CheckFileMissing, sTitle_));
  return bMet;
}

}  // namespace trelin
