#include "suite/installation_record.h"

#include "suite/reg_entry.h"
#include "texts/paths.h"
#include "texts/text.h"

namespace trelin {

namespace {

InstalledRevision CompareRevision(const std::string& sInstalled, const std::string& sGiven) {
  if (sInstalled.empty()) return InstalledRevision::None;
  const int nOrder = sInstalled.compare(sGiven);  // by unsigned character codes
  if (nOrder == 0) return InstalledRevision::Equal;
  return nOrder < 0 ? InstalledRevision::Lower : InstalledRevision::Higher;
}

CheckFile TestCheckFile(const std::string& sPath) {
  if (sPath.empty()) return CheckFile::NotRecorded;
  return FileExists(sPath) ? CheckFile::Present : CheckFile::Missing;
}

}  // namespace

ProductState StateOf(const std::optional<InstallationRecord>& record) {
  if (!record) return ProductState::NotInstalled;
  if (record->checkFile == CheckFile::Missing) return ProductState::Incomplete;
  switch (record->revision) {
    case InstalledRevision::Equal:
      return ProductState::Installed;
    case InstalledRevision::Lower:
      return ProductState::Older;
    case InstalledRevision::Higher:
      return ProductState::Newer;
    case InstalledRevision::None:
      break;
  }
  return ProductState::NotInstalled;
}

std::optional<InstallationRecord> ReadInstallationRecord(const std::string& sProductCode,
                                                         const std::string& sRevision) {
  RegEntry objReg;
  if (!objReg.TestKey(InstallationLog)) return std::nullopt;
  objReg.OpenKey(InstallationLog);

  InstallationRecord record;
  record.sRevision = TrimSpaces(objReg.GetString(sProductCode));
  record.revision = CompareRevision(record.sRevision, sRevision);
  record.checkFile = TestCheckFile(objReg.GetString(sProductCode + CheckFileSuffix));
  return record;
}

}  // namespace trelin
