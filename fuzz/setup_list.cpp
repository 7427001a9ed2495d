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

struct Line {
  std::string sText;               // tabs as spaces, trimmed
  std::vector<std::string> words;  // the first two, in upper case
};

std::string UpperAscii(std::string sText) {
  for (char& c : sText)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return sText;
}

std::vector<std::string> Words(const std::string& sText) {
  std::vector<std::string> words;
  std::size_t nStart = sText.find_first_not_of(' ');
  while (nStart != std::string::npos && words.size() < 2) {
    const std::size_t nEnd = std::min(sText.find(' ', nStart), sText.size());
    words.push_back(UpperAscii(sText.substr(nStart, nEnd - nStart)));
    nStart = sText.find_first_not_of(' ', nEnd);
  }
  return words;
}

void AddLine(std::vector<Line>& lines, std::string sText) {
  std::replace(sText.begin(), sText.end(), '\t', ' ');
  sText.erase(0, sText.find_first_not_of(' '));
  sText.erase(sText.find_last_not_of(' ') + 1);
  lines.push_back({sText, Words(sText)});
}

std::vector<Line> Lines(std::string_view sFile) {
  std::vector<Line> lines;
  std::string sLine;
  for (std::size_t i = 0; i < sFile.size(); ++i) {
    const bool bLineFeed = sFile[i] == '\n';
    if (bLineFeed && i > 0 && sFile[i - 1] == '\r') continue;
    if (bLineFeed || sFile[i] == '\r')
      AddLine(lines, std::exchange(sLine, {}));
    else
      sLine += sFile[i];
  }
  if (!sLine.empty()) AddLine(lines, sLine);
  return lines;
}

bool IsProduct(const Line& line) {
  return line.words.size() == 2 && line.words[0] == "BLOCK" && line.words[1] == "APPLICATION";
}

// Whether the line is of none of the kinds.
bool IsFaulty(const Line& line) {
  return !line.sText.empty() && line.sText[0] != ';' && line.words[0] != "BLOCK" &&
         line.words[0] != "END" && line.sText.find('=') == std::string::npos;
}

void CheckError(const Error& error, const std::vector<Line>& lines) {
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

void CheckList(SetupList& list, const std::vector<Line>& lines) {
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
    for (const std::string* sPart : {&item->Title(), &item->Description(), &item->Status(),
                                     &item->ImageFile(), &item->ReadMeFile(), &item->InstallFile()})
      sAll += *sPart + '\n';
    sAll += item->CheckDependencies() ? "met\n" : item->LastError() + '\n';
  }
  return sAll;
}

void Record(MemoryRegistry& registry) {
  const std::string sLog = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\InstallLog";
  for (const auto& [sName, sValue] : {std::pair("RUNTIME", " 3.1"),
                                      {"RUNTIMECheckFile", "C:\\there"},
                                      {"INSPECT", "5.0"},
                                      {"INSPECTCheckFile", "C:\\gone"},
                                      {"A", "2"},
                                      {"", "1"},
                                      {"CheckFile", "C:\\there"}})
    registry.SetText(sLog, sName, sValue);
}

// What became of the file, in words.
std::string Load(std::string_view sFile, std::size_t nPiece, const std::vector<Line>& lines) {
  FakePlatform platform;
  platform.faults.bCounts = false;
  Record(platform.registry);
  platform.system.files = {{"C:\\there", ""}, {"C:\\Suite\\TRELIN.CFG", std::string(sFile)}};
  platform.system.nPiece = nPiece;

  SetupList list;
  list.Initialize();
  std::string sOutcome;
  try {
    list.LoadFromFile("C:\\Suite\\TRELIN.CFG");
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
  const std::vector<Line> lines = Lines(sInput);
  CheckEqual(Load(sInput, 65536, lines), Load(sInput, 1 + sInput.size() % 13, lines),
             "it does not count in which pieces the file is read");
}

}  // namespace trelin
