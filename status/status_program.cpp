// trelin-status: which products of a suite are installed, on one workstation or on many.

#include <array>
#include <chrono>
#include <ctime>
#include <map>
#include <stdexcept>
#include <utility>

#include "seam/console.h"
#include "seam/platform.h"
#include "seam/platform_error.h"
#include "shared/memory_registry.h"
#include "shared/version.h"
#include "status/exports.h"
#include "status/options.h"
#include "status/read_only.h"
#include "status/reports.h"
#include "status/suite_status.h"
#include "texts/error.h"
#include "texts/paths.h"
#include "texts/suite_texts.h"

namespace trelin {

namespace {

using Clock = std::chrono::steady_clock;

// In the error output, for a user who has been waiting for a second.
class Progress {
 public:
  explicit Progress(std::size_t nAll) : nAll_(nAll), bSeen_(ErrorsAreSeen()) {}
  ~Progress() {
    if (bShown_) WriteErrorOutput("\r" + std::string(Width, ' ') + "\r");
  }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Tell(std::size_t nDone) {
    if (!bSeen_ || Clock::now() < next_) return;
    std::string sText = std::to_string(nDone) + " of " + std::to_string(nAll_) + " exports";
    sText.resize(Width, ' ');
    WriteErrorOutput("\r" + sText);
    bShown_ = true;
    next_ = Clock::now() + std::chrono::milliseconds(200);
  }

 private:
  static constexpr std::size_t Width = 40;

  std::size_t nAll_;
  bool bSeen_;
  bool bShown_ = false;
  Clock::time_point next_ = Clock::now() + std::chrono::seconds(1);
};

std::string Now() {
  const std::time_t now = std::time(nullptr);
  std::array<char, 32> text{};
  (void)std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S UTC", std::gmtime(&now));
  return text.data();
}

void LookAtExports(const std::vector<std::string>& files, bool b32Bits, SuiteStatus& suite,
                   StatusReport& report) {
  Progress progress(files.size());
  std::string sBytes;
  for (std::size_t n = 0; n < files.size(); ++n) {
    progress.Tell(n);
    try {
      MemoryRegistry exported(ReadExport(files[n], sBytes));
      ReadOnlyRegistry registry(exported, b32Bits);
      const PlatformScope scope({&registry, &TheStringLibraries(), &TheSystem()});
      report.workstations.push_back(suite.LookAt(WorkstationOf(files[n])));
    } catch (const PlatformError& error) {
      report.failures.emplace_back(error.what());
    }
  }
}

StatusReport MakeReport(const StatusOptions& options, const std::string& sList,
                        const std::vector<std::string>& exports) {
  SuiteStatus suite(sList, options.sCode);
  StatusReport report;
  report.bExports = options.bRecords;
  report.products = suite.Products();
  report.sList = WrittenByUser(sList);
  report.sTime = Now();
  if (options.format == StatusFormat::Html) report.sListDigest = Sha256Of(ReadBytes(sList));
  if (options.bRecords)
    LookAtExports(exports, options.b32Bits, suite, report);
  else
    report.workstations.push_back(suite.LookAt(ComputerName()));
  return report;
}

// Writes large pieces, each of whole lines.
class BufferedOutput {
 public:
  void Add(const std::string& sLines) {
    sPiece_ += sLines;
    if (sPiece_.size() >= PieceBytes) Flush();
  }
  void Flush() { WriteOutput(std::exchange(sPiece_, {})); }

 private:
  static constexpr std::size_t PieceBytes = 65536;

  std::string sPiece_;
};

void WriteReport(const StatusReport& report, StatusFormat format) {
  static const std::map<StatusFormat, void (*)(const StatusReport&, const Output&)> writers = {
      {StatusFormat::Text, WriteStatusText},
      {StatusFormat::Json, WriteStatusJson},
      {StatusFormat::Csv, WriteStatusCsv},
      {StatusFormat::Html, WriteStatusHtml}};
  BufferedOutput output;
  writers.at(format)(report, [&output](const std::string& sLines) { output.Add(sLines); });
  output.Flush();
}

bool SomethingIsNeeded(const StatusReport& report) {
  for (const Workstation& workstation : report.workstations)
    for (std::size_t n = 0; n < report.products.size(); ++n)
      if (IsNeeded(report.products[n], workstation.products[n])) return true;
  return false;
}

void Complain(const std::string& sText) {
  WriteErrorOutput(std::string(StatusTool) + ": " + Utf8Of(sText) + "\n");
}

int Run(const StatusOptions& options) {
  const auto computer = OpenRegistry();
  // While the list is read for exports, the empty one that is in use serves.
  ReadOnlyRegistry registry(options.bRecords ? TheRegistry() : *computer, options.b32Bits);
  QuietSystem system(TheSystem(), options.bRecords);
  const std::string sList = SetupListIn(options.sFolder);
  const auto exports = ExportFiles(options.records);
  const SuiteTexts texts(FolderOf(sList), StatusTool);
  const PlatformScope scope({&registry, &TheStringLibraries(), &system});
  const StatusReport report = MakeReport(options, sList, exports);
  WriteReport(report, options.format);
  for (const std::string& sFailure : report.failures) Complain(sFailure);
  if (!report.failures.empty()) return FailureCode;
  return SomethingIsNeeded(report) ? 1 : 0;
}

}  // namespace

int RunCommand(const std::vector<std::string>& arguments) {
  try {
    const StatusOptions options = ParseStatusOptions(arguments);
    if (options.bHelp) return WriteOutput(StatusHelp()), 0;
    if (options.bVersion) return WriteOutput(std::string(StatusTool) + " " + Version + "\n"), 0;
    return Run(options);
  } catch (const UsageError& error) {
    Complain(error.what() + std::string("\nTry trelin-status --help."));
  } catch (const Error& error) {
    Complain(error.Description());
  } catch (const PlatformError& error) {
    Complain(error.what());
  }
  return FailureCode;
}

}  // namespace trelin
