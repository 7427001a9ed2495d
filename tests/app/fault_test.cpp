// The whole program on a platform of which a call fails, for every call that
// it makes and every way in which that can fail.

#include <regex>
#include <set>

#include "seam/platform_error.h"
#include "shared/modal_loop.h"
#include "testing/temporary_folder.h"
#include "tests/app/program_window.h"
#include "texts/string_resources.h"

namespace trelin {
namespace {

using Lines = std::vector<std::string>;

// What the user sees and hears. Product 1 is newer than the list's and lacks a
// prerequisite, product 2 is set up and then found changed.
struct Story {
  std::string sNotice = "2|First line|Second line";
  std::string sUnknownKey = "35009 0: 35013(35014|EXTRA)";
  std::string sCaptions = "35014 35027 35028 35024";
  std::string sPictures = " n1 n2";
  std::string sStatus1 = "35018", sStatus2 = "35016";
  std::string sStatus3 = "35015", sStatus4 = "35015", sStatus5 = "35015";
  std::string sQuestion1 = "35014 52: 35030", sQuestion2 = sQuestion1;
  std::string sUnmet = "35031 64: 35038(S)";
  std::string sSetup = "start \"C:\\Suite\\p2.exe\"";
  std::string sTick1 = "35016", sTick2 = "35018";
  std::string sReadMe = "start C:\\Suite\\read me.exe";

