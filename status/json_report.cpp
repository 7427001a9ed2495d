// The form is documented in docs/trelin-status.md; what is there stays.

#include "seam/console.h"
#include "shared/json_writer.h"
#include "shared/version.h"
#include "status/reports.h"

namespace trelin {

namespace {

void WriteRevision(const char* pKey, const std::optional<std::string>& revision, JsonWriter& json) {
  json.Key(pKey);
  if (revision)
    json.String(Utf8Of(*revision));
  else
    json.Null();
}

void WriteUnmet(const UnmetPrerequisite& unmet, JsonWriter& json) {
  json.Begin('{');
  json.Member("code", Utf8Of(unmet.sCode));
  json.Member("title", Utf8Of(unmet.sTitle));
  json.Member("required", Utf8Of(unmet.sRequired));
  WriteRevision("installed", unmet.installed, json);
  json.Member("reason", Utf8Of(unmet.sReason));
  json.End('}');
}

void WriteProduct(const OfferedProduct& product, const ProductStatus& status, bool bExport,
                  JsonWriter& json) {
  json.Begin('{');
  json.Member("code", Utf8Of(product.sCode));
  json.Member("title", Utf8Of(product.sTitle));
  json.Member("offered", Utf8Of(product.sRevision));
  WriteRevision("installed", status.installed, json);
  json.Member("state", Reported(status.state).pName);
  json.Key("fileChecked");
  json.Boolean(IsFileChecked(status, bExport));
  json.Key("unmet");
  json.Begin('[');
  for (const UnmetPrerequisite& unmet : status.unmet) WriteUnmet(unmet, json);
  json.End(']');
  json.End('}');
}

}  // namespace

void WriteStatusJson(const StatusReport& report, const Output& write) {
  constexpr int FormVersion = 1;
  JsonWriter json;
  json.Begin('{');
  json.NumberMember("version", FormVersion);
  json.Member("tool", StatusTool);
  json.Member("toolVersion", Version);
  json.Member("time", report.sTime);
  json.Key("machines");
  json.Begin('[');
  for (const Workstation& workstation : report.workstations) {
    json.Begin('{');
    json.Member("name", Utf8Of(workstation.sName));
    json.Key("products");
    json.Begin('[');
    for (std::size_t n = 0; n < report.products.size(); ++n)
      WriteProduct(report.products[n], workstation.products[n], report.bExports, json);
    json.End(']');
    json.End('}');
    write(json.Take());
  }
  json.End(']');
  json.Key("failures");
  json.Begin('[');
  for (const std::string& sFailure : report.failures) json.String(Utf8Of(sFailure));
  json.End(']');
  json.End('}');
  write(json.Text());
}

}  // namespace trelin
