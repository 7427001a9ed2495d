// Checks of the room that texts have in the menu.

#include <array>
#include <string>

#include "check/checks.h"
#include "check/text_fit.h"

namespace trelin {

namespace {

void ReportLong(const ListBlock& product, const char* pKey, const LabelPlace& place,
                const char* pWhat, Report& report) {
  const std::string sText(product.Value(pKey));
  if (const std::int32_t lLines = LinesCutOff(sText, place); lLines > 0)
    report.Warn(product.PlaceOf(pKey),
                std::string(pWhat) + " does not fit into its place in the menu" + CutOff(lLines),
                "Shorten it.");
}

void CheckTextsFit(const Suite& suite, Report& report) {
  for (const ListBlock* pProduct : suite.list.Products()) {
    ReportLong(*pProduct, "PRODUCT", TitlePlace, "The title", report);
    ReportLong(*pProduct, "DESCRIPTION", DescriptionPlace, "The description", report);
  }
}

}  // namespace

std::span<const Check> FitChecks() {
  static constexpr std::array Table = {
      Check{&rule::LongText, CheckTextsFit},
  };
  return Table;
}

}  // namespace trelin
