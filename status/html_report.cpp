// A page that needs nothing beside it, to look at, to print and to keep: workstations
// against products, with totals above. Whatever comes from exports is escaped.

#include <algorithm>

#include "seam/console.h"
#include "shared/version.h"
#include "status/reports.h"
#include "suite/menu_item.h"
#include "texts/string_resources.h"

namespace trelin {

namespace {

constexpr const char* Style = R"(
body { font: 10pt/1.4 sans-serif; margin: 2em; color: #111; background: #fff; }
h1 { font-size: 1.5em; } h2 { font-size: 1.2em; margin-top: 1.5em; }
dl { display: grid; grid-template-columns: max-content 1fr; gap: 0 1em; }
dd { margin: 0; overflow-wrap: anywhere; }
table { border-collapse: collapse; }
caption { text-align: left; margin-bottom: .4em; }
th, td { border: 1px solid #888; padding: .25em .5em; text-align: left; vertical-align: top; }
thead th { background: #e4e4e4; position: sticky; top: 0; }
td.number { text-align: right; }
th button { font: inherit; font-weight: bold; border: 0; padding: 0; background: none; text-align: left; cursor: pointer; }
th button::after { content: " \2195"; content: " \2195" / ""; }
th[aria-sort=ascending] button::after { content: " \2191"; content: " \2191" / ""; }
th[aria-sort=descending] button::after { content: " \2193"; content: " \2193" / ""; }
.installed { background: #e2f2e2; } .newer { background: #e0ecf8; } .older { background: #fdf0cf; }
.incomplete { background: #f9dcd9; } .not-installed { background: #f0f0f0; }
p.filter label { margin-right: 2em; }
@media print {
  body { margin: 0; } p.filter { display: none; } th button::after { content: "" !important; }
  thead th { position: static; } tr { break-inside: avoid; }
  * { print-color-adjust: exact; }
}
)";

// Sorts by the columns' buttons and shows the rows that the two fields ask for.
constexpr const char* Script = R"(
const table = document.getElementById("workstations"), body = table.tBodies[0];
const name = document.getElementById("name"), state = document.getElementById("state");
const rows = [...body.rows], shown = document.getElementById("shown");
function filter() {
  const part = name.value.toLowerCase();
  for (const row of rows)
    row.hidden = !row.cells[0].textContent.toLowerCase().includes(part) ||
      (state.value !== "" && ![...row.cells].some(cell => cell.className === state.value));
  shown.textContent = rows.filter(row => !row.hidden).length + " of " + rows.length + " shown";
}
function key(row, column) {
  const cell = row.cells[column];
  return cell.dataset.rank === undefined ? cell.textContent : cell.dataset.rank + cell.textContent;
}
function sort(head) {
  const ascending = head.getAttribute("aria-sort") !== "ascending", column = head.cellIndex;
  for (const other of table.tHead.rows[0].cells) other.setAttribute("aria-sort", "none");
  head.setAttribute("aria-sort", ascending ? "ascending" : "descending");
  const order = (a, b) => key(a, column).localeCompare(key(b, column), undefined, { numeric: true });
  rows.sort((a, b) => ascending ? order(a, b) : order(b, a));
  body.append(...rows);
}
name.addEventListener("input", filter);
state.addEventListener("input", filter);
for (const head of table.tHead.rows[0].cells)
  head.querySelector("button").addEventListener("click", () => sort(head));
filter();
)";

// A text of the code page in UTF-8, of which no browser takes a part for its own.
std::string Escaped(const std::string& sText) {
  std::string sSafe;
  for (const char c : sText) {
    const bool bControl = static_cast<unsigned char>(c) < ' ' || c == '\x7F';
    if (c == '&' || c == '<' || c == '>' || c == '"' || c == '\'')
      sSafe += "&#" + std::to_string(static_cast<int>(c)) + ";";
    else
      sSafe += bControl ? ' ' : c;
  }
  return Utf8Of(sSafe);
}

std::string Element(const std::string& sTag, const std::string& sInside) {
  return "<" + sTag + ">" + sInside + "</" + sTag.substr(0, sTag.find(' ')) + ">";
}

std::string WordsOf(ProductState state) { return Escaped(LoadResourceString(StatusText(state))); }

std::string Title(const OfferedProduct& product) {
  return Escaped(product.sTitle + " " + product.sRevision);
}

// What an auditor must know to trust the page.
std::string Origin(const StatusReport& report) {
  const std::pair<const char*, std::string> lines[] = {
      {"Found out", report.sTime},
      {"Setup list", Escaped(report.sList)},
      {"Its SHA-256", report.sListDigest},
      {"By", std::string(StatusTool) + " " + Version},
      {"From", report.bExports ? "exported installation records; the files of the products were "
                                 "not looked at"
                               : "the installation records and files of this workstation"},
  };
  std::string sLines;
  for (const auto& [pName, sText] : lines)
    sLines += Element("dt", pName) + Element("dd", sText) + "\n";
  return Element("dl", sLines) + "\n";
}

std::string Totals(const StatusReport& report) {
  std::string sHead = Element("th scope=\"col\"", "Product");
  for (const auto& [state, pName, pSign] : ReportedStates)
    sHead += Element("th scope=\"col\"", WordsOf(state));
  std::string sRows;
  for (std::size_t n = 0; n < report.products.size(); ++n) {
    std::string sRow = Element("th scope=\"row\"", Title(report.products[n]));
    for (const auto& [state, pName, pSign] : ReportedStates)
      sRow += Element("td class=\"number\"", std::to_string(CountOf(report, n, state)));
    sRows += Element("tr", sRow) + "\n";
  }
  return Element("h2", "Totals") + "\n" +
         Element("table",
                 Element("caption", "How many workstations have each product in which state") +
                     Element("thead", Element("tr", sHead)) + Element("tbody", sRows)) +
         "\n";
}

std::string Cell(const ProductStatus& status, bool bExport) {
  const ReportedState& state = Reported(status.state);
  const auto rank = &state - ReportedStates.data();
  std::string sInside = std::string(state.pSign) + " " + Escaped(WordsFor(status, bExport));
  if (status.installed) sInside += ": " + Element("b", Escaped(*status.installed));
  for (const UnmetPrerequisite& unmet : status.unmet) sInside += "<br>" + Escaped(unmet.sReason);
  return Element(
      "td class=\"" + std::string(state.pName) + "\" data-rank=\"" + std::to_string(rank) + "\"",
      sInside);
}

std::string Filter() {
  std::string sStates = "<option value=\"\">any</option>";
  for (const auto& [state, pName, pSign] : ReportedStates)
    sStates += Element("option value=\"" + std::string(pName) + "\"", WordsOf(state));
  return "<p class=\"filter\"><label>Workstation <input id=\"name\" type=\"search\"></label>"
         "<label>State of a product <select id=\"state\">" +
         sStates + "</select></label> <output id=\"shown\"></output></p>\n";
}

std::string Heading(const std::string& sText) {
  return Element("th scope=\"col\" aria-sort=\"none\"", Element("button type=\"button\"", sText));
}

void WriteWorkstations(const StatusReport& report, const Output& write) {
  std::string sHead = Heading("Workstation");
  for (const OfferedProduct& product : report.products) sHead += Heading(Title(product));
  write(Element("h2", "Workstations") + "\n" + Filter() + "<table id=\"workstations\">" +
        Element("caption",
                "The state of each product on each workstation, and the revision installed") +
        Element("thead", Element("tr", sHead)) + "<tbody>\n");
  for (const Workstation& workstation : report.workstations) {
    std::string sRow = Element("th scope=\"row\"", Escaped(workstation.sName));
    for (const ProductStatus& status : workstation.products) sRow += Cell(status, report.bExports);
    write(Element("tr", sRow) + "\n");
  }
  write("</tbody></table>\n");
}

std::string Failures(const StatusReport& report) {
  if (report.failures.empty()) return "";
  std::string sItems;
  for (const std::string& sFailure : report.failures)
    sItems += Element("li", Escaped(sFailure)) + "\n";
  return Element("h2", "Not readable") + "\n" + Element("ul", sItems) + "\n";
}

}  // namespace

void WriteStatusHtml(const StatusReport& report, const Output& write) {
  write("<!DOCTYPE html>\n<html lang=\"en\">\n<head><meta charset=\"utf-8\">" +
        Element("title", "Installed products, " + report.sTime) + Element("style", Style) +
        "</head>\n<body>\n" + Element("h1", "Installed products") + "\n" + Origin(report) +
        Failures(report) + Totals(report));
  WriteWorkstations(report, write);
  write(Element("script", Script) + "</body>\n</html>\n");
}

}  // namespace trelin
