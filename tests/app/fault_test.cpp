// The whole program on a platform of which a call fails, for every call that
// it makes and every way in which that can fail.

#include <map>
#include <regex>
#include <set>

#include "shared/modal_loop.h"
#include "testing/temporary_folder.h"
#include "tests/app/program_window.h"
#include "texts/string_resources.h"

namespace trelin {
namespace {

const std::string Root = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\";

// What the user sees and hears of a run without a fault; of a status and of the
// timer, that it is another one than before. Product 1 is newer than the list's
// and lacks a prerequisite, product 2 is set up and then found changed.
const std::string Questions = "35014 52: 35030\nNo\n35014 52: 35030\nYes\n";
const std::string Setup = "start \"C:\\Suite\\p2.exe\"\ntimer\n2 35018\nno timer\n";
const std::string ReadMe = "start C:\\Suite\\read me.exe\n";
const std::string Story =
    "2|First line|Second line|\n35009 0: 35013(35014|EXTRA)\nbeep\n"
    "menu 35014 35027 35028 35024 n1 n2\n1 35018\n2 35016\n3 35015\n4 35015\n" +
    Questions + "35031 64: 35038(S)\n" + Setup + ReadMe + "5 35015\n";

std::string NoCount(const std::string& sRead) {
  return "Error at Trelin 64: The string library ENU35000.DLL is missing from the folder of "
         "Trelin, or it is damaged.\n\nPlease copy it there again from the setup disk and start "
         "Trelin once more. The number of notice lines (string 35040) should be a whole number but "
         "reads \"" +
         sRead + "\".";
}

// What calls change that fail in a way, by a pattern for the call, its number
// among equal ones and the way: parts of the story, and what they read then.
// Without a part, the story ends there with the text; without a change, the user
// sees no difference. What is not here is a text, which then reads as a fallback
// where it stands, or ends the program with a message.
struct Outcome {
  std::regex calls;
  std::vector<std::pair<std::string, std::string>> changes;
  Outcome(const char* pCalls, decltype(changes) c) : calls(pCalls), changes(std::move(c)) {}
};

const Outcome outcomes[] = {
    {R"(Load .* R)", {{"", NoCount("Error: Resource File Not Found")}}},
    {R"(LoadText 35040 .* R)", {{"", NoCount("35000(35040)")}}},
    {R"(LoadText 35041 .* R)", {{"First line", "35000(35041)"}}},
    {R"(LoadText 35042 .* R)", {{"Second line", "35000(35042)"}}},
    // An existing key that does not open is opened by creating it.
    {R"(OpenKey (SOFTWARE|Korvanta|Copyright) .* R|CloseKey .*)", {}},
    {R"(CreateKey (Copyright) .* R)", {{"", "Error at RegEntry.CreateInternal 64: 35001($1)"}}},
    {R"(SetValue (\w+) .* R)", {{"", "Error at RegEntry.SetValue 64: 35003($1)"}}},

    {R"(LoadText 35015 #[0-4] R)", {}},  // before the first check
    {R"(LoadText 35015 #5 R)", {{"3 35015", "3 35000(35015)"}}},
    {R"(LoadText 35015 #6 R)", {{"4 35015", "4 35000(35015)"}}},
    {R"(LoadText 35015 #7 R)", {{"5 35015", "5 35000(35015)"}}},
    {R"(LoadText 35016 #0 R)", {{"2 35016", "2 35000(35016)"}, {"2 35018", "2 35016"}}},
    {R"(LoadText 35016 #1 R)", {{"2 35018", "2 35000(35016)"}}},

    // Each check tests whether the log opens, then opens it. A product that is not
    // read is not known to be newer.
    {R"((OpenKey .*InstallLog #0|QueryValue P1 .*) R)",
     {{"1 35018", "1 35015"}, {"4 35015\n" + Questions, "4 35015\n35031 64: 35038(S)\n"}}},
    {R"((OpenKey .*InstallLog #2|QueryValue P2 #0) R)",
     {{"2 35016", "2 35015"}, {"2 35018", "2 35016"}}},
    {R"(OpenKey .*InstallLog #4 R)", {{"35038(S)", "35035(S)"}}},
    {R"(OpenKey .*InstallLog #6 R)", {{Setup, "35031 64: 35035(R)\n"}}},
    {R"(OpenKey .*InstallLog #(8|10) R|QueryValue P2 #[12] R)", {{"2 35018", "2 35015"}}},
    {R"(OpenKey (.*InstallLog) #[1357] R)", {{"", "RegEntry.OpenInternal 16: 35001($1)"}}},
    // After a tick that fails the next one looks again.
    {R"(OpenKey .*InstallLog #(9 R|[89] B)|QueryValue P2(CheckFile)? #1 B)", {}},
    {R"(OpenKey .*InstallLog #(11 R|1[01] B)|QueryValue P2(CheckFile)? #2 B)",
     {{"timer\n2 35018\nno timer\n", "timer\n"}}},
    {R"(QueryValue (P1CheckFile|P2CheckFile|S) .* R)", {}},  // the missing file of S counts more
    {R"(QueryValue SCheckFile .* R)", {{"35038(S)", "35039(S)"}}},
    {R"(QueryValue R .* R)", {{Setup, "35031 64: 35036(R)\n"}}},
    {R"(QueryValue RCheckFile .* R)", {{Setup, "35031 64: 35039(R)\n"}}},
    {R"((Search|Next) C:\\gone .*|Next C:\\(p1|r) #1 R)", {}},
    {R"((Search|Next) C:\\p1 .*)", {{"1 35018", "1 35032"}}},
    {R"((Search|Next) C:\\r .*)", {{Setup, "35031 64: 35038(R)\n"}}},

    {R"(ProgramFolder  #3 .*|(OpenInput|Read) C:\\Suite\\gear.bmp .*)", {{"n1 n2", "n2"}}},
    {R"(ProgramFolder  #4 .*|(OpenInput|Read) C:\\Suite\\optics.ico .*)", {{"n1 n2", "n1"}}},
    {R"(StartProgram (.*p2.*) #0 B)",
     {{Setup, "35014 16: Could not StartProgram \"$1\": it is broken.\n"}}},
    {R"(StartProgram (.*me.*) #0 B)",
     {{ReadMe, "35014 16: Could not StartProgram \"$1\": it is broken.\n"}}},
};

// The story of a run in which a call fails, before which nIndex read the same.
std::string Expected(const Faults::Call& call, int nIndex, char cKind) {
  const std::string sCall = call.Text() + " #" + std::to_string(nIndex) + " " + cKind;
  std::smatch match;
  std::string sTold = Story;
  for (const Outcome& outcome : outcomes) {
    if (!std::regex_match(sCall, match, outcome.calls)) continue;
    for (const auto& [sPart, sText] : outcome.changes) {
      if (sPart.empty()) return Story.substr(0, call.nLogged) + match.format(sText) + "\n";
      sTold.replace(sTold.find(sPart), sPart.size(), match.format(sText));  // throws without it
    }
    return sTold;
  }
  if (cKind == Faults::Result) {
    const std::regex text(call.sArgument + R"((\([^)]*\))?)");
    for (std::sregex_iterator place(Story.begin(), Story.end(), text), end; place != end; ++place)
      if (nIndex-- == 0)
        return sTold.replace(static_cast<std::size_t>(place->position()), place->str().size(),
                             "35000(" + call.sArgument + ")");
    return "an outcome that is not known";
  }
  return Story.substr(0, call.nLogged) +
         (call.nLogged == 0 ? "Error at Trelin 64: " : "Trelin 16: ") +
         (cKind == Faults::NoMemory
              ? "There is not enough memory to go on."
              : "Could not " + call.sOperation + " \"" + call.sArgument + "\": it is broken.") +
         "\n";
}

// The lines of a log without what may come together in another way when more
// fails: texts of the string library and pictures.
std::set<std::string> Outlines(const std::string& sLog) {
  static const std::regex variable(
      R"((Error: String Not Found|35000\(350..\)|350\d\d)(\([^)]*\))?|First line|Second line| n\d)");
  std::istringstream lines(std::regex_replace(sLog, variable, ""));
  std::set<std::string> outlines;
  for (std::string sLine; std::getline(lines, sLine);) outlines.insert(sLine);
  return outlines;
}

class FaultWindow : public ProgramWindowTest {
 protected:
  FaultWindow() {
    WriteList(
        "TITLE = Suite\nEXTRA = x\nBLOCK APPLICATION\nPRODUCT = 1\nWHAT = x\nPRODUCTCODE = P1\n"
        "REVISION = 1\nIMAGE = gear.bmp\nINSTALLFILE = p1.exe\n"
        "BLOCK DEPENDENCY\nPRODUCTCODE = S\nREVISION = 1\nTITLE = S\nEND\nEND\n"
        "BLOCK APPLICATION\nPRODUCT = 2\nPRODUCTCODE = P2\nREVISION = 1\nIMAGE = optics.ico\n"
        "INSTALLFILE = p2.exe\nREADMEFILE = read me.exe\n"
        "BLOCK DEPENDENCY\nPRODUCTCODE = R\nREVISION = 1\nTITLE = R\nEND\nEND\n"
        "BLOCK APPLICATION\nPRODUCT = 3\nEND\nBLOCK APPLICATION\nPRODUCT = 4\nEND\n"
        "BLOCK APPLICATION\nPRODUCT = 5\nEND\n");
    for (const char* pName : {"gear.bmp", "optics.ico"})
      system.files[std::string("C:\\Suite\\") + pName] =
          FileBytes(std::string(TRELIN_SOURCE_DIR "/demo/pictures/") + pName);
    system.files["C:\\p1"] = system.files["C:\\r"] = "";
    system.onMessage = [this] {
      if (system.messages.back().buttons == MessageButtons::Ok) return MessageAnswer::Ok;
      const bool bFirst = seen.emplace("asked", "").second;
      faults.log += bFirst ? "No\n" : "Yes\n";
      return bFirst ? MessageAnswer::No : MessageAnswer::Yes;
    };
  }

