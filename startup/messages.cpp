#include "startup/messages.h"

#include <limits>
#include <stdexcept>

#include "startup/string_resources.h"

namespace trelin {

std::string ReplaceText(const std::string& sSource, const std::string& sFind,
                        const std::string& sReplacement) {
  if (sSource.size() > std::numeric_limits<std::int16_t>::max())
    throw std::overflow_error("A message is longer than 32767 characters.");

  std::string sResult;
  std::size_t nPosition = 0;
  for (;;) {
    const std::size_t nFound = sSource.find(sFind, nPosition);
    if (nFound == std::string::npos) return sResult.append(sSource, nPosition);
    sResult.append(sSource, nPosition, nFound - nPosition).append(sReplacement);
    nPosition = nFound + sFind.size();
  }
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

std::string FormatResourceString(std::int32_t lId, const ArgumentArray& arguments) {
  if (!StringResourcesEnabled()) return "";
  return SubstituteArguments(LoadResourceString(lId), arguments);
}

}  // namespace trelin
