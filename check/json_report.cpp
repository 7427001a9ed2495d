// The form is documented in docs/trelin-check.md; what is there stays.

#include "check/results.h"
#include "seam/console.h"
#include "shared/json_writer.h"
#include "shared/version.h"

namespace trelin {

namespace {

// Of a very long line the part around the place, and the column that it begins in.
void WriteSource(std::string_view sLine, std::int32_t lColumn, JsonWriter& json) {
  constexpr std::size_t MostShown = 1000;
  const auto nColumn = static_cast<std::size_t>(lColumn - 1);
  const std::size_t nBegin = nColumn < MostShown ? 0 : nColumn - MostShown / 2;
  json.Member("source", Utf8Of(std::string(sLine.substr(nBegin, MostShown))));
  if (sLine.size() > MostShown)
    json.NumberMember("sourceColumn", static_cast<long long>(nBegin) + 1);
}

void WriteFinding(const CheckedFile& file, const Finding& finding, JsonWriter& json) {
  const Place& place = finding.place;
  json.Begin('{');
  json.Member("file", Utf8Of(file.sPath));
  if (place.lLine > 0) {
    json.NumberMember("line", place.lLine);
    json.NumberMember("column", place.lColumn);
    json.NumberMember("length", place.lLength);
    WriteSource(file.lines.Line(place.lLine), place.lColumn, json);
  }
  if (finding.lNumber > 0) json.NumberMember("number", finding.lNumber);
  json.Member("severity", NameOf(finding.severity));
  json.Member("rule", finding.pRule->pName);
  json.Member("message", Utf8Of(finding.sMessage));
  if (!finding.sHint.empty()) json.Member("hint", Utf8Of(finding.sHint));
  json.End('}');
}

}  // namespace

std::string JsonReport(const Results& results) {
  constexpr int FormVersion = 1;
  JsonWriter json;
  json.Begin('{');
  json.NumberMember("version", FormVersion);
  json.Member("tool", "trelin-check");
  json.Member("toolVersion", Version);
  json.NumberMember("errors", static_cast<long long>(CountOf(results, Severity::Error)));
  json.NumberMember("warnings", static_cast<long long>(CountOf(results, Severity::Warning)));
  json.Key("findings");
  json.Begin('[');
  for (const CheckedFile& file : results)
    for (const Finding& finding : file.findings) WriteFinding(file, finding, json);
  json.End(']');
  json.End('}');
  return json.Text();
}

}  // namespace trelin
