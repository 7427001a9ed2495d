// By RFC 4180: a line for each workstation and product, with a head; lines end with CR LF,
// and a text with a comma, a quotation mark or a line break stands in quotation marks.

#include "seam/console.h"
#include "status/reports.h"

namespace trelin {

namespace {

// A spreadsheet takes a text for a formula by its first character; with an apostrophe in
// front it stays a text, as whoever made an export may have written anything.
std::string Cell(const std::string& sText) {
  const bool bFormula = sText.find_first_of("=+-@\t\r") == 0;
  std::string sCell = bFormula ? "'" + sText : sText;
  if (sCell.find_first_of(",\"\r\n") == std::string::npos) return sCell;
  for (std::size_t n = 0; (n = sCell.find('"', n)) != std::string::npos; n += 2)
    sCell.insert(n, 1, '"');
  return '"' + sCell + '"';
}

std::string Line(const std::vector<std::string>& cells) {
  std::string sLine;
  for (const std::string& sCell : cells) sLine += (sLine.empty() ? "" : ",") + Cell(sCell);
  return sLine + "\r\n";
}

}  // namespace

void WriteStatusCsv(const StatusReport& report, const Output& write) {
  write("machine,code,title,offered,installed,state,fileChecked,unmet\r\n");
  for (const Workstation& workstation : report.workstations) {
    for (std::size_t n = 0; n < report.products.size(); ++n) {
      const OfferedProduct& product = report.products[n];
      const ProductStatus& status = workstation.products[n];
      std::string sUnmet;
      for (const UnmetPrerequisite& unmet : status.unmet)
        sUnmet += (sUnmet.empty() ? "" : " ") + unmet.sReason;
      write(Utf8Of(Line({workstation.sName, product.sCode, product.sTitle, product.sRevision,
                         status.installed.value_or(""), Reported(status.state).pName,
                         IsFileChecked(status, report.bExports) ? "true" : "false", sUnmet})));
    }
  }
}

}  // namespace trelin
