#pragma once

#include <string>
#include <vector>

#include "check/finding.h"
#include "check/source_lines.h"

namespace trelin {

// One statement of a setup list, as the launcher's block reader delivers it.
struct Statement {
  enum class Kind { BlockStart, BlockEnd, Entry };

  Kind kind = Kind::BlockEnd;
  Place place;        // of the statement
  std::string sWord;  // the block's type or the entry's key, in upper case
  std::string sValue;
};

// Reads the file at sPath with the block reader to its end, whose faults go to
// faults in the launcher's words; reading goes on behind each. lines are those
// of the same file. Throws PlatformError when it cannot be read.
std::vector<Statement> ReadStatements(const std::string& sPath, const SourceLines& lines,
                                      Findings& faults);

}  // namespace trelin
