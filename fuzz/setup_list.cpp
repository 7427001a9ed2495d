// The input is the setup list file. Whether it is read at once or in pieces,
// the same comes out: a list whose products are the file's, or the error that
// names the line.

#include "suite/setup_list.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/target.h"
#include "testing/fake_platform.h"
#include "texts/error.h"

namespace trelin {

namespace {

constexpr const char* Path = "C:\\Suite\\TRELIN.CFG";

using Lines = std::vector<std::string_view>;  // trimmed

std::string_view Trimmed(std::string_view sText) {
  while (sText.starts_with(' ')) sText.remove_prefix(1);
  while (sText.ends_with(' ')) sText.remove_suffix(1);
  return sText;
}

// The lines of a file whose tabs are spaces.
Lines LinesOf(std::string_view sFile) {
  Lines lines;
  for (std::size_t nStart = 0, nEnd = 0; nStart < sFile.size(); nStart = nEnd + 1) {
    for (nEnd = nStart; nEnd < sFile.size() && sFile[nEnd] != '\r' && sFile[nEnd] != '\n';) ++nEnd;
    lines.push_back(Trimmed(sFile.substr(nStart, nEnd - nStart)));
    if (sFile.substr(nEnd).starts_with("\r\n")) ++nEnd;
  }
  return lines;
}

// Takes the first word off a trimmed text.
std::string_view TakeWord(std::string_view& sText) {
  const std::string_view sWord = sText.substr(0, sText.find(' '));
  sText = Trimmed(sText.substr(sWord.size()));
  return sWord;
}

bool IsWord(std::string_view sText, std::string_view sUpper) {
  return std::equal(sText.begin(), sText.end(), sUpper.begin(), sUpper.end(), [](char c, char u) {
    return c == u || (c >= 'a' && c <= 'z' && c - 'a' + 'A' == u);
  });
}

bool IsProduct(std::string_view sLine) {
  return IsWord(TakeWord(sLine), "BLOCK") && IsWord(TakeWord(sLine), "APPLICATION");
}

// Whether the line is of none of the kinds.
bool IsFaulty(std::string_view sLine) {
  if (sLine.empty() || sLine[0] == ';' || sLine.find('=') != std::string_view::npos) return false;
  const std::string_view sWord = TakeWord(sLine);
  return !IsWord(sWord, "BLOCK") && !IsWord(sWord, "END");
}

void CheckError(const Error& error, const Lines& lines) {
  if (error.Number() == 5000) {
    CheckEqual("BlockParse.GetToken", error.Source(), "the source of error 5000");
    const auto faulty = std::find_if(lines.begin(), lines.end(), IsFaulty);
    CheckEqual("35008(" + std::to_string(faulty - lines.begin() + 1) + ")", error.Description(),
               "error 5000 names the first line that is none of the kinds");
    return;
  }
  Check(error.Number() == 5001, "the number of an error is 5000 or 5001");
  CheckEqual("35009", error.Source(), "the source of error 5001");
  const std::string sTemplate = error.Description().substr(0, 6);
  Check(sTemplate == "35005(" || sTemplate == "35010(" || sTemplate == "35011(" ||
            sTemplate == "35012(",
        "error 5001 is described by a template of the setup list's");
}

void CheckProduct(MenuItem& item) {
  const std::vector<std::string> statuses = {"35015", "35016", "35017", "35018", "35032"};
  Check(std::find(statuses.begin(), statuses.end(), item.Status()) != statuses.end(),
        "a status is one of five");
  Check(item.Updated() == (item.Status() != "35015"), "a product counts as not installed at first");
  Check(item.NewerVersion() || item.Status() != "35018", "a higher revision is remembered");
  Check(item.LastError().empty(), "nothing has failed before the prerequisites are checked");
  const bool bMet = item.CheckDependencies();
  Check(bMet == item.LastError().empty(), "the reason of a prerequisite that is not met is there");
}

void CheckList(SetupList& list, const Lines& lines) {
  const std::int32_t lCount = list.MenuItems().Count();
  Check(lCount == std::count_if(lines.begin(), lines.end(), IsProduct), "every product is there");
  Check(list.TopIndex() == 0 && list.CurrentIndex() == 0 && list.DisplayItems() == 4,
        "reading leaves the window's numbers as they are");
  for (const std::int32_t lOutside : {0, lCount + 1}) {
    try {
      list.MenuItems().Item(lOutside);
      Check(false, "there is no product outside 1 to the count");
    } catch (const std::out_of_range&) {
      continue;
    }
  }
  for (std::int32_t i = 1; i <= lCount; ++i) CheckProduct(*list.MenuItems().Item(i));
  const bool bMet = list.CheckDependencies();
  Check(bMet == list.LastError().empty(), "the list hands a product's error on");
  Check(list.LastError().empty(), "reading an error consumes it");
}

std::string Describe(SetupList& list) {
  std::string sAll;
  for (std::int32_t i = 1; i <= list.MenuItems().Count(); ++i) {
    const auto item = list.MenuItems().Item(i);
    for (const std::string& sPart : {item->Title(), item->Description(), item->Status(),
                                     item->ImageFile(), item->ReadMeFile(), item->InstallFile()})
      sAll += sPart + '\n';
    sAll += item->CheckDependencies() ? "met\n" : item->LastError() + '\n';
  }
  return sAll;
}

// Every input meets the same records.
struct RecordedPlatform : FakePlatform {
  RecordedPlatform();
};

RecordedPlatform::RecordedPlatform() {
  faults.bCounts = false;
  const std::string sLog = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\InstallLog";
  for (const auto& [sName, sValue] : {std::pair("RUNTIME", " 3.1"),
                                      {"RUNTIMECheckFile", "C:\\there"},
                                      {"INSPECT", "5.0"},
                                      {"INSPECTCheckFile", "C:\\gone"},
                                      {"A", "2"},
                                      {"", "1"},
                                      {"CheckFile", "C:\\there"}})
    registry.SetText(sLog, sName, sValue);
  system.files["C:\\there"];
}

// What became of the file, in words.
std::string Load(std::string_view sFile, std::size_t nPiece, const Lines& lines) {
  static RecordedPlatform platform;
  platform.system.files[Path] = sFile;
  platform.system.nPiece = nPiece;
  platform.system.nBeeps = 0;
  platform.system.messages.clear();
  platform.faults.log.clear();

  SetupList list;
  list.Initialize();
  std::string sOutcome;
  try {
    list.LoadFromFile(Path);
    CheckList(list, lines);
    sOutcome = Describe(list);
  } catch (const Error& error) {
    CheckError(error, lines);
    sOutcome = error.Description();
  } catch (const std::overflow_error& error) {
    Check(sFile.size() > 32767, "a short line is not too long");
    sOutcome = error.what();
  }
  Check(platform.system.nOpenFiles == 0, "the file is closed");
  Check(platform.registry.OpenHandles() == 0, "the registry's keys are closed");
  list.Terminate();
  for (const ShownMessage& message : platform.system.messages)
    sOutcome += message.sTitle + ": " + message.sText + '\n';
  return sOutcome + std::to_string(platform.system.nBeeps);
}

}  // namespace

void Try(std::string_view sInput) {
  std::string sSpaced(sInput);
  std::replace(sSpaced.begin(), sSpaced.end(), '\t', ' ');
  const Lines lines = LinesOf(sSpaced);
  CheckEqual(Load(sInput, 65536, lines), Load(sInput, 1 + sInput.size() % 13, lines),
             "it does not count in which pieces the file is read");
}

}  // namespace trelin
