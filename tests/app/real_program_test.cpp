// The whole program on suites that are broken, or at the edge of what 16 bits,
// buffers and paths can hold, with the platform's own registry and files.

#include "tests/app/real_program.h"

#include <functional>

#include "suite/reg_entry.h"
#include "suite/setup_list.h"

namespace trelin {
namespace {

std::string List(const std::string& sLines) {
  return "BLOCK SETUPLIST\nBLOCK APPLICATION\n" + sLines + "END\nEND\n";
}

std::string ListOf(int nCount) {
  std::string sBlocks;
  for (int n = 0; n < nCount; ++n) sBlocks += "BLOCK APPLICATION\nEND\n";
  return "BLOCK SETUPLIST\n" + sBlocks + "END\n";
}

TEST_F(RealProgramWindow, GivesAClearAnswerToBadInput) {
  const std::string sMenu = "Trelin Setup\n", sTen(10'000'000, 'x');
  const std::string sLine = " of the setup list TRELIN.CFG ", sNot = sLine + "cannot be understood";
  const std::string sLibrary = FileBytes(folder / "ENU35000.DLL");
  const auto write = [&](const char* sName, const std::string& sText) {
    return [this, sName, sText] { folder.Write(sName, sText); };
  };
  const auto remove = [&](const char* sName) {
    return [this, sName] { std::filesystem::remove_all(Utf8Path(folder / sName)); };
  };
  RegEntry objSettings;
  objSettings.CreateKey("Tessaron\\Settings");

  const struct {
    const char* sCase;
    std::function<void()> breakIt;
    std::string sBegin;  // behind the agreement; without: the library is missing
  } cases[] = {
      {"nothing is broken", [] {}, sMenu},
      {"no list", remove("TRELIN.CFG"), "Trelin: Could not open the file \""},
      {"zeros", write("TRELIN.CFG", std::string(5000, '\0')), "BlockParse.GetToken: Line 1" + sNot},
      {"no sense", write("TRELIN.CFG", "BLOCK SETUPLIST\n\nSetup\nEND"),
       "BlockParse.GetToken: Line 3" + sNot},
      {"wrong block", write("TRELIN.CFG", "BLOCK SETUPLIST\nBLOCK X"),
       "Setup List: Line 2" + sLine +
           "should read \"BLOCK APPLICATION\", but it reads \"BLOCK X\"."},
      {"unknown entry", write("TRELIN.CFG", "BLOCK SETUPLIST\nCOLOUR = 1\nEND"),
       sMenu + "Setup List: Trelin Setup does not know the entry \"COLOUR\""},
      {"32767 products", write("TRELIN.CFG", ListOf(32767)), sMenu},
      {"32768 products", write("TRELIN.CFG", ListOf(32768)),
       "Trelin: The setup list names 32768 products, but the menu can"},
      {"a long title", write("TRELIN.CFG", List("PRODUCT = " + sTen + "\n")), sMenu},
      {"a long line", write("TRELIN.CFG", List(sTen + "\n")),
       "BlockParse.GetToken: Line 3" + sLine.substr(0, 19)},
      {"a late tab", write("TRELIN.CFG", List(sTen + "\t\n")),
       "Trelin: Line 3 of the setup list is too long: a"},
      {"no library", remove("ENU35000.DLL"), ""},
      {"half a library", write("ENU35000.DLL", sLibrary.substr(0, sLibrary.size() / 2)), ""},
      {"a library of zeros", write("ENU35000.DLL", std::string(5000, '\0')), ""},
      {"a library in the installation",
       [&] {
         remove("ENU35000.DLL")();
         objSettings.SetString("InstallDirectory", ProgramPath(folder / "App"));
         folder.Write("App/Bin/ENU35000.DLL", sLibrary);
       },
       sMenu},
  };
  for (const auto& c : cases) {
    c.breakIt();
    const std::string sExpected =
        c.sBegin.empty()
            ? "Error at Trelin: The string library ENU35000.DLL is missing from the folder"
            : "Microsoft Product Integration Agreement\n" + c.sBegin;
    EXPECT_EQ(Run().substr(0, sExpected.size()), sExpected) << c.sCase;
    folder.Write("TRELIN.CFG", List(""));
    folder.Write("ENU35000.DLL", sLibrary);
  }
  objSettings.DeleteValue("InstallDirectory");
}

TEST_F(RealProgramWindow, EveryByteIsAByte) {
  InitStringResources(1033);
  RegEntry objLog;
  objLog.CreateKey("InstallLog");
  SetupList list;
  for (int n = 1; n < 256; ++n) {
    if (n == '\r' || n == '\n') continue;  // ends a line of the list
    const std::string sText = std::string("a") + static_cast<char>(n) + "b";
    folder.Write("TRELIN.CFG",
                 List("PRODUCTCODE = Code\nREVISION = " + sText + "\nPRODUCT = " + sText + "\n"));
    objLog.SetString("Code", sText);
    const std::pair<std::string, std::string> cases[] = {
        {"", n == '\t' ? "An older revision is installed" : "Installed"},
        {ProgramPath(folder / "") + sText, "Installation incomplete: a file is missing"}};
    for (const auto& [sCheckFile, sStatus] : cases) {
      objLog.SetString("CodeCheckFile", sCheckFile);
      list.Initialize();
      list.LoadFromFile(ProgramPath(folder / "TRELIN.CFG"));
      EXPECT_EQ(list.MenuItems().Item(1)->Title(), n == '\t' ? "a b" : sText);
      EXPECT_EQ(list.MenuItems().Item(1)->Status(), sStatus) << n;
    }
  }
  for (const char* sName : {"Code", "CodeCheckFile"}) objLog.DeleteValue(sName);
}

}  // namespace
}  // namespace trelin
