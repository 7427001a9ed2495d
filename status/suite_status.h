#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "status/workstation.h"
#include "suite/setup_list.h"

namespace trelin {

// The products of a suite, as the launcher reads and judges them.
class SuiteStatus {
 public:
  // Of the setup list sFile the product sCode, or all when it is empty. Throws what
  // SetupList::LoadFromFile throws, and UsageError for a code that the list lacks.
  SuiteStatus(const std::string& sFile, const std::string& sCode);
  ~SuiteStatus() { list_.Terminate(); }
  SuiteStatus(const SuiteStatus&) = delete;
  SuiteStatus& operator=(const SuiteStatus&) = delete;

  const std::vector<OfferedProduct>& Products() const { return products_; }

  // How the products stand by the registry and the system in use.
  Workstation LookAt(const std::string& sName);

 private:
  SetupList list_;
  std::vector<std::int32_t> numbers_;  // of the products in the list, from 1
  std::vector<OfferedProduct> products_;
};

}  // namespace trelin
