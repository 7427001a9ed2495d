// Checks of the files that the list names. Windows starts a program also when
// its name lacks the ".exe", and finds files in any letter case.

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "check/checks.h"
#include "seam/platform.h"
#include "seam/platform_error.h"
#include "seam/toolkit.h"
#include "shared/command_line.h"
#include "shared/start_paths.h"
#include "texts/paths.h"
#include "texts/text.h"

namespace trelin {

namespace {

// Calls it for each product's value of that key, which is not empty, and its place. Those
// that name one file follow each other.
template <class Use>
void ForEachFile(const Suite& suite, const char* pKey, Use use) {
  std::vector<std::pair<std::string_view, Place>> files;
  for (const ListBlock* pProduct : suite.list.Products())
    if (const std::string_view sValue = pProduct->Value(pKey); !sValue.empty())
      files.emplace_back(sValue, pProduct->PlaceOf(pKey));
  std::sort(files.begin(), files.end(),
            [](const auto& one, const auto& other) { return one.first < other.first; });
  for (const auto& [sValue, place] : files) use(std::string(sValue), place);
}

std::string NameIn(const std::string& sPath) { return sPath.substr(sPath.find_last_of("\\/") + 1); }

bool IsProgram(const std::string& sPath) {
  const PathTests tests = StartPathTests();
  const std::string sName = NameIn(sPath);
  const bool bLacksExtension = !sName.empty() && sName.find('.') == std::string::npos;
  return tests.isFile(sPath) || (bLacksExtension && tests.isFile(sPath + ".exe"));
}

bool IsFolder(const std::string& sPath) { return StartPathTests().isFolder(sPath); }

// As the launcher makes them.
std::string PicturePath(const Suite& suite, const std::string& sValue) {
  return InFolder(suite.sFolder, sValue);
}
std::string InstallerPath(const Suite& suite, const std::string& sValue) {
  return JoinPath(suite.sSourceFolder, sValue);
}

std::string PathHint(const std::string& sValue, const std::string& sFolder) {
  if (sValue.find('"') != std::string::npos)
    return "Quotation marks count as part of the name: leave them out.";
  if (sValue.starts_with("\\") || sValue.starts_with("/") || sValue.substr(0, 2).ends_with(':'))
    return "The name is appended to " + sFolder + ": a full path does not work.";
  return "";
}

// A value in quotation marks, or with its beginning in them, without these, if that
// works.
template <class Works>
std::optional<Correction> WithoutQuotes(const std::string& sValue, const Place& place,
                                        Works works) {
  const std::size_t nClosing = sValue.find('"', 1);
  if (!sValue.starts_with('"') || nClosing == std::string::npos) return std::nullopt;
  const std::string sMeant = sValue.substr(1, nClosing - 1) + sValue.substr(nClosing + 1);
  return works(sMeant) ? std::optional(Correction{place, sMeant}) : std::nullopt;
}

// The sentence that the launcher would have for it.
std::string OpenFailure(const std::string& sPath) {
  try {
    TheSystem().OpenInput(sPath);
  } catch (const PlatformError& error) {
    return error.what();
  }
  return "";
}

// Remembers what it found out about the last text, as many products may name one file.
template <class Find>
class Remembered {
 public:
  explicit Remembered(Find find) : find_(std::move(find)) {}

  const auto& operator()(const std::string& sText) {
    if (sText_ != sText) {
      found_ = find_(sText);
      sText_ = sText;
    }
    return found_;
  }