  void LogNoticeLines() {
    for (const char* pName : {"NumLines", "Line1", "Line2"})
      faults.log += registry.Text(Root + "Copyright", pName).value_or("") + "|";
    faults.log += "\n";
  }

  void LogIfOther(const std::string& sWhat, const std::string& sNow, const std::string& sLine) {
    if (std::exchange(seen[sWhat], sNow) != sNow) faults.log += sLine + "\n";
  }

  void Look() {
    auto& menu = MainMenu();
    std::string sMenu = "menu " + menu.Caption();
    for (const Button* pButton : {&menu.cmdSetup, &menu.cmdReadMe, &menu.cmdExit})
      sMenu += " " + pButton->Caption();
    for (const char* sKey : {"n1", "n2", "n3"})
      if (menu.imlIcons.Contains(sKey)) sMenu += " " + std::string(sKey);
    LogIfOther("menu", sMenu, sMenu);
    for (std::int16_t i = 0; i < frmMainMenu::Rows; ++i) {
      const std::string sTitle = menu.lblTitle[i].Caption(), sStatus = menu.lblStatus[i].Caption();
      LogIfOther(sTitle, sStatus, sTitle + " " + sStatus);
    }
    const std::string sTimer = menu.Timer1.Enabled() ? "timer" : "no timer";
    LogIfOther("timer", sTimer, sTimer);
  }

