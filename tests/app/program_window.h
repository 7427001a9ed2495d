#pragma once

#include <string>

#include "app/start_up.h"
#include "seam/entry.h"
#include "testing/driver.h"
#include "testing/program_test.h"

namespace trelin {

// The whole program from Main on, its windows used as a user meets them.
class ProgramWindowTest : public ProgramTest {
 protected:
  // A setup list of products named "Product 1", "Product 2", ... with the code
  // "P1", revision 1 and installer "p1.exe"; every second has a read-me file.
  void WriteList(int nProducts) {
    std::string sText = "BLOCK SETUPLIST\n";
    for (int i = 1; i <= nProducts; ++i) sText += Product(std::to_string(i), i % 2 == 0) + "END\n";
    system.files["C:\\Suite\\TRELIN.CFG"] = sText;
  }

  static std::string Product(const std::string& sNumber, bool bReadMe) {
    return "BLOCK APPLICATION\nPRODUCT = Product " + sNumber + "\nDESCRIPTION = About " + sNumber +
           "\nPRODUCTCODE = P" + sNumber + "\nREVISION = 1\nINSTALLFILE = p" + sNumber + ".exe\n" +
           (bReadMe ? "READMEFILE = read me.exe " + sNumber + ".txt\n" : "");
  }

  // Runs the program, accepts the agreement, and uses the menu.
  void UseMenu(const Driver::Script& script) {
    bool bOpened = false;
    Driver::WhenWindowOpens([&] {
      Driver::WhenWindowOpens([&] {
        bOpened = true;
        script();
        if (MainMenu().Loaded()) Driver::CloseWindow();
      });
      Driver::Type(Key::Enter);
    });
    Main();
    EXPECT_TRUE(bOpened) << "the menu did not open";
  }

  void UseMenu(int nProducts, const Driver::Script& script) {
    WriteList(nProducts);
    UseMenu(script);
  }

  // Presses and releases the pointer on the text of a row.
  static void PressRow(std::int16_t nRow) { Driver::Click(MainMenu().lblStatus[nRow]); }

  // The rows from the top as an accessibility client reads them: the titles'
  // numbers, the selected one in brackets.
  static std::string Rows() {
    std::string sRows;
    for (std::int16_t i = 0; i < frmMainMenu::Rows; ++i) {
      if (!Driver::IsShown(MainMenu().picListItem[i])) continue;
      const std::string sNumber = Driver::ReadText(MainMenu().lblTitle[i]).substr(8);
      // At the end of the row, away from its children and its frame.
      const int nRight = Driver::Bounds(MainMenu().picListItem[i]).nWidth - 3;
      const bool bCyan = Driver::PixelAt(MainMenu().picListItem[i], nRight, 5) == Rgb{0, 255, 255};
      sRows += bCyan ? "[" + sNumber + "]" : sNumber;
    }
    return sRows;
  }
};

}  // namespace trelin
