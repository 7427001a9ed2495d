#include "status/options.h"

#include <map>

namespace trelin {

namespace {

StatusFormat FormatNamed(const std::string& sName) {
  static const std::map<std::string, StatusFormat> formats = {{"text", StatusFormat::Text},
                                                              {"json", StatusFormat::Json},
                                                              {"csv", StatusFormat::Csv},
                                                              {"html", StatusFormat::Html}};
  const auto format = formats.find(sName);
  if (format == formats.end())
    throw UsageError("The format \"" + sName + "\" is none of text, json, csv and html.");
  return format->second;
}

bool Is32Bits(const std::string& sView) {
  if (sView != "32" && sView != "64")
    throw UsageError("The view \"" + sView + "\" is neither 64 nor 32.");
  return sView == "32";
}

class StatusOptionReader {
 public:
  explicit StatusOptionReader(const std::vector<std::string>& arguments) : arguments_(arguments) {}

  StatusOptions Read() {
    while (arguments_.Next()) {
      if (arguments_.IsOption())
        TakeOption();
      else
        TakePath(arguments_.Text());
    }
    return options_;
  }

 private:
  // In front of --records the suite, behind it exports.
  void TakePath(const std::string& sPath) {
    if (sPath.empty()) throw UsageError("The name of the folder or file is empty.");
    if (options_.bRecords) return options_.records.push_back(PathFromArgument(sPath));
    if (bFolder_)
      throw UsageError("One suite can be looked at at a time; exports follow --records.");
    options_.sFolder = PathFromArgument(sPath);
    bFolder_ = true;
  }

  void TakeOption() {
    const std::string sName = arguments_.Name();
    if (sName == "--help" || sName == "-h")
      options_.bHelp = true;
    else if (sName == "--version")
      options_.bVersion = true;
    else if (sName == "--format")
      options_.format = FormatNamed(arguments_.TakeValue());
    else if (sName == "--view")
      options_.b32Bits = Is32Bits(arguments_.TakeValue());
    else if (sName == "--product")
      options_.sCode = arguments_.TakeValue();
    else if (sName == "--records")
      TakeRecords();
    else
      throw UsageError("The option \"" + arguments_.Text() + "\" is unknown.");
  }

  void TakeRecords() {
    options_.bRecords = true;
    TakePath(arguments_.TakeValue());
  }

  Arguments arguments_;
  StatusOptions options_;
  bool bFolder_ = false;
};

}  // namespace

StatusOptions ParseStatusOptions(const std::vector<std::string>& arguments) {
  return StatusOptionReader(arguments).Read();
}

std::string StatusHelp() {
  return R"(Tells which products of a suite are installed, as the launcher's menu does.

  trelin-status [--product CODE] [--format FORMAT] [--view BITS] [FOLDER|FILE]
  trelin-status [...] [FOLDER|FILE] --records EXPORT...

FOLDER is the suite's folder, which holds TRELIN.CFG; without it, the current
folder. FILE is a setup list of any name.

  --product CODE    looks at one product alone
  --format FORMAT   text (the usual one), json, csv or html
  --view BITS       64 or 32: where 64-bit Windows keeps the records of 32-bit
                    programs, and so of the 32-bit launcher
  --records EXPORT...
                    looks at exports of other workstations' records instead of
                    this one: files of the registry editor, folders of such
                    files (*.reg), or @ and a file with one of these a line
  --help            shows this
  --version         shows the version

Nothing is ever written. The exit code is 0 when everything is installed and
whole, 1 when something is missing, older or incomplete, 2 when something
cannot be read.
)";
}

}  // namespace trelin
