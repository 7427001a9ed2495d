#pragma once

#include <optional>
#include <string>
#include <vector>

#include "suite/installation_record.h"

// What is known of workstations. Texts are in the ANSI code page.
namespace trelin {

struct OfferedProduct {
  std::string sCode;
  std::string sTitle;
  std::string sRevision;
};

// A prerequisite of a product that a workstation does not meet.
struct UnmetPrerequisite {
  std::string sCode;
  std::string sTitle;
  std::string sRequired;                 // revision
  std::optional<std::string> installed;  // revision; nothing when none is recorded
  std::string sReason;                   // a sentence of the string library
};

struct ProductStatus {
  ProductState state = ProductState::NotInstalled;
  std::optional<std::string> installed;          // revision; nothing when none is recorded
  CheckFile checkFile = CheckFile::NotRecorded;  // present, where nobody could look
  std::vector<UnmetPrerequisite> unmet;
};

struct Workstation {
  std::string sName;
  std::vector<ProductStatus> products;  // as many as are offered
};

// Whether a workstation needs the product that is offered: it is missing, older or
// incomplete. What has no code leaves no record, so that nobody knows.
inline bool IsNeeded(const OfferedProduct& product, const ProductStatus& status) {
  return !product.sCode.empty() && status.state != ProductState::Installed &&
         status.state != ProductState::Newer;
}

}  // namespace trelin
