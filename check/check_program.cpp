// trelin-check: everything that is wrong with a setup list, at once.

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <utility>

#include "check/checks.h"
#include "check/encoding.h"
#include "check/library_check.h"
#include "check/library_source.h"
#include "check/list_file.h"
#include "check/list_reader.h"
#include "check/mend.h"
#include "check/new_suite.h"
#include "check/options.h"
#include "check/results.h"
#include "seam/console.h"
#include "seam/platform.h"
#include "seam/platform_error.h"
#include "shared/start_paths.h"
#include "shared/version.h"
#include "texts/paths.h"
#include "texts/suite_texts.h"

namespace trelin {

namespace {

void RequireFolder(const std::string& sFolder) {
  if (!StartPathTests().isFolder(sFolder))
    throw PlatformError("find the folder", WrittenByUser(sFolder), "there is none of that name");
}

CheckedFile CheckList(const ListFile& file, const std::string& sSourceFolder) {
  Suite suite = file.SuiteAround(sSourceFolder);
  suite.list = ReadCheckedList(file.Name(), file.Open());
  Findings findings = CheckSuite(suite);
  return {file.Shown(), std::move(findings), std::move(suite.list.lines)};
}

// In the lines of the script that it is made of, if there is one.
CheckedFile CheckLibraryAlone(const Options& options) {
  Findings findings = CheckLibrary(options.sLibrary);
  if (options.sScript.empty()) return {ShownToUser(options.sLibrary), std::move(findings), {}};
  SourceLines script =
      ReadSourceLines(WrittenByUser(options.sScript), TheSystem().OpenInput(options.sScript));
  PlaceInSource(findings, script);
  return {ShownToUser(options.sScript), std::move(findings), std::move(script)};
}

// A suite that has a string library of its own ships it.
Results CheckWhatIsAsked(const Options& options) {
  if (!options.sLibrary.empty()) return {CheckLibraryAlone(options)};
  if (!options.sSourceFolder.empty()) RequireFolder(options.sSourceFolder);
  Results results = {CheckList(ListFile(options.sPath), options.sSourceFolder)};
  const std::string sLibrary = InFolder(options.sPath, SuiteLibraryName);
  if (StartPathTests().isFile(sLibrary))
    results.push_back({ShownToUser(sLibrary), CheckLibrary(sLibrary), {}});
  return results;
}

// Without colours where the user wants none (no-color.org).
Terminal TerminalOfUser() {
  Terminal terminal = OutputTerminal();
  const char* const pNoColor = std::getenv("NO_COLOR");
  if (pNoColor != nullptr && *pNoColor != '\0') terminal.bColors = false;
  return terminal;
}

std::string ReportOn(const Results& results, ReportFormat format) {
  switch (format) {
    case ReportFormat::Json:
      return JsonReport(results);
    case ReportFormat::Sarif:
      return SarifReport(results);
    case ReportFormat::Text:
      break;
  }
  return TextReport(results, TerminalOfUser());
}

// Tells that nothing could be checked; who uploads a SARIF file has one to upload.
int Fail(const Options& options, const std::string& sReason) {
  if (options.format == ReportFormat::Sarif) WriteOutput(SarifFailure(sReason));
  WriteErrorOutput("trelin-check: " + Utf8Of(sReason) + "\n");
  return FailureCode;
}

void RemoveAllowed(Findings& findings, const std::vector<std::string>& rules) {
  std::erase_if(findings, [&rules](const Finding& finding) {
    return std::find(rules.begin(), rules.end(), finding.pRule->pName) != rules.end();
  });
}

void FixList(const ListFile& file, const Options& options) {
  const Manuscript mended = Mend(file.Bytes(), file.SuiteAround(options.sSourceFolder));
  const std::size_t nChanged = mended.ChangedLines();
  if (nChanged == 0) return;
  ReplaceWholeFile(file.Path(), mended.Text());
  if (options.format == ReportFormat::Text)
    WriteOutput(Utf8Of(file.Shown()) + ": " + std::to_string(nChanged) +
                (nChanged == 1 ? " line has been mended.\n" : " lines have been mended.\n"));
}

// The bytes of both files, or letters where somebody reads them.
int ShowDiff(const ListFile& file, const Options& options) {
  const std::string sDiff =
      Mend(file.Bytes(), file.SuiteAround(options.sSourceFolder)).Diff(file.Shown());
  WriteOutput(OutputTerminal().lColumns > 0 && !IsUtf8(sDiff) ? Utf8Of(sDiff) : sDiff);
  return sDiff.empty() ? 0 : 1;
}

int RunChecks(const Options& options) {
  Results results = CheckWhatIsAsked(options);
  for (CheckedFile& file : results) RemoveAllowed(file.findings, options.allowed);
  WriteOutput(ReportOn(results, options.format));
  const bool bFailed = CountOf(results, Severity::Error) > 0 ||
                       (options.bStrict && CountOf(results, Severity::Warning) > 0);
  return bFailed ? 1 : 0;
}

int RunWithTexts(const Options& options) {
  const ListFile file(options.sPath);
  const SuiteTexts texts(file.Folder(), "trelin-check");
  if (!options.states.empty())
    return WriteOutput(RecordsOf(ReadCheckedList(file.Name(), file.Open()), options.states)), 0;
  if (options.bDiff) return ShowDiff(file, options);
  if (options.bFix) FixList(file, options);
  return RunChecks(options);
}

}  // namespace

int RunCommand(const std::vector<std::string>& arguments) {
  Options options;
  try {
    options = ParseOptions(arguments);
    if (options.bHelp) return WriteOutput(HelpText()), 0;
    if (options.bVersion) return WriteOutput(std::string("trelin-check ") + Version + "\n"), 0;
    if (options.bNew) return WriteNewSuite(options.sPath), 0;
    return RunWithTexts(options);
  } catch (const UsageError& error) {
    WriteErrorOutput("trelin-check: " + Utf8Of(error.what()) + "\nTry trelin-check --help.\n");
    return FailureCode;
  } catch (const std::invalid_argument& error) {
    return Fail(options, error.what());
  } catch (const PlatformError& error) {
    return Fail(options, error.what());
  }
}

}  // namespace trelin