  Lines Tell() const {
    std::string sNow2 = sStatus2;
    bool bTimer = false;
    const auto rows = [&] {
      return "1 " + sStatus1 + ", 2 " + sNow2 + ", 3 " + sStatus3 + ", 4 " + sStatus4 + ", " +
             (bTimer ? "timer" : "");
    };
    const auto tick = [&](const std::string& sStatus) {
      if (bTimer) bTimer = std::exchange(sNow2, sStatus) == sStatus;
      return rows();
    };
    Lines lines = {"agreement " + sNotice, sUnknownKey, "beep", "menu " + sCaptions + sPictures,
                   rows()};
    if (sStatus1 == "35015")  // not read, so that it is not known to be newer
      lines.insert(lines.end(), {sUnmet, rows(), sUnmet, rows(), sSetup});
    else
      lines.insert(lines.end(), {sQuestion1, rows(), sQuestion2, sUnmet, rows(), sSetup});
    bTimer = sSetup.starts_with("start");
    for (const std::string& sStatus : {sNow2, sTick1, sTick2}) lines.push_back(tick(sStatus));
    lines.insert(lines.end(), {sReadMe, rows()});
    lines.push_back("2 " + sNow2 + ", 3 " + sStatus3 + ", 4 " + sStatus4 + ", 5 " + sStatus5 +
                    ", " + (bTimer ? "timer" : ""));
    return lines;
  }
};

// What a call that fails changes.
struct Outcome {
  const char* sCall;    // operation and argument
  std::set<int> which;  // of the calls that read so, from 0; empty: all
  const char* sKinds;
  // The part of the story that reads sText instead; without a text, it has
  // "35000(number)" for the number in the call. Without a part, sText is the
  // message that ends the program, or the user sees no difference.
  std::string Story::*part = nullptr;
  std::string sText = {};
};

const std::string sLog = "SOFTWARE\\Korvanta\\InstallLog";

std::string NoCount(const std::string& sRead) {
  return "Error at Trelin 64: The string library ENU35000.DLL is missing from the folder of "
         "Trelin, "
         "or it is damaged.\n\nPlease copy it there again from the setup disk and start Trelin "
         "once "
         "more. The number of notice lines (string 35040) should be a whole number but reads \"" +
         sRead + "\".";
}

std::string BrokenText(const std::string& sOperation, const std::string& sArgument) {
  return PlatformError(sOperation, sArgument, "it is broken").what();
}

const std::string sNoLibrary = NoCount("Error: Resource File Not Found");
const std::string sSetupProgram = "\"C:\\Suite\\p2.exe\"";
const std::string sReadMeProgram = "C:\\Suite\\read me.exe";

// What is not here and is no failing result ends the program with a message.
const std::vector<Outcome> outcomes = {
    {"Load C:\\Suite\\ENU35000.DLL", {}, "R", nullptr, sNoLibrary},
    {"Load D:\\ENU35000.DLL", {}, "R"},
    {"OpenKey SOFTWARE\\Korvanta\\Tessaron\\Settings", {}, "R", nullptr, sNoLibrary},
    {"QueryValue InstallDirectory", {}, "R", nullptr, sNoLibrary},
    {"Load C:\\App\\Bin\\ENU35000.DLL", {}, "R", nullptr, sNoLibrary},
    {"LoadText 35040", {}, "R", nullptr, NoCount("35000(35040)")},
    {"LoadText 35041", {}, "R", &Story::sNotice, "2|35000(35041)|Second line"},
    {"LoadText 35042", {}, "R", &Story::sNotice, "2|First line|35000(35042)"},
    // An existing key that does not open is opened by creating it.
    {"OpenKey SOFTWARE", {}, "R"},
    {"OpenKey Korvanta", {}, "R"},
    {"OpenKey Copyright", {}, "R"},
    {"CreateKey Copyright",
     {},
     "R",
     nullptr,
     "Error at RegEntry.CreateInternal 64: 35001(Copyright)"},
    {"SetValue NumLines", {}, "R", nullptr, "Error at RegEntry.SetValue 64: 35003(NumLines)"},
    {"SetValue Line1", {}, "R", nullptr, "Error at RegEntry.SetValue 64: 35003(Line1)"},
    {"SetValue Line2", {}, "R", nullptr, "Error at RegEntry.SetValue 64: 35003(Line2)"},
    {"CloseKey ", {}, "R"},

    {"LoadText 35013", {}, "R", &Story::sUnknownKey, "35009 0: 35000(35013)"},
    {"LoadText 35009", {}, "R", &Story::sUnknownKey},
    {"LoadText 35014", {0}, "R", &Story::sUnknownKey},
    {"LoadText 35014", {1}, "R", &Story::sCaptions},
    {"LoadText 35014", {2}, "R", &Story::sQuestion1},
    {"LoadText 35014", {3}, "R", &Story::sQuestion2},
    {"LoadText 35027", {}, "R", &Story::sCaptions},
    {"LoadText 35028", {}, "R", &Story::sCaptions},
    {"LoadText 35024", {}, "R", &Story::sCaptions},
    {"LoadText 35015", {0, 1, 2, 3, 4}, "R"},  // before the first check
    {"LoadText 35018", {0}, "R", &Story::sStatus1},
    {"LoadText 35016", {0}, "R", &Story::sStatus2},
    {"LoadText 35015", {5}, "R", &Story::sStatus3},
    {"LoadText 35015", {6}, "R", &Story::sStatus4},
    {"LoadText 35015", {7}, "R", &Story::sStatus5},
    {"LoadText 35030", {0}, "R", &Story::sQuestion1},
    {"LoadText 35030", {1}, "R", &Story::sQuestion2},
    {"LoadText 35031", {}, "R", &Story::sUnmet},
    {"LoadText 35038", {}, "R", &Story::sUnmet, "35031 64: 35000(35038)"},
    {"LoadText 35016", {1}, "R", &Story::sTick1},
    {"LoadText 35018", {1}, "R", &Story::sTick2},

    // Each check tests whether the log opens, then opens it.
    {"OpenKey SOFTWARE\\Korvanta\\InstallLog", {0}, "R", &Story::sStatus1, "35015"},
    {"OpenKey SOFTWARE\\Korvanta\\InstallLog", {2}, "R", &Story::sStatus2, "35015"},
    {"OpenKey SOFTWARE\\Korvanta\\InstallLog", {4}, "R", &Story::sUnmet, "35031 64: 35035(S)"},
    {"OpenKey SOFTWARE\\Korvanta\\InstallLog", {6}, "R", &Story::sSetup, "35031 64: 35035(R)"},
    {"OpenKey SOFTWARE\\Korvanta\\InstallLog", {8}, "R", &Story::sTick1, "35015"},
    {"OpenKey SOFTWARE\\Korvanta\\InstallLog", {10}, "R", &Story::sTick2, "35015"},
    {"OpenKey SOFTWARE\\Korvanta\\InstallLog",
     {1, 3, 5, 7},
     "R",
     nullptr,
     "RegEntry.OpenInternal 16: 35001(SOFTWARE\\Korvanta\\InstallLog)"},
    // After a tick that fails the next one looks again.
    {"OpenKey SOFTWARE\\Korvanta\\InstallLog", {9}, "R"},
    {"OpenKey SOFTWARE\\Korvanta\\InstallLog", {11}, "R", &Story::sTick2, "35016"},
    {"OpenKey SOFTWARE\\Korvanta\\InstallLog", {8, 9}, "B"},
    {"OpenKey SOFTWARE\\Korvanta\\InstallLog", {10, 11}, "B", &Story::sTick2, "35016"},
    {"QueryValue P2", {1}, "B"},
    {"QueryValue P2", {2}, "B", &Story::sTick2, "35016"},
    {"QueryValue P2CheckFile", {1}, "B"},
    {"QueryValue P2CheckFile", {2}, "B", &Story::sTick2, "35016"},
    {"QueryValue P1", {}, "R", &Story::sStatus1, "35015"},
    {"QueryValue P2", {0}, "R", &Story::sStatus2, "35015"},
    {"QueryValue P2", {1}, "R", &Story::sTick1, "35015"},
    {"QueryValue P2", {2}, "R", &Story::sTick2, "35015"},
    {"QueryValue P1CheckFile", {}, "R"},
    {"QueryValue P2CheckFile", {}, "R"},
    {"QueryValue S", {}, "R"},  // its missing file counts more
    {"QueryValue SCheckFile", {}, "R", &Story::sUnmet, "35031 64: 35039(S)"},
    {"QueryValue R", {}, "R", &Story::sSetup, "35031 64: 35036(R)"},
    {"QueryValue RCheckFile", {}, "R", &Story::sSetup, "35031 64: 35039(R)"},
    {"Search C:\\p1", {}, "BM", &Story::sStatus1, "35032"},
    {"Next C:\\p1", {0}, "RBM", &Story::sStatus1, "35032"},
    {"Next C:\\p1", {1}, "BM", &Story::sStatus1, "35032"},
    {"Next C:\\p1", {1}, "R"},
    {"Search C:\\gone", {}, "BM"},
    {"Next C:\\gone", {}, "RBM"},
    {"Search C:\\r", {}, "BM", &Story::sSetup, "35031 64: 35038(R)"},
    {"Next C:\\r", {0}, "RBM", &Story::sSetup, "35031 64: 35038(R)"},
    {"Next C:\\r", {1}, "BM", &Story::sSetup, "35031 64: 35038(R)"},
    {"Next C:\\r", {1}, "R"},

    {"ProgramFolder ", {3}, "BM", &Story::sPictures, " n2"},
    {"OpenInput C:\\Suite\\gear.bmp", {}, "BM", &Story::sPictures, " n2"},
    {"Read C:\\Suite\\gear.bmp", {}, "BM", &Story::sPictures, " n2"},
    {"ProgramFolder ", {4}, "BM", &Story::sPictures, " n1"},
    {"OpenInput C:\\Suite\\optics.ico", {}, "BM", &Story::sPictures, " n1"},
    {"Read C:\\Suite\\optics.ico", {}, "BM", &Story::sPictures, " n1"},
    {"ProgramFolder ", {5}, "BM"},  // the others have no picture
    {"OpenInput C:\\Suite\\", {}, "BM"},

    {"StartProgram \"C:\\Suite\\p2.exe\"",
     {},
     "B",
     &Story::sSetup,
     "35014 16: " + BrokenText("StartProgram", sSetupProgram)},
    {"StartProgram C:\\Suite\\read me.exe",
     {},
     "B",
     &Story::sReadMe,
     "35014 16: " + BrokenText("StartProgram", sReadMeProgram)},
};

// What the fault of call number nCall, from 0, makes of a run that reads as
// lines without it.
Lines Expected(const std::vector<Faults::Call>& calls, std::size_t nCall, char cKind, Lines lines) {
  const Faults::Call& call = calls[nCall];
  const std::string sCall = call.sOperation + " " + call.sArgument;
  const auto nWhich = static_cast<int>(
      std::count_if(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(nCall),
                    [&](const auto& c) { return c.sOperation + " " + c.sArgument == sCall; }));
  const auto end = [&](const std::string& sText) {
    lines.resize(call.nLines);
    lines.push_back(sText);
    return lines;
  };
  for (const Outcome& outcome : outcomes) {
    if (outcome.sCall != sCall || std::string(outcome.sKinds).find(cKind) == std::string::npos ||
        (!outcome.which.empty() && !outcome.which.contains(nWhich)))
      continue;
    if (outcome.part == nullptr) return outcome.sText.empty() ? lines : end(outcome.sText);
    Story story;
    std::string& sPart = story.*outcome.part;
    if (outcome.sText.empty())
      sPart.replace(sPart.find(call.sArgument), call.sArgument.size(),
                    "35000(" + call.sArgument + ")");
    else
      sPart = outcome.sText;
    const Lines told = story.Tell();
    return lines.size() == 1 ? Lines{told.front()} : told;  // the run ends with the agreement
  }
  if (cKind == Faults::Result) return end("an outcome that is not known");
  return end((call.nLines == 0 ? "Error at Trelin 64: " : "Trelin 16: ") +
             (cKind == Faults::NoMemory ? "There is not enough memory to go on."
                                        : BrokenText(call.sOperation, call.sArgument)));
}

// A line without what may come together in another way when more fails: texts
// of the string library, pictures, the timer.
std::string Outline(const std::string& sLine) {
  static const std::regex variable(
      R"((Error: String Not Found|35000\(350..\)|350\d\d)(\([^)]*\))?|First line|Second line| n\d|timer)");
  return std::regex_replace(sLine, variable, "");
}

class FaultWindow : public ProgramWindowTest {
 protected:
  void WriteSuite() {
    system.files = {
        {"C:\\Suite\\TRELIN.CFG",
         "BLOCK SETUPLIST\nTITLE = Suite\nEXTRA = x\nBLOCK APPLICATION\nPRODUCT = 1\nWHAT = x\n"
         "PRODUCTCODE = P1\nREVISION = 1\nIMAGE = gear.bmp\nINSTALLFILE = p1.exe\n"
         "BLOCK DEPENDENCY\nPRODUCTCODE = S\nREVISION = 1\nTITLE = S\nEND\nEND\n"
         "BLOCK APPLICATION\nPRODUCT = 2\nPRODUCTCODE = P2\nREVISION = 1\nIMAGE = optics.ico\n"
         "INSTALLFILE = p2.exe\nREADMEFILE = read me.exe\n"
         "BLOCK DEPENDENCY\nPRODUCTCODE = R\nREVISION = 1\nTITLE = R\nEND\nEND\n"
         "BLOCK APPLICATION\nPRODUCT = 3\nEND\nBLOCK APPLICATION\nPRODUCT = 4\nEND\n"
         "BLOCK APPLICATION\nPRODUCT = 5\nEND\nEND\n"},
        {"C:\\Suite\\gear.bmp", FileBytes(TRELIN_SOURCE_DIR "/demo/pictures/gear.bmp")},
        {"C:\\Suite\\optics.ico", FileBytes(TRELIN_SOURCE_DIR "/demo/pictures/optics.ico")},
        {"C:\\p1", ""},
        {"C:\\r", ""}};
    libraries.files["C:\\App\\Bin\\ENU35000.DLL"] = libraries.files["C:\\Suite\\ENU35000.DLL"];
  }

