#include "status/reports.h"

#include <algorithm>

#include "suite/menu_item.h"
#include "texts/string_resources.h"

namespace trelin {

const ReportedState& Reported(ProductState state) {
  return *std::find_if(ReportedStates.begin(), ReportedStates.end(),
                       [state](const ReportedState& one) { return one.state == state; });
}

std::string WordsFor(const ProductStatus& status, bool bExport) {
  const bool bNotLookedAt = bExport && status.checkFile != CheckFile::NotRecorded;
  return LoadResourceString(StatusText(status.state)) +
         (bNotLookedAt ? " (recorded, file not looked at)" : "");
}

bool IsFileChecked(const ProductStatus& status, bool bExport) {
  return !bExport && status.checkFile != CheckFile::NotRecorded;
}

std::size_t CountOf(const StatusReport& report, std::size_t nProduct, ProductState state) {
  return static_cast<std::size_t>(
      std::count_if(report.workstations.begin(), report.workstations.end(),
                    [&](const Workstation& one) { return one.products[nProduct].state == state; }));
}

}  // namespace trelin
