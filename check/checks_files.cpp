// Checks of the files that the list names. Windows starts a program also when
// its name lacks the ".exe", and finds files in any letter case.

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
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

// Remembers what it found out about the last path, as many products may name one.
template <class Found>
class Remembered {
 public:
  explicit Remembered(Found (*find)(const std::string&)) : find_(find) {}

  Found operator()(const std::string& sPath) {
    if (sPath_ != sPath) {
      found_ = find_(sPath);
      sPath_ = sPath;
    }
    return found_;
  }

 private:
  Found (*find_)(const std::string&);
  std::optional<std::string> sPath_;
  Found found_;
};

std::string ReadMeLine(const Suite& suite, const std::string& sValue) {
  return JoinPath(suite.sFolder, sValue);
}

// The program as it stands in a read-me entry, taken apart as the launcher does
// when it starts it; empty when there is none.
std::string ReadMeProgram(const Suite& suite, const std::string& sValue) {
  const std::string sLine = ReadMeLine(suite, sValue);
  const CommandLine command = ResolveCommandLine(sLine, {IsProgram, IsFolder});
  if (!IsProgram(command.sProgram)) return "";
  return sValue.substr(0, command.sProgram.size() - (sLine.size() - sValue.size()));
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

bool EndsWithAnyCase(const std::string& sName, std::string_view sUpperEnd) {
  if (sName.size() < sUpperEnd.size()) return false;
  return UpperCase(sName.substr(sName.size() - sUpperEnd.size())) == sUpperEnd;
}

// Kinds of files that Windows opens with another program, which the launcher
// does not look for.
constexpr std::array NoPrograms = {".MSI", ".MSP", ".MSU",  ".ZIP", ".7Z",  ".CAB",  ".ISO", ".TXT",
                                   ".PDF", ".HTM", ".HTML", ".RTF", ".DOC", ".DOCX", ".CHM", ".HLP",
                                   ".PS1", ".VBS", ".JS",   ".REG", ".INF", ".LNK",  ".URL", ".MD"};

void ReportNoProgram(const std::string& sProgram, const Place& place, Report& report) {
  for (const char* pEnd : NoPrograms) {
    if (!EndsWithAnyCase(sProgram, pEnd)) continue;
    const bool bInstallerFile = std::string_view(pEnd).starts_with(".MS");
    report.Error(
        place,
        "\"" + sProgram + "\" is no program by its name, and the launcher starts programs only.",
        bInstallerFile ? "Name a program that starts msiexec with it."
                       : "Name a program that opens it.");
  }
}

constexpr Rule PictureMissing = {"picture-missing", "A picture file does not open.",
                                 "The product shows the launcher's own picture."};

void CheckPicturesThere(const Suite& suite, Report& report) {
  Remembered failure(OpenFailure);
  ForEachFile(suite, "IMAGE", [&](const std::string& sValue, const Place& place) {
    const std::string sFailure = failure(PicturePath(suite, sValue));
    if (sFailure.empty()) return;
    report
        .Error(place, "The picture is missing: the product shows the launcher's own. " + sFailure,
               PathHint(sValue, "the folder of the list"))
        .correction = WithoutQuotes(sValue, place, [&](const std::string& sMeant) {
      return failure(PicturePath(suite, sMeant)).empty();
    });
  });
}

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

struct LoadedPicture {
  std::string sFailure;  // of a file that is there
  std::string sLooks;
};

LoadedPicture LoadPicture(const std::string& sPath) try {
  return {"", LooksScaled(Picture::LoadFromFile(sPath))};
} catch (const PlatformError& error) {
  return {OpenFailure(sPath).empty() ? error.what() : "", ""};
}

void CheckPicturesLoad(const Suite& suite, Report& report) {
  Remembered loaded(LoadPicture);
  ForEachFile(suite, "IMAGE", [&](const std::string& sValue, const Place& place) {
    const auto [sFailure, sLooks] = loaded(PicturePath(suite, sValue));
    if (!sFailure.empty())
      report.Error(place,
                   "The picture does not load: the product shows the launcher's own. " + sFailure,
                   "Use a BMP, ICO, GIF, JPEG or PNG file, 32 by 32 pixels.");
    if (!sLooks.empty())
      report.Under(PictureSize).Warn(place, sLooks, "Draw it in 32 by 32 pixels.");
  });
}

constexpr Rule InstallerMissing = {"installer-missing", "An installer is not in the source folder.",
                                   "Setup of the product ends in an error."};

void CheckInstallersThere(const Suite& suite, Report& report) {
  Remembered failure(+[](const std::string& sPath) {
    return IsProgram(sPath) ? std::string() : OpenFailure(sPath);
  });
  ForEachFile(suite, "INSTALLFILE", [&](const std::string& sValue, const Place& place) {
    const std::string sFailure = failure(InstallerPath(suite, sValue));
    if (sFailure.empty()) return;
    const std::string sFirstWord = sValue.substr(0, sValue.find(' '));
    const bool bArguments = sFirstWord != sValue && IsProgram(InstallerPath(suite, sFirstWord));
    report
        .Error(place, "The installer is missing from the source folder. " + sFailure,
               bArguments ? "An installer gets no arguments: the whole text is taken for its name."
                          : PathHint(sValue, "the source folder"))
        .correction = WithoutQuotes(sValue, place, [&](const std::string& sMeant) {
      return IsProgram(InstallerPath(suite, sMeant));
    });
  });
}

constexpr Rule ReadMeMissing = {"read-me-missing",
                                "A read-me program is not in the folder of the list.",
                                "Read Me of the product ends in an error."};

void CheckReadMesThere(const Suite& suite, Report& report) {
  ForEachFile(suite, "READMEFILE", [&](const std::string& sValue, const Place& place) {
    if (!ReadMeProgram(suite, sValue).empty()) return;
    report
        .Error(place,
               "The read-me program is missing from the folder of the list. " +
                   OpenFailure(ReadMeLine(suite, sValue)),
               PathHint(sValue, "the folder of the list"))
        .correction = WithoutQuotes(sValue, place, [&](const std::string& sMeant) {
      return !ReadMeProgram(suite, sMeant).empty();
    });
  });
}

constexpr Rule ReadMeAmbiguous = {
    "read-me-ambiguous",
    "A read-me program's name has spaces, so that another file may be taken for it.",
    "Where the program's name ends and its arguments begin is taken from which files there are, so "
    "another file may be started."};

void CheckReadMesClear(const Suite& suite, Report& report) {
  ForEachFile(suite, "READMEFILE", [&](const std::string& sValue, const Place& place) {
    const std::string sProgram = ReadMeProgram(suite, sValue);
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
  });
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

void CheckReadMeArguments(const Suite& suite, Report& report) {
  ForEachFile(suite, "READMEFILE", [&](const std::string& sValue, const Place& place) {
    if (ReadMeProgram(suite, sValue).empty()) return;
    const CommandLine command =
        ResolveCommandLine(ReadMeLine(suite, sValue), {IsProgram, IsFolder});
    for (const std::string& sArgument : SplitArguments(command.sArguments)) {
      if (!NamesFile(sArgument) || StartPathTests().isFile(InFolder(suite.sFolder, sArgument)))
        continue;
      report.Warn(place,
                  "The read-me program is given \"" + sArgument +
                      "\", and there is no such file in the folder of the list.",
                  "");
    }
  });
}

constexpr Rule NotAProgram = {
    "not-a-program", "A file to start is no program by its name.",
    "The launcher starts programs. It does not look for the program that opens a file."};

void CheckPrograms(const Suite& suite, Report& report) {
  ForEachFile(suite, "INSTALLFILE", [&](const std::string& sValue, const Place& place) {
    ReportNoProgram(sValue, place, report);
  });
  ForEachFile(suite, "READMEFILE", [&](const std::string& sValue, const Place& place) {
    ReportNoProgram(ReadMeProgram(suite, sValue), place, report);
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
  ForEachFile(suite, "READMEFILE", [&](const std::string& sValue, const Place& place) {
    const std::string sProgram = ReadMeProgram(suite, sValue);
    AddSpelling(ReadMeLine(suite, sProgram), sProgram, place, spellings);
  });
  return spellings;
}

std::span<const Check> FileChecks() {
  static constexpr std::array Table = {
      Check{&PictureMissing, CheckPicturesThere},
      Check{&PictureUnreadable, CheckPicturesLoad, &PictureSize},
      Check{&InstallerMissing, CheckInstallersThere},
      Check{&ReadMeMissing, CheckReadMesThere},
      Check{&ReadMeAmbiguous, CheckReadMesClear},
      Check{&ArgumentMissing, CheckReadMeArguments},
      Check{&NotAProgram, CheckPrograms},
  };
  return Table;
}

}  // namespace trelin
