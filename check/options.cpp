#include "check/options.h"

#include <algorithm>
#include <map>

#include "check/checks.h"

namespace trelin {

namespace {

ReportFormat FormatOf(const std::string& sName) {
  static const std::map<std::string, ReportFormat> formats = {
      {"text", ReportFormat::Text}, {"json", ReportFormat::Json}, {"sarif", ReportFormat::Sarif}};
  const auto format = formats.find(sName);
  if (format == formats.end())
    throw UsageError("The format \"" + sName + "\" is none of text, json and sarif.");
  return format->second;
}

const std::string& RuleNamed(const std::string& sName) {
  const auto rules = AllRules();
  if (std::none_of(rules.begin(), rules.end(),
                   [&sName](const Rule* pRule) { return pRule->pName == sName; }))
    throw UsageError("There is no rule \"" + sName + "\".");
  return sName;
}

WantedState StateOf(const std::string& sValue) {
  const std::size_t nEquals = sValue.rfind('=');
  const std::string sState = nEquals == std::string::npos ? "" : sValue.substr(nEquals + 1);
  if (!IsWantedState(sState))
    throw UsageError("\"" + sValue +
                     "\" is no product code with =not-installed, =installed, =older, =newer or "
                     "=damaged behind it.");
  return {sValue.substr(0, nEquals), sState};
}

const std::map<std::string, bool Options::*>& Flags() {
  static const std::map<std::string, bool Options::*> flags = {
      {"--help", &Options::bHelp},     {"-h", &Options::bHelp},   {"--version", &Options::bVersion},
      {"--strict", &Options::bStrict}, {"--fix", &Options::bFix}, {"--diff", &Options::bDiff},
  };
  return flags;
}

// Options with a value.
using Setting = void (*)(Options& options, const std::string& sValue);

const std::map<std::string, Setting>& Settings() {
  static const std::map<std::string, Setting> settings = {
      {"--state", [](Options& o, const std::string& s) { o.states.push_back(StateOf(s)); }},
      {"--format", [](Options& o, const std::string& s) { o.format = FormatOf(s); }},
      {"--allow", [](Options& o, const std::string& s) { o.allowed.push_back(RuleNamed(s)); }},
      {"--source", [](Options& o, const std::string& s) { o.sSourceFolder = PathFromArgument(s); }},
      {"--library", [](Options& o, const std::string& s) { o.sLibrary = PathFromArgument(s); }},
      {"--rc", [](Options& o, const std::string& s) { o.sScript = PathFromArgument(s); }},
  };
  return settings;
}

class OptionReader {
 public:
  explicit OptionReader(const std::vector<std::string>& arguments) : arguments_(arguments) {}

  Options Read() {
    while (arguments_.Next()) {
      if (arguments_.IsOption())
        TakeOption();
      else
        TakePath(arguments_.Text());
    }
    RefuseContradictions();
    return options_;
  }

 private:
  void RefuseContradictions() const {
    if (bPath_ && !options_.sLibrary.empty())
      throw UsageError("Either a setup list or a string library can be checked at a time.");
    if (!options_.sScript.empty() && options_.sLibrary.empty())
      throw UsageError("A resource script needs the string library that is made of it.");
    if ((options_.bFix || options_.bDiff) && !options_.sLibrary.empty())
      throw UsageError("A string library cannot be mended.");
    if (options_.bFix && options_.sPath == "-")
      throw UsageError("The standard input cannot be mended; --diff shows what would be.");
  }

  void TakePath(const std::string& sArgument) {
    if (bPath_) throw UsageError("One folder or file can be checked at a time.");
    if (sArgument.empty()) throw UsageError("The name of the folder or file is empty.");
    options_.sPath = PathFromArgument(sArgument);
    bPath_ = true;
  }

  void TakeOption() {
    const std::string sName = arguments_.Name();
    if (const auto flag = Flags().find(arguments_.Text()); flag != Flags().end()) {
      options_.*flag->second = true;
    } else if (sName == "--new") {
      TakePath(arguments_.TakeValue());
      options_.bNew = true;
    } else if (const auto setting = Settings().find(sName); setting != Settings().end()) {
      setting->second(options_, arguments_.TakeValue());
    } else {
      throw UsageError("The option \"" + arguments_.Text() + "\" is unknown.");
    }
  }

  Arguments arguments_;
  Options options_;
  bool bPath_ = false;
};

}  // namespace

Options ParseOptions(const std::vector<std::string>& arguments) {
  return OptionReader(arguments).Read();
}

std::string HelpText() {
  return R"(Checks the setup list of a suite before it ships.

  trelin-check [--source FOLDER] [--format FORMAT] [--strict] [FOLDER|FILE|-]
  trelin-check --fix|--diff [--source FOLDER] [FOLDER|FILE]
  trelin-check --new FOLDER
  trelin-check --state CODE=STATE... [FOLDER|FILE|-]
  trelin-check --library FILE [--rc FILE] [--format FORMAT] [--strict]

FOLDER is the suite's folder, which holds TRELIN.CFG and what it names; without
it, the current folder. FILE is a setup list of any name, - the standard input,
for a suite in the current folder.

  --source FOLDER   the folder that installers are started from, if it is another
                    one than that of the list
  --format FORMAT   text (the usual one), json or sarif
  --allow RULE      leaves out what this rule finds; may be given several times
  --strict          warnings count as errors
  --fix             mends what has one safe answer, then checks the list
  --diff            shows what --fix would change, and changes nothing
  --new FOLDER      writes a suite to start from, with installers that only record
  --state CODE=STATE
                    writes a registry file of a workstation on which the product is
                    not-installed, installed, older, newer or damaged
  --library FILE    compares a translated string library with the program's own
  --rc FILE         shows its faults in the lines of the resource script
  --help            shows this
  --version         shows the version

An error is what the user of the launcher would meet; a warning is what works,
but is hardly meant. The exit code is 0 without errors, 1 with errors (with
--strict also with warnings), 2 when something cannot be read or written. With
--diff it is 1 when something would be changed.
)";
}

}  // namespace trelin
