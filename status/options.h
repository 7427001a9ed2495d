#pragma once

#include <string>
#include <vector>

#include "shared/arguments.h"

namespace trelin {

enum class StatusFormat { Text, Json, Csv, Html };

// What trelin-status is asked to do. Paths are those of the program.
struct StatusOptions {
  bool bHelp = false;
  bool bVersion = false;
  StatusFormat format = StatusFormat::Text;
  bool b32Bits = false;              // the records of 32-bit programs are looked at
  std::string sCode;                 // of the only product to look at; empty: all
  std::string sFolder = ".";         // of the suite, or the path of a setup list
  std::vector<std::string> records;  // exports, their folders or "@" and a list of them
  bool bRecords = false;             // these, and not this computer, are looked at
};

// Throws UsageError.
StatusOptions ParseStatusOptions(const std::vector<std::string>& arguments);

std::string StatusHelp();

}  // namespace trelin