  void WriteRecords() {
    registry.ReplaceTree(RegistryNode::NewTree());
    const auto record = [&](const char* sName, const char* sText) {
      registry.SetText("HKEY_LOCAL_MACHINE\\" + sLog, sName, sText);
    };
    record("P1", "2");
    record("P1CheckFile", "C:\\p1");
    record("P2", "1");
    record("R", "1");
    record("RCheckFile", "C:\\r");
    record("S", "1");
    record("SCheckFile", "C:\\gone");
    // In the folder of the suite is a library, at the root of the other drive there is none.
    if (system.sProgramFolder == "D:\\")
      registry.SetText("HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\Tessaron\\Settings",
                       "InstallDirectory", "C:\\App");
  }

  std::string Notice(const char* sName) {
    return registry.Text("HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\Copyright", sName).value_or("");
  }

  static std::string Rows() {
    std::string sRows;
    for (std::int16_t i = 0; i < frmMainMenu::Rows; ++i)
      sRows += MainMenu().lblTitle[i].Caption() + " " + MainMenu().lblStatus[i].Caption() + ", ";
    return sRows + (MainMenu().Timer1.Enabled() ? "timer" : "");
  }

  static void Tick() {
    if (MainMenu().Timer1.Enabled()) DispatchInput(MainMenu().Timer1.OnTimer);
  }

