// SARIF 2.1.0, the Static Analysis Results Interchange Format of OASIS, which
// code hosts show beside the lines of a change.

#include <algorithm>
#include <string>
#include <vector>

#include "check/checks.h"
#include "check/results.h"
#include "seam/console.h"
#include "shared/json_writer.h"
#include "shared/version.h"

namespace trelin {

namespace {

bool IsUriCharacter(char c) {
  const bool bAlphanumeric =
      (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
  return bAlphanumeric || std::string_view("-._~/:").find(c) != std::string_view::npos;
}

// A relative reference, or a file URI for a full path.
std::string UriOf(std::string sUtf8Path) {
  std::replace(sUtf8Path.begin(), sUtf8Path.end(), '\\', '/');
  const bool bDrive = sUtf8Path.size() > 1 && sUtf8Path[1] == ':';
  std::string sUri = bDrive ? "file:///" : sUtf8Path.starts_with('/') ? "file://" : "";
  const char* const pDigits = "0123456789ABCDEF";
  for (const char c : sUtf8Path) {
    const auto nByte = static_cast<unsigned char>(c);
    if (IsUriCharacter(c))
      sUri += c;
    else
      sUri.append(1, '%').append(1, pDigits[nByte >> 4U]).append(1, pDigits[nByte & 0xFU]);
  }
  return sUri;
}

void WriteText(const char* pKey, const std::string& sUtf8, JsonWriter& json) {
  json.Key(pKey);
  json.Begin('{');
  json.Member("text", sUtf8);
  json.End('}');
}

// Of a rule among those that the tool names.
long long IndexOf(const Rule* pRule) {
  static const std::vector<const Rule*> rules = AllRules();
  return std::find(rules.begin(), rules.end(), pRule) - rules.begin();
}

void WriteRules(JsonWriter& json) {
  json.Key("rules");
  json.Begin('[');
  for (const Rule* pRule : AllRules()) {
    json.Begin('{');
    json.Member("id", pRule->pName);
    WriteText("shortDescription", pRule->pSummary, json);
    WriteText("fullDescription", std::string(pRule->pSummary) + " " + pRule->pReason, json);
    WriteText("help", pRule->pReason, json);
    json.End('}');
  }
  json.End(']');
}

void WriteTool(JsonWriter& json) {
  json.Key("tool");
  json.Begin('{');
  json.Key("driver");
  json.Begin('{');
  json.Member("name", "trelin-check");
  json.Member("semanticVersion", Version);
  WriteRules(json);
  json.End('}');
  json.End('}');
}

// The file as a whole is its first line: code hosts show nothing without one.
void WriteRegion(const Place& place, JsonWriter& json) {
  const std::int32_t lLine = std::max(place.lLine, 1);
  json.Key("region");
  json.Begin('{');
  json.NumberMember("startLine", lLine);
  json.NumberMember("startColumn", place.lColumn);
  json.NumberMember("endLine", lLine);
  json.NumberMember("endColumn", place.lColumn + std::max(place.lLength, 1));
  json.End('}');
}

void WriteLocation(const CheckedFile& file, const Finding& finding, JsonWriter& json) {
  json.Key("locations");
  json.Begin('[');
  json.Begin('{');
  json.Key("physicalLocation");
  json.Begin('{');
  json.Key("artifactLocation");
  json.Begin('{');
  json.Member("uri", UriOf(Utf8Of(file.sPath)));
  json.End('}');
  WriteRegion(finding.place, json);
  json.End('}');
  json.End('}');
  json.End(']');
}

void WriteResult(const CheckedFile& file, const Finding& finding, JsonWriter& json) {
  const std::string sHint = finding.sHint.empty() ? "" : "\n\n" + finding.sHint;
  json.Begin('{');
  json.Member("ruleId", finding.pRule->pName);
  json.NumberMember("ruleIndex", IndexOf(finding.pRule));
  json.Member("level", NameOf(finding.severity));
  WriteText("message", Utf8Of(finding.sMessage + sHint), json);
  WriteLocation(file, finding, json);
  json.End('}');
}

// A log of one run of the tool, whose outcome writeOutcome writes.
template <class WriteOutcome>
std::string LogOf(WriteOutcome writeOutcome) {
  JsonWriter json;
  json.Begin('{');
  json.Member("$schema", "https://json.schemastore.org/sarif-2.1.0.json");
  json.Member("version", "2.1.0");
  json.Key("runs");
  json.Begin('[');
  json.Begin('{');
  WriteTool(json);
  json.Member("columnKind", "unicodeCodePoints");
  writeOutcome(json);
  json.End('}');
  json.End(']');
  json.End('}');
  return json.Text();
}

}  // namespace

std::string SarifReport(const Results& results) {
  return LogOf([&results](JsonWriter& json) {
    json.Key("results");
    json.Begin('[');
    for (const CheckedFile& file : results)
      for (const Finding& finding : file.findings) WriteResult(file, finding, json);
    json.End(']');
  });
}

std::string SarifFailure(const std::string& sReason) {
  return LogOf([&sReason](JsonWriter& json) {
    json.Key("invocations");
    json.Begin('[');
    json.Begin('{');
    json.Key("executionSuccessful");
    json.Boolean(false);
    json.Key("toolExecutionNotifications");
    json.Begin('[');
    json.Begin('{');
    json.Member("level", "error");
    WriteText("message", Utf8Of(sReason), json);
    json.End('}');
    json.End(']');
    json.End('}');
    json.End(']');
    json.Key("results");
    json.Begin('[');
    json.End(']');
  });
}

}  // namespace trelin
