// trelin-check: everything that is wrong with a setup list, at once.

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "check/checks.h"
#include "check/encoding.h"
#include "check/library_check.h"
#include "check/library_source.h"
#include "check/list_reader.h"
#include "check/mend.h"
#include "check/new_suite.h"
#include "check/options.h"
#include "check/results.h"
#include "check/version.h"
#include "seam/console.h"
#include "seam/platform.h"
#include "seam/platform_error.h"
#include "shared/read_file.h"
#include "shared/start_paths.h"
#include "texts/paths.h"
#include "texts/string_resources.h"

namespace trelin {

namespace {

constexpr std::int32_t LocaleId = 1033;  // as the launcher
constexpr const char* ListName = "TRELIN.CFG";
constexpr const char* LibraryName = "ENU35000.DLL";
constexpr const char* StandardInputName = "<stdin>";

// A path as the user writes it, without a "./" that says nothing.
std::string Shown(const std::string& sPath) {
  return WrittenByUser(sPath.starts_with(".\\") ? sPath.substr(2) : sPath);
}

std::string FolderOf(const std::string& sPath) {
  const std::size_t nName = sPath.rfind('\\');
  return nName == std::string::npos ? "." : sPath.substr(0, nName + 1);
}

void RequireFolder(const std::string& sFolder) {
  if (!StartPathTests().isFolder(sFolder))
    throw PlatformError("find the folder", WrittenByUser(sFolder), "there is none of that name");
}

bool IsStandardInput(const std::string& sPath) { return sPath == "-"; }

std::unique_ptr<InputFile> OpenList(const std::string& sPath) {
  return IsStandardInput(sPath) ? OpenStandardInput() : TheSystem().OpenInput(sPath);
}

std::string NameOf(const std::string& sPath) {
  return IsStandardInput(sPath) ? StandardInputName : sPath.substr(sPath.find_last_of("\\/") + 1);
}

std::string ShownName(const std::string& sPath) {
  return IsStandardInput(sPath) ? StandardInputName : Shown(sPath);
}

Suite SuiteOf(const std::string& sPath, const std::string& sSourceFolder) {
  Suite suite;
  suite.sFolder = FolderOf(sPath);
  suite.sSourceFolder = sSourceFolder.empty() ? suite.sFolder : sSourceFolder;
  return suite;
}

CheckedFile CheckList(const std::string& sPath, const std::string& sSourceFolder) {
  Suite suite = SuiteOf(sPath, sSourceFolder);
  suite.list = ReadCheckedList(NameOf(sPath), OpenList(sPath));
  Findings findings = CheckSuite(suite);
  return {ShownName(sPath), std::move(findings), std::move(suite.list.lines)};
}

// A suite that has a string library of its own ships it.
Results CheckFolder(const std::string& sFolder, const std::string& sSourceFolder) {
  Results results = {CheckList(InFolder(sFolder, ListName), sSourceFolder)};
  const std::string sLibrary = InFolder(sFolder, LibraryName);
  if (StartPathTests().isFile(sLibrary))
    results.push_back({Shown(sLibrary), CheckLibrary(sLibrary), {}});
  return results;
}

// In the lines of the script that it is made of, if there is one.
CheckedFile CheckLibraryAlone(const Options& options) {
  Findings findings = CheckLibrary(options.sLibrary);
  if (options.sScript.empty()) return {Shown(options.sLibrary), std::move(findings), {}};
  SourceLines script =
      ReadSourceLines(WrittenByUser(options.sScript), TheSystem().OpenInput(options.sScript));
  PlaceInSource(findings, script);
  return {Shown(options.sScript), std::move(findings), std::move(script)};
}

Results CheckWhatIsAsked(const Options& options) {
  if (!options.sLibrary.empty()) return {CheckLibraryAlone(options)};
  if (!options.sSourceFolder.empty()) RequireFolder(options.sSourceFolder);
  if (StartPathTests().isFolder(options.sPath))
    return CheckFolder(options.sPath, options.sSourceFolder);
  return {CheckList(options.sPath, options.sSourceFolder)};
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

// Takes a string library of the suite's own for the program's, as the launcher
// does there. One that does not load is reported, and the program's own serves.
class SuiteLibraries : public StringLibraryLoader {
 public:
  SuiteLibraries(StringLibraryLoader& system, std::string sFolder)
      : system_(system), sFolder_(std::move(sFolder)) {}

  LibraryHandle Load(const std::string& sPath) override {
    const LibraryHandle hOwn = system_.Load(InFolder(sFolder_, LibraryName));
    return hOwn != 0 ? hOwn : system_.Load(sPath);
  }
  void Free(LibraryHandle hLibrary) override { system_.Free(hLibrary); }
  std::int32_t LoadText(LibraryHandle hLibrary, std::int32_t lId, char* pBuffer,
                        std::int32_t lSize) override {
    return system_.LoadText(hLibrary, lId, pBuffer, lSize);
  }

 private:
  StringLibraryLoader& system_;
  std::string sFolder_;
};

// The words of the launcher come from its string library.
void OpenStringResources() {
  ResetStringResources();
  InitStringResources(LocaleId);
  if (GetResourceLibrary(static_cast<std::int32_t>(TextNumber::Missing)) == 0)
    throw PlatformError("open the string library", WrittenByUser(ProgramFile(LibraryName)),
                        "it is missing or damaged; it belongs into the folder of trelin-check");
}

std::string SuiteFolder(const Options& options) {
  return StartPathTests().isFolder(options.sPath) ? options.sPath : FolderOf(options.sPath);
}

std::string ListOf(const Options& options) {
  return StartPathTests().isFolder(options.sPath) ? InFolder(options.sPath, ListName)
                                                  : options.sPath;
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

Manuscript MendedList(const std::string& sPath, const Options& options) {
  const auto sFile = ReadWholeFile(*OpenList(sPath));
  if (!sFile)
    throw PlatformError("read the setup list", ShownName(sPath), "it has more than 64 MB");
  Suite suite = SuiteOf(sPath, options.sSourceFolder);
  suite.list.sName = NameOf(sPath);
  return Mend(*sFile, suite);
}

void FixList(const std::string& sPath, const Options& options) {
  const Manuscript mended = MendedList(sPath, options);
  const std::size_t nChanged = mended.ChangedLines();
  if (nChanged == 0) return;
  ReplaceWholeFile(sPath, mended.Text());
  if (options.format == ReportFormat::Text)
    WriteOutput(Utf8Of(ShownName(sPath)) + ": " + std::to_string(nChanged) +
                (nChanged == 1 ? " line has been mended.\n" : " lines have been mended.\n"));
}

// The bytes of both files, or letters where somebody reads them.
int ShowDiff(const std::string& sPath, const Options& options) {
  const std::string sDiff = MendedList(sPath, options).Diff(ShownName(sPath));
  WriteOutput(OutputTerminal().lColumns > 0 && !IsUtf8(sDiff) ? Utf8Of(sDiff) : sDiff);
  return sDiff.empty() ? 0 : 1;
}

int WriteRecords(const std::string& sPath, const Options& options) {
  WriteOutput(RecordsOf(ReadCheckedList(NameOf(sPath), OpenList(sPath)), options.states));
  return 0;
}

int RunChecks(const Options& options) {
  SuiteLibraries libraries(TheStringLibraries(), SuiteFolder(options));
  const PlatformScope scope({&TheRegistry(), &libraries, &TheSystem()});
  OpenStringResources();
  if (!options.states.empty()) return WriteRecords(ListOf(options), options);
  if (options.bDiff) return ShowDiff(ListOf(options), options);
  if (options.bFix) FixList(ListOf(options), options);
  Results results = CheckWhatIsAsked(options);
  for (CheckedFile& file : results) RemoveAllowed(file.findings, options.allowed);
  FreeResourceLibraries();
  WriteOutput(ReportOn(results, options.format));
  const bool bFailed = CountOf(results, Severity::Error) > 0 ||
                       (options.bStrict && CountOf(results, Severity::Warning) > 0);
  return bFailed ? 1 : 0;
}

}  // namespace

int RunCommand(const std::vector<std::string>& arguments) {
  Options options;
  try {
    options = ParseOptions(arguments);
    if (options.bHelp) return WriteOutput(HelpText()), 0;
    if (options.bVersion) return WriteOutput(std::string("trelin-check ") + Version + "\n"), 0;
    if (options.bNew) return WriteNewSuite(options.sPath), 0;
    return RunChecks(options);
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