  void UseTheMenu() {
    auto& menu = MainMenu();
    menu.Timer1.SetInterval(60000);  // ticks come from here
    std::string sMenu = "menu " + menu.Caption();
    for (const Button* pButton : {&menu.cmdSetup, &menu.cmdReadMe, &menu.cmdExit})
      sMenu += " " + pButton->Caption();
    for (const char* sKey : {"n1", "n2", "n3"})
      if (menu.imlIcons.Contains(sKey)) sMenu += " " + std::string(sKey);
    faults.log.push_back(sMenu);
    const Driver::Script steps[] = {
        [] {},
        [] { PressRow(0), Driver::Type(Key::Enter); },
        [] { Driver::Type(Key::Enter); },
        [] { PressRow(1), Driver::Type(Key::Enter); },
        Tick,
        [&] { registry.SetText("HKEY_LOCAL_MACHINE\\" + sLog, "P2", "2"), Tick(); },
        [] { Driver::Click(MainMenu().cmdReadMe); },
        [] { Driver::TurnWheel(MainMenu().picList, -1); },
    };
    for (const Driver::Script& step : steps) {
      step();
      if (ModalLoop::Innermost()->Ended()) return;
      faults.log.push_back(Rows());
    }
    Driver::Type(Key::Escape);
  }

