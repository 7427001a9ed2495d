#include "check/records.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>

#include "shared/registry_file.h"
#include "shared/registry_key.h"
#include "suite/installation_record.h"
#include "texts/text.h"

namespace trelin {

namespace {

constexpr std::array States = {"not-installed", "installed", "older", "newer", "damaged"};

// Revisions are compared as texts: what begins with the first character that can be
// seen comes before all others, and what goes on comes behind.
std::string RecordedRevision(const std::string& sOffered, const std::string& sState) {
  if (sState == "older") return "!" + sOffered;
  return sState == "newer" ? sOffered + "+" : sOffered;
}

// The revision that the list has for a code: that of the product, or else of a
// prerequisite.
std::string RevisionOf(const CheckedList& list, const std::string& sCode) {
  for (const BlockKind kind : {BlockKind::Application, BlockKind::Dependency})
    for (const ListBlock& block : list.blocks)
      if (block.kind == kind && block.sCode == UpperCase(sCode))
        return std::string(block.Value("REVISION"));
  throw std::invalid_argument("The setup list has no product code \"" + sCode + "\".");
}

void SetText(RegistryNode& key, const std::string& sName, const std::string& sText) {
  key.SetValue(sName, RegistryTypeText, sText);
}

RegistryNode& InstallationLogOf(RegistryNode& tree) {
  RegistryNode* pKey = tree.FindKey("HKEY_LOCAL_MACHINE");
  std::string_view sPath = SuiteRoot;
  while (!sPath.empty()) {
    const std::string_view sName = sPath.substr(0, sPath.find('\\'));
    pKey = &pKey->AddKey(sName);
    sPath.remove_prefix(std::min(sName.size() + 1, sPath.size()));
  }
  return pKey->AddKey(InstallationLog);
}

}  // namespace

bool IsWantedState(const std::string& sState) {
  return std::find(States.begin(), States.end(), sState) != States.end();
}

std::string RecordsOf(const CheckedList& list, const std::vector<WantedState>& states) {
  const auto tree = RegistryNode::NewTree();
  RegistryNode& log = InstallationLogOf(*tree);
  for (const auto& [sCode, sState] : states) {
    const std::string sRevision = RevisionOf(list, sCode);
    if (sState == "not-installed") continue;
    SetText(log, sCode, RecordedRevision(sRevision, sState));
    if (sState == "damaged") SetText(log, sCode + CheckFileSuffix, "a file that is missing");
  }
  return WriteRegistryText(*tree);
}

}  // namespace trelin
