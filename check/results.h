#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "check/finding.h"
#include "check/source_lines.h"
#include "seam/console.h"

namespace trelin {

// What was found in one file.
struct CheckedFile {
  std::string sPath;  // as the user writes it
  Findings findings;
  SourceLines lines;  // none of a string library
};

using Results = std::vector<CheckedFile>;

std::size_t CountOf(const Results& results, Severity severity);

const char* NameOf(Severity severity);  // "error", "warning"

// The results in one of the formats, in UTF-8; as a text for a terminal or, as it is
// without, for anything else.
std::string TextReport(const Results& results, const Terminal& terminal = {});
std::string JsonReport(const Results& results);
std::string SarifReport(const Results& results);

// A SARIF report that says why nothing could be checked.
std::string SarifFailure(const std::string& sReason);

}  // namespace trelin