  // One run of the program with one fault.
  void Run(std::size_t nFailing, char cKind, Faults::Reach reach) {
    WriteRecords();
    system.messages.clear();
    system.onMessage = [this] {
      const bool bFirst =
          std::count_if(system.messages.begin(), system.messages.end(),
                        [](auto& m) { return m.buttons == MessageButtons::YesNo; }) == 1;
      return bFirst ? MessageAnswer::No : MessageAnswer::Yes;
    };
    faults = {};
    faults.nFailing = nFailing;
    faults.cKind = cKind;
    faults.reach = reach;
    Driver::WhenWindowOpens([this] {
      faults.log.push_back("agreement " + Notice("NumLines") + "|" + Notice("Line1") + "|" +
                           Notice("Line2"));
      if (system.sProgramFolder == "D:\\") return Driver::Type(Key::Escape);
      Driver::WhenWindowOpens([this] { UseTheMenu(); });
      Driver::Type(Key::Enter);
    });
    EXPECT_NO_THROW(Main());
    Driver::ForgetScripts();
    faults.nFailing = 0;
    EXPECT_EQ(registry.OpenHandles(), 0U);
    EXPECT_EQ(system.nOpenFiles, 0);
    EXPECT_EQ(libraries.nOpen, static_cast<int>(LoadedLibraries().size()));
    FreeResourceLibraries();
    EXPECT_EQ(libraries.nOpen, 0);
  }

  void RunWithEveryFault(const Lines& story) {
    Run(0, Faults::Result, Faults::Reach::Nothing);
    ASSERT_EQ(faults.log, story);
    const std::vector<Faults::Call> calls = faults.calls;
    std::set<std::string> outlines;
    std::map<std::pair<std::size_t, char>, Lines> alone;
    for (std::size_t i = 0; i < calls.size(); ++i) {
      for (const char cKind : calls[i].sKinds) {
        SCOPED_TRACE("call " + std::to_string(i + 1) + ", " + calls[i].sOperation + " " +
                     calls[i].sArgument + ", fails: " + cKind);
        Run(i + 1, cKind, Faults::Reach::Nothing);
        EXPECT_EQ(faults.log, Expected(calls, i, cKind, story));
        for (const std::string& sLine : faults.log) outlines.insert(Outline(sLine));
        alone[{i, cKind}] = faults.log;
      }
    }
    for (const auto& [fault, log] : alone) {
      for (const auto reach : {Faults::Reach::ThatOperation, Faults::Reach::Everything}) {
        const Faults::Call& call = calls[fault.first];
        SCOPED_TRACE("from call " + std::to_string(fault.first + 1) + ", " + call.sOperation + " " +
                     call.sArgument + ", fails: " + fault.second +
                     (reach == Faults::Reach::Everything ? ", everything" : ", that operation"));
        Run(fault.first + 1, fault.second, reach);
        const std::size_t nAlike = std::min({faults.nSecondFault, log.size(), faults.log.size()});
        EXPECT_EQ(
            Lines(faults.log.begin(), faults.log.begin() + static_cast<std::ptrdiff_t>(nAlike)),
            Lines(log.begin(), log.begin() + static_cast<std::ptrdiff_t>(nAlike)));
        if (faults.nSecondFault == std::string::npos) {
          EXPECT_EQ(faults.log, log);
        }
        EXPECT_LE(faults.log.size(), story.size());
        for (const std::string& sLine : faults.log)
          EXPECT_TRUE(outlines.contains(Outline(sLine))) << sLine;
      }
    }
  }
};

TEST_F(FaultWindow, EveryFaultHasItsOutcome) {
  WriteSuite();
  RunWithEveryFault(Story().Tell());
}

TEST_F(FaultWindow, EveryFaultOfAStartWithAnInstalledLibraryHasItsOutcome) {
  WriteSuite();
  system.sProgramFolder = "D:\\";
  RunWithEveryFault({Story().Tell().front()});
}

}  // namespace
}  // namespace trelin
