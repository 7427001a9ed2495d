#include "texts/messages.h"

#include "texts/string_resources.h"

namespace trelin {

std::string FormatResourceString(std::int32_t lId, const ArgumentArray& arguments) {
  if (!StringResourcesEnabled()) return "";
  return SubstituteArguments(LoadResourceString(lId), arguments);
}

}  // namespace trelin
