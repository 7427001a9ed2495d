#include "suite/dependency.h"

#include "seam/platform.h"
#include "suite/setup_list_error.h"

namespace trelin {

void Dependency::Initialize() { values_.Clear(); }

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
  if (!values_.Set(sKey, sValue)) TheSystem().Beep();
}

bool Dependency::CheckDependency() {
  const std::optional<InstallationRecord> record = Record();
  if (!record) {
    sLastError_ = FormatResourceString(TextNumber::NoLog, Title());
    return false;
  }

  bool bMet = true;
  const auto fail = [&](const std::string& sReason) {
    sLastError_ = sReason;
    bMet = false;
  };
  if (record->revision == InstalledRevision::None)
    fail(FormatResourceString(TextNumber::NoRevision, Title()));
  else if (record->revision == InstalledRevision::Lower)
    fail(FormatResourceString(TextNumber::RevisionTooLow, Revision(), Title(), record->sRevision));

  // A fault of the check file replaces that of the revision.
  if (record->checkFile == CheckFile::NotRecorded)
    fail(FormatResourceString(TextNumber::NoCheckFile, Title()));
  else if (record->checkFile == CheckFile::Missing)
    fail(FormatResourceString(TextNumber::CheckFileMissing, Title()));
  return bMet;
}

}  // namespace trelin
