#pragma once

#include <optional>
#include <string>

namespace trelin {

// How the installed revision stands to a given one. Revisions are texts and
// compare character by character, by code: 10 is lower than 9, 2.10 lower
// than 2.9, 2.1 lower than 2.1a.
enum class InstalledRevision { None, Equal, Lower, Higher };

// The key of the log below that of the suite, and what follows a product code in the
// name of the value for its check file.
constexpr const char* InstallationLog = "InstallLog";
constexpr const char* CheckFileSuffix = "CheckFile";

enum class CheckFile { NotRecorded, Missing, Present };

// What the installation log (HKEY_LOCAL_MACHINE\SOFTWARE\Korvanta\InstallLog)
// tells about one product: the value named by the product code holds the
// installed revision, the one named by the code followed by "CheckFile" the
// path of a file that must be there.
struct InstallationRecord {
  std::string sRevision;  // trimmed
  InstalledRevision revision = InstalledRevision::None;
  CheckFile checkFile = CheckFile::NotRecorded;
};

// How a product stands for the user, by its record.
enum class ProductState { NotInstalled, Installed, Older, Newer, Incomplete };
ProductState StateOf(const std::optional<InstallationRecord>& record);

// Reads the record of sProductCode (empty: the unnamed value) afresh and
// compares its revision with sRevision. Nothing when there is no log, or none
// that may be read and written. Throws error 5001 when the log vanishes
// while it is being read.
std::optional<InstallationRecord> ReadInstallationRecord(const std::string& sProductCode,
                                                         const std::string& sRevision);

}  // namespace trelin
