#include "suite/dependency.h"

#include "seam/platform.h"
#include "suite/installation_record.h"
#include "suite/setup_list_error.h"

namespace trelin {

void Dependency::Initialize() {
  sProductCode_.clear();
  sRevision_.clear();
  sTitle_.clear();
}

void Dependency::LoadFromFile(BlockParser& objParser) {
  for (;;) {
    const std::int16_t nToken = objParser.GetToken();
    if (nToken == BlockParser::TokenKeyValue())
      ProcessKeyValue(objParser.Key(), objParser.Value());
    else if (nToken == BlockParser::TokenStartBlock())
      throw SetupListError(TextNumber::BlockInDependency, objParser.CurrentLine(),
                           objParser.BlockType());
    else
      return;  // the end of the block or of the file
  }
}

void Dependency::ProcessKeyValue(std::string_view sKey, std::string_view sValue) {
  if (sKey == "PRODUCTCODE")
    sProductCode_ = std::string(sValue);
  else if (sKey == "REVISION")
    sRevision_ = std::string(sValue);
  else if (sKey == "TITLE")
    sTitle_ = std::string(sValue);
  else
    TheSystem().Beep();
}

bool Dependency::CheckDependency() {
  const auto record = ReadInstallationRecord(sProductCode_, sRevision_);
  if (!record) {
    sLastError_ = FormatResourceString(TextNumber::NoLog, sTitle_);
    return false;
  }

  bool bMet = true;
  const auto fail = [&](const std::string& sReason) {
    sLastError_ = sReason;
    bMet = false;
  };
  if (record->revision == InstalledRevision::None)
    fail(FormatResourceString(TextNumber::NoRevision, sTitle_));
  else if (record->revision == InstalledRevision::Lower)
    fail(FormatResourceString(TextNumber::RevisionTooLow, sRevision_, sTitle_, record->sRevision));

  // A fault of the check file replaces that of the revision.
  if (record->checkFile == CheckFile::NotRecorded)
    fail(FormatResourceString(TextNumber::NoCheckFile, sTitle_));
  else if (record->checkFile == CheckFile::Missing)
    fail(FormatResourceString(TextNumber::CheckFileMissing, sTitle_));
  return bMet;
}

}  // namespace trelin
