#include "check/results.h"

#include <algorithm>

namespace trelin {

std::size_t CountOf(const Results& results, Severity severity) {
  std::ptrdiff_t nCount = 0;
  for (const CheckedFile& file : results)
    nCount += std::count_if(file.findings.begin(), file.findings.end(),
                            [severity](const Finding& f) { return f.severity == severity; });
  return static_cast<std::size_t>(nCount);
}

const char* NameOf(Severity severity) { return severity == Severity::Error ? "error" : "warning"; }

}  // namespace trelin