 private:
  Find find_;
  std::optional<std::string> sText_;
  std::invoke_result_t<Find, const std::string&> found_{};
};

std::string ReadMeLine(const Suite& suite, const std::string& sValue) {
  return JoinPath(suite.sFolder, sValue);
}

// A read-me entry, taken apart as the launcher does when it starts it.
struct ReadMe {
  std::string sProgram;  // as it stands in the entry; empty when there is none
  std::string sArguments;
};

PathTests TestsThatRemember() { return {Remembered(IsProgram), Remembered(IsFolder)}; }

ReadMe FindReadMe(const Suite& suite, const std::string& sValue, const PathTests& tests) {
  const std::string sLine = ReadMeLine(suite, sValue);
  CommandLine command = ResolveCommandLine(sLine, tests);
  if (!tests.isFile(command.sProgram)) return {};
  return {sValue.substr(0, command.sProgram.size() - (sLine.size() - sValue.size())),
          std::move(command.sArguments)};
}

// Other files that the same entry might mean: shorter parts of the name that
// are files, too.
std::vector<std::string> OtherReadMes(const Suite& suite, const std::string& sProgram) {
  std::vector<std::string> others;
  const std::size_t nName = sProgram.size() - NameIn(sProgram).size();
  for (std::size_t n = sProgram.find(' ', nName); n != std::string::npos;
       n = sProgram.find(' ', n + 1)) {
    const std::string sPart = sProgram.substr(0, n);
    if (IsProgram(ReadMeLine(suite, sPart))) others.push_back(sPart);
  }
  return others;
}

// Kinds of files that Windows opens with another program, which the launcher
// does not look for.
constexpr std::array<std::string_view, 24> NoPrograms = {
    ".MSI", ".MSP", ".MSU",  ".ZIP", ".7Z",  ".CAB",  ".ISO", ".TXT",
    ".PDF", ".HTM", ".HTML", ".RTF", ".DOC", ".DOCX", ".CHM", ".HLP",
    ".PS1", ".VBS", ".JS",   ".REG", ".INF", ".LNK",  ".URL", ".MD"};

constexpr Rule NotAProgram = {
    "not-a-program", "A file to start is no program by its name.",
    "The launcher starts programs. It does not look for the program that opens a file."};

void ReportNoProgram(const std::string& sProgram, const Place& place, Report report) {
  const std::size_t nDot = std::min(sProgram.rfind('.'), sProgram.size());
  const std::string sEnd = UpperCase(std::string_view(sProgram).substr(nDot));
  if (std::find(NoPrograms.begin(), NoPrograms.end(), sEnd) == NoPrograms.end()) return;
  report.Error(
      place,
      "\"" + sProgram + "\" is no program by its name, and the launcher starts programs only.",
      sEnd.starts_with(".MS") ? "Name a program that starts msiexec with it."
                              : "Name a program that opens it.");
}

constexpr Rule PictureMissing = {"picture-missing", "A picture file does not open.",
                                 "The product shows the launcher's own picture."};

constexpr Rule PictureUnreadable = {"picture-unreadable", "A picture does not load.",
                                    "The product shows the launcher's own picture."};

constexpr Rule PictureSize = {"picture-size", "A picture is not 32 by 32 pixels.",
                              "It is scaled, which hardly ever looks as it was drawn."};

// Empty for one that has the size of the menu's pictures.
std::string LooksScaled(const Picture& picture) {
  constexpr int Side = 32;  // pixels
  const int nWidth = picture.WidthPixels(), nHeight = picture.HeightPixels();
  if (nWidth == Side && nHeight == Side) return "";
  return "The picture is " + std::to_string(nWidth) + " by " + std::to_string(nHeight) +
         " pixels, and the menu scales it to 32 by 32: " +
         (nWidth != nHeight ? "it looks squeezed."
          : nWidth > Side   ? "its fine lines are lost."
                            : "it looks coarse.");
}

struct PictureFaults {
  std::string sMissing;     // why it does not open
  std::string sUnreadable;  // why what is there does not load
  std::string sLooks;
};

PictureFaults FaultsOfPicture(const std::string& sPath) try {
  return {"", "", LooksScaled(Picture::LoadFromFile(sPath))};
} catch (const PlatformError& error) {
  const std::string sMissing = OpenFailure(sPath);
  return {sMissing, sMissing.empty() ? error.what() : "", ""};
}

void ReportMissingPicture(const Suite& suite, const std::string& sValue, const Place& place,
                          const std::string& sReason, Report& report) {
  report
      .Error(place, "The picture is missing: the product shows the launcher's own. " + sReason,
             PathHint(sValue, "the folder of the list"))
      .correction = WithoutQuotes(sValue, place, [&suite](const std::string& sMeant) {
    return OpenFailure(PicturePath(suite, sMeant)).empty();
  });
}

void CheckPictures(const Suite& suite, Report& report) {
  Remembered faultsOf(FaultsOfPicture);
  ForEachFile(suite, "IMAGE", [&](const std::string& sValue, const Place& place) {
    const PictureFaults& faults = faultsOf(PicturePath(suite, sValue));
    if (!faults.sMissing.empty())
      ReportMissingPicture(suite, sValue, place, faults.sMissing, report);
    if (!faults.sUnreadable.empty())
      report.Under(PictureUnreadable)
          .Error(place,
                 "The picture does not load: the product shows the launcher's own. " +
                     faults.sUnreadable,
                 "Use a BMP, ICO, GIF, JPEG or PNG file, 32 by 32 pixels.");
    if (!faults.sLooks.empty())
      report.Under(PictureSize).Warn(place, faults.sLooks, "Draw it in 32 by 32 pixels.");
  });
}

constexpr Rule InstallerMissing = {"installer-missing", "An installer is not in the source folder.",
                                   "Setup of the product ends in an error."};

void ReportMissingInstaller(const Suite& suite, const std::string& sValue, const Place& place,
                            const std::string& sReason, Report& report) {
  const std::string sFirstWord = sValue.substr(0, sValue.find(' '));
  const bool bArguments = sFirstWord != sValue && IsProgram(InstallerPath(suite, sFirstWord));
  report
      .Error(place, "The installer is missing from the source folder. " + sReason,
             bArguments ? "An installer gets no arguments: the whole text is taken for its name."
                        : PathHint(sValue, "the source folder"))
      .correction = WithoutQuotes(sValue, place, [&suite](const std::string& sMeant) {
    return IsProgram(InstallerPath(suite, sMeant));
  });
}

void CheckInstallers(const Suite& suite, Report& report) {
  Remembered failure([](const std::string& sPath) {
    return IsProgram(sPath) ? std::string() : OpenFailure(sPath);
  });
  ForEachFile(suite, "INSTALLFILE", [&](const std::string& sValue, const Place& place) {
    const std::string& sFailure = failure(InstallerPath(suite, sValue));
    if (!sFailure.empty()) ReportMissingInstaller(suite, sValue, place, sFailure, report);
    ReportNoProgram(sValue, place, report.Under(NotAProgram));
  });
}

constexpr Rule ReadMeMissing = {"read-me-missing",
                                "A read-me program is not in the folder of the list.",
                                "Read Me of the product ends in an error."};

void ReportMissingReadMe(const Suite& suite, const std::string& sValue, const Place& place,
                         Report& report) {
  report
      .Error(place,
             "The read-me program is missing from the folder of the list. " +
                 OpenFailure(ReadMeLine(suite, sValue)),
             PathHint(sValue, "the folder of the list"))
      .correction = WithoutQuotes(sValue, place, [&suite](const std::string& sMeant) {
    return !FindReadMe(suite, sMeant, {IsProgram, IsFolder}).sProgram.empty();
  });
}

constexpr Rule ReadMeAmbiguous = {
    "read-me-ambiguous",
    "A read-me program's name has spaces, so that another file may be taken for it.",
    "Where the program's name ends and its arguments begin is taken from which files there are, so "
    "another file may be started."};

void ReportAmbiguousReadMe(const Suite& suite, const std::string& sProgram, const Place& place,
                           Report report) {
  if (NameIn(sProgram).find(' ') == std::string::npos) return;
  std::string sOthers;
  for (const std::string& sOther : OtherReadMes(suite, sProgram))
    sOthers += (sOthers.empty() ? " It could also be \"" : ", \"") + sOther + "\"";
  report.Warn(place,
              "The name of the read-me program has spaces, where its arguments might begin: the "
              "launcher takes \"" +
                  sProgram + "\", the longest part that is a file." + sOthers +
                  (sOthers.empty() ? "" : "."),
              "Give the program a name without spaces.");
}

constexpr Rule ArgumentMissing = {"argument-missing",
                                  "A file that a read-me program is given is not there.",
                                  "The program starts, but has nothing to show."};

// Whether an argument looks like the name of a file.
bool NamesFile(std::string_view sArgument) {
  const std::size_t nDot = sArgument.rfind('.');
  return nDot != std::string_view::npos && nDot > 0 && nDot + 1 < sArgument.size() &&
         !sArgument.starts_with('-') && !sArgument.starts_with('/') &&
         sArgument.find(':') == std::string_view::npos;
}

void ReportMissingArguments(const Suite& suite, const std::string& sArguments, const Place& place,
                            Report report) {
  for (const std::string& sArgument : SplitArguments(sArguments)) {
    if (!NamesFile(sArgument) || StartPathTests().isFile(InFolder(suite.sFolder, sArgument)))
      continue;
    report.Warn(place,
                "The read-me program is given \"" + sArgument +
                    "\", and there is no such file in the folder of the list.",
                "");
  }
}

void CheckReadMes(const Suite& suite, Report& report) {
  const PathTests tests = TestsThatRemember();
  ForEachFile(suite, "READMEFILE", [&](const std::string& sValue, const Place& place) {
    const auto [sProgram, sArguments] = FindReadMe(suite, sValue, tests);
    if (sProgram.empty()) return ReportMissingReadMe(suite, sValue, place, report);
    ReportAmbiguousReadMe(suite, sProgram, place, report.Under(ReadMeAmbiguous));
    ReportMissingArguments(suite, sArguments, place, report.Under(ArgumentMissing));
    ReportNoProgram(sProgram, place, report.Under(NotAProgram));
  });
}

// The name that the file has on the disk, if that differs in letter case alone.
std::optional<std::string> NameOnDisk(const std::string& sPath) try {
  const std::string sName = NameIn(sPath);
  if (sName.find_first_of("*?") != std::string::npos) return std::nullopt;
  auto sFound = TheSystem().Search(sPath)->Next();
  const bool bOther = sFound && *sFound != sName && UpperCase(*sFound) == UpperCase(sName);
  return bOther ? sFound : std::nullopt;
} catch (const PlatformError&) {
  return std::nullopt;
}

// place: where sValue stands, of which the file's name is the end.
void AddSpelling(const std::string& sPath, const std::string& sValue, Place place,
                 std::vector<Correction>& spellings) {
  const auto sName = NameOnDisk(sPath);
  if (!sName) return;
  place.lColumn += static_cast<std::int32_t>(sValue.size() - sName->size());
  place.lLength = static_cast<std::int32_t>(sName->size());
  spellings.push_back({place, *sName});
}

}  // namespace

std::vector<Correction> FileNamesAsOnDisk(const Suite& suite) {
  std::vector<Correction> spellings;
  ForEachFile(suite, "IMAGE", [&](const std::string& sValue, const Place& place) {
    AddSpelling(PicturePath(suite, sValue), sValue, place, spellings);
  });
  ForEachFile(suite, "INSTALLFILE", [&](const std::string& sValue, const Place& place) {
    AddSpelling(InstallerPath(suite, sValue), sValue, place, spellings);
  });
  const PathTests tests = TestsThatRemember();
  ForEachFile(suite, "READMEFILE", [&](const std::string& sValue, const Place& place) {
    const std::string sProgram = FindReadMe(suite, sValue, tests).sProgram;
    AddSpelling(ReadMeLine(suite, sProgram), sProgram, place, spellings);
  });
  return spellings;
}

std::span<const Check> FileChecks() {
  static constexpr std::array Table = {
      Check{&PictureMissing, CheckPictures, {&PictureUnreadable, &PictureSize}},
      Check{&InstallerMissing, CheckInstallers, {&NotAProgram}},
      Check{&ReadMeMissing, CheckReadMes, {&ReadMeAmbiguous, &ArgumentMissing, &NotAProgram}},
  };
  return Table;
}

}  // namespace trelin
