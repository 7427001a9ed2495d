// For a reader at a terminal, a line for each product and workstation:
//
//   Product             Code     Offered  Installed  State
//   Inspection Station  INSPECT  2.1      2.0        An older revision is installed
//
// Of exports the workstation stands in front, and a summary behind all.

#include <algorithm>
#include <array>

#include "seam/console.h"
#include "status/reports.h"
#include "suite/menu_item.h"
#include "texts/string_resources.h"
#include "texts/text.h"

namespace trelin {

namespace {

using Row = std::vector<std::string>;

Row RowOf(const StatusReport& report, const Workstation& workstation, std::size_t nProduct) {
  const OfferedProduct& product = report.products[nProduct];
  const ProductStatus& status = workstation.products[nProduct];
  Row row = {product.sTitle, product.sCode, product.sRevision, status.installed.value_or("-"),
             WordsFor(status, report.bExports)};
  for (const UnmetPrerequisite& unmet : status.unmet)
    row.back() += (&unmet == &status.unmet.front() ? ". " : " ") + unmet.sReason;
  if (report.bExports) row.insert(row.begin(), workstation.sName);
  return row;
}

// Calls it for the head and each row, shown in characters of a terminal.
template <class Use>
void ForEachRow(const StatusReport& report, Use use) {
  Row head = {"Product", "Code", "Offered", "Installed", "State"};
  if (report.bExports) head.insert(head.begin(), "Workstation");
  use(head);
  for (const Workstation& workstation : report.workstations) {
    for (std::size_t n = 0; n < report.products.size(); ++n) {
      Row row = RowOf(report, workstation, n);
      std::transform(row.begin(), row.end(), row.begin(), WithoutControls);
      use(row);
    }
  }
}

// Columns two spaces apart; the last one is not filled up.
std::string InColumns(const Row& row, const std::vector<std::size_t>& widths) {
  std::string sLine;
  for (std::size_t n = 0; n + 1 < row.size(); ++n)
    sLine += row[n] + std::string(widths[n] + 2 - row[n].size(), ' ');
  return sLine + row.back() + "\n";
}

// How many workstations have the product in which state, and which need it.
std::string SummaryOf(const StatusReport& report, std::size_t nProduct) {
  std::string sCounts, sNeedIt;
  for (const auto& [state, pName, pSign] : ReportedStates)
    if (const std::size_t nCount = CountOf(report, nProduct, state); nCount > 0)
      sCounts += (sCounts.empty() ? "" : ", ") + std::to_string(nCount) + " x " +
                 LoadResourceString(StatusText(state));
  for (const Workstation& workstation : report.workstations)
    if (IsNeeded(report.products[nProduct], workstation.products[nProduct]))
      sNeedIt += (sNeedIt.empty() ? "" : ", ") + workstation.sName;
  const OfferedProduct& product = report.products[nProduct];
  return product.sTitle + " " + product.sRevision + ": " + sCounts +
         (sNeedIt.empty() ? "" : "; needed by " + sNeedIt) + "\n";
}

std::string Summary(const StatusReport& report) {
  std::string sSummary = "\n" + Counted(report.workstations.size(), "workstation");
  if (!report.failures.empty())
    sSummary += ", " + Counted(report.failures.size(), "export") + " not readable";
  sSummary += "\n";
  for (std::size_t n = 0; n < report.products.size() && !report.workstations.empty(); ++n)
    sSummary += SummaryOf(report, n);
  return sSummary;
}

}  // namespace

void WriteStatusText(const StatusReport& report, const Output& write) {
  std::vector<std::size_t> widths;
  ForEachRow(report, [&widths](const Row& row) {
    widths.resize(row.size());
    for (std::size_t n = 0; n < row.size(); ++n) widths[n] = std::max(widths[n], row[n].size());
  });
  ForEachRow(report, [&](const Row& row) { write(Utf8Of(InColumns(row, widths))); });
  if (report.bExports) write(Utf8Of(Summary(report)));
}

}  // namespace trelin
