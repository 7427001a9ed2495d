#pragma once

#include <string>
#include <vector>

#include "check/records.h"
#include "shared/arguments.h"

namespace trelin {

enum class ReportFormat { Text, Json, Sarif };

// What trelin-check is asked to do. Paths are those of the program.
struct Options {
  bool bHelp = false;
  bool bVersion = false;
  bool bNew = false;                // a suite to start from is written into the folder sPath
  bool bStrict = false;             // warnings count as errors
  bool bFix = false;                // the list is mended before it is checked
  bool bDiff = false;               // only what mending it would change is shown
  std::vector<WantedState> states;  // not empty: of the records to write
  ReportFormat format = ReportFormat::Text;
  std::vector<std::string> allowed;  // names of rules that are not reported
  std::string sPath = ".";           // a folder with a TRELIN.CFG, or a setup list
  std::string sSourceFolder;         // empty: the folder of the list
  std::string sLibrary;              // not empty: the string library to check instead
  std::string sScript;               // empty, or the resource script that it is made of
};

// Throws UsageError.
Options ParseOptions(const std::vector<std::string>& arguments);

std::string HelpText();

}  // namespace trelin
