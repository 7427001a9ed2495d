#include "texts/message_template.h"

#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string_view>

namespace trelin {

namespace {

// Throws before there is a giant text: ten thousand placeholders and a long
// argument need a few kilobytes in a setup list.
void Append(std::string& sResult, std::string_view sPart) {
  if (sResult.size() + sPart.size() > LongestMessage)
    throw std::length_error("A message is longer than 16 megabytes.");
  sResult += sPart;
}

}  // namespace

std::string ReplaceText(const std::string& sSource, const std::string& sFind,
                        const std::string& sReplacement) {
  if (sSource.size() > std::numeric_limits<std::int16_t>::max())
    throw std::overflow_error("A message is longer than 32767 characters.");

  std::string sResult;
  std::string_view sRest = sSource;
  for (std::size_t nFound = 0; (nFound = sRest.find(sFind)) != std::string_view::npos;) {
    Append(sResult, sRest.substr(0, nFound));
    Append(sResult, sReplacement);
    sRest.remove_prefix(nFound + sFind.size());
  }
  Append(sResult, sRest);
  return sResult;
}

std::string SubstituteArguments(const std::string& sTemplate, const ArgumentArray& arguments) {
  std::string sText = sTemplate;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const auto& sArgument = arguments[i].Text();
    if (!sArgument) continue;
    try {
      sText = ReplaceText(sText, "%" + std::to_string(i) + "%", *sArgument);
    } catch (const std::exception&) {
      continue;  // this placeholder stays
    }
  }
  return sText;
}

}  // namespace trelin