  static void Tick() {
    if (MainMenu().Timer1.Enabled()) DispatchInput(MainMenu().Timer1.OnTimer);
  }

  void UseTheMenu() {
    MainMenu().Timer1.SetInterval(60000);  // ticks come from here
    const Driver::Script steps[] = {
        [] {},
        [] { PressRow(0), Driver::Type(Key::Enter); },
        [] { Driver::Type(Key::Enter); },
        [] { PressRow(1), Driver::Type(Key::Enter); },
        Tick,
        [&] { registry.SetText(Root + "InstallLog", "P2", "2"), Tick(); },
        [] { Driver::Click(MainMenu().cmdReadMe); },
        [] { Driver::TurnWheel(MainMenu().picList, -1); },
    };
    for (const Driver::Script& step : steps) {
      step();
      if (ModalLoop::Innermost()->Ended()) return;
      Look();
    }
    Driver::Type(Key::Escape);
  }

  // One run of the program with one fault; what the user is told.
  std::string Run(std::size_t nFailing, char cKind, Faults::Reach reach) {
    registry.ReplaceTree(RegistryNode::NewTree());
    const std::pair<const char*, const char*> records[] = {
        {"P1", "2"}, {"P1CheckFile", "C:\\p1"}, {"P2", "1"}, {"R", "1"}, {"RCheckFile", "C:\\r"},
        {"S", "1"},  {"SCheckFile", "C:\\gone"}};
    for (const auto& [pName, pText] : records) Record(pName, pText);
    seen = {{"timer", "no timer"}};
    faults = {};
    faults.nFailing = nFailing;
    faults.cKind = cKind;
    faults.reach = reach;
    EXPECT_NO_THROW(RunProgram([this] { LogNoticeLines(); }, [this] { UseTheMenu(); }));
    faults.nFailing = 0;
    EXPECT_EQ(registry.OpenHandles(), 0U);
    EXPECT_EQ(system.nOpenFiles, 0);
    EXPECT_EQ(libraries.nOpen, static_cast<int>(LoadedLibraries().size()));
    FreeResourceLibraries();
    EXPECT_EQ(libraries.nOpen, 0);
    return faults.log;
  }

  std::map<std::string, std::string> seen;
};

TEST_F(FaultWindow, EveryFaultHasItsOutcome) {
  ASSERT_EQ(Run(0, Faults::Result, Faults::Reach::Nothing), Story);
  const std::vector<Faults::Call> calls = faults.calls;
  std::map<std::string, int> counts;
  std::map<std::pair<std::size_t, char>, std::string> alone;
  std::set<std::string> outlines;
  for (std::size_t i = 0; i < calls.size(); ++i) {
    const int nIndex = counts[calls[i].Text()]++;
    for (const char cKind : calls[i].sKinds) {
      const std::string sTold = Run(i + 1, cKind, Faults::Reach::Nothing);
      EXPECT_EQ(sTold, Expected(calls[i], nIndex, cKind))
          << calls[i].Text() << " #" << nIndex << " " << cKind;
      outlines.merge(Outlines(sTold));
      alone[{i, cKind}] = sTold;
    }
  }
  for (const auto& [fault, sAlone] : alone) {
    const auto& [i, cKind] = fault;
    const std::string sTold = Run(i + 1, cKind, Faults::Reach::Everything);
    const std::string sWhere = calls[i].Text() + " " + cKind + ", and all after it";
    EXPECT_EQ(sTold.substr(0, faults.nSecondFault), sAlone.substr(0, faults.nSecondFault))
        << sWhere;
    for (const std::string& sOutline : Outlines(sTold))
      EXPECT_TRUE(outlines.contains(sOutline)) << sWhere << ": " << sOutline;
  }
}

}  // namespace
}  // namespace trelin
