#include "status/reports.h"

#include <algorithm>

#include "suite/menu_item.h"
#include "texts/string_resources.h"

namespace trelin {

const char* NameOf(ProductState state) {
  switch (state) {
    case ProductState::Installed:
      return "installed";
    case ProductState::Older:
      return "older";
    case ProductState::Newer:
      return "newer";
    case ProductState::Incomplete:
      return "incomplete";
    case ProductState::NotInstalled:
      break;
  }
  return "not-installed";
}

std::string WordsFor(const ProductStatus& status, bool bExport) {
  const bool bNotLookedAt = bExport && status.checkFile != CheckFile::NotRecorded;
  return LoadResourceString(StatusText(status.state)) +
         (bNotLookedAt ? " (recorded, file not looked at)" : "");
}

std::size_t CountOf(const StatusReport& report, std::size_t nProduct, ProductState state) {
  return static_cast<std::size_t>(
      std::count_if(report.workstations.begin(), report.workstations.end(),
                    [&](const Workstation& one) { return one.products[nProduct].state == state; }));
}

}  // namespace trelin
