#include "status/suite_status.h"

#include <algorithm>

#include "shared/arguments.h"
#include "texts/text.h"

namespace trelin {

namespace {

std::optional<std::string> RevisionIn(const std::optional<InstallationRecord>& record) {
  if (!record || record->sRevision.empty()) return std::nullopt;
  return record->sRevision;
}

// The first paragraph: what is wrong. The others tell the user of the menu what to do.
std::string FirstParagraph(const std::string& sText) {
  std::string sFirst = sText.substr(0, sText.find("\n\n"));
  std::replace(sFirst.begin(), sFirst.end(), '\n', ' ');
  return sFirst;
}

std::vector<UnmetPrerequisite> UnmetOf(const MenuItem& item) {
  std::vector<UnmetPrerequisite> unmet;
  for (std::int32_t l = 1; l <= item.Prerequisites().Count(); ++l) {
    Dependency& prerequisite = *item.Prerequisites().Item(l);
    if (prerequisite.CheckDependency()) continue;
    unmet.push_back({prerequisite.ProductCode(), prerequisite.Title(), prerequisite.Revision(),
                     RevisionIn(prerequisite.Record()), FirstParagraph(prerequisite.LastError())});
  }
  return unmet;
}

}  // namespace

SuiteStatus::SuiteStatus(const std::string& sFile, const std::string& sCode) {
  list_.Initialize();
  list_.LoadFromFile(sFile);
  for (std::int32_t l = 1; l <= list_.MenuItems().Count(); ++l) {
    const auto item = list_.MenuItems().Item(l);
    if (!sCode.empty() && UpperCase(item->ProductCode()) != UpperCase(sCode)) continue;
    numbers_.push_back(l);
    products_.push_back({item->ProductCode(), item->Title(), item->Revision()});
  }
  if (products_.empty() && !sCode.empty())
    throw UsageError("The setup list has no product code \"" + sCode + "\".");
}

Workstation SuiteStatus::LookAt(const std::string& sName) {
  Workstation workstation = {sName, {}};
  workstation.products.reserve(numbers_.size());
  for (const std::int32_t lNumber : numbers_) {
    const MenuItem& item = *list_.MenuItems().Item(lNumber);
    const std::optional<InstallationRecord> record = item.Record();
    workstation.products.push_back({StateOf(record), RevisionIn(record),
                                    record ? record->checkFile : CheckFile::NotRecorded,
                                    UnmetOf(item)});
  }
  return workstation;
}

}  // namespace trelin
