#pragma once

#include <cmath>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/start_up.h"
#include "seam/entry.h"
#include "testing/driver.h"
#include "testing/program_test.h"

namespace trelin {

// Runs the program, does something at the agreement before it accepts it, and uses
// the menu. The scripts that did not run are forgotten.
inline void RunProgram(const Driver::Script& atAgreement, const Driver::Script& useMenu) {
  Driver::WhenWindowOpens([&] {
    atAgreement();
    Driver::WhenWindowOpens(useMenu);
    Driver::Type(Key::Enter);
  });
  Main();
  Driver::ForgetScripts();
}

using MenuScript = std::function<void(frmMainMenu&)>;

// The whole program from Main on, its windows used as a user meets them.
class ProgramWindowTest : public ProgramTest {
 protected:
  void WriteList(const std::string& sBlocks) {
    system.files["C:\\Suite\\TRELIN.CFG"] = "BLOCK SETUPLIST\n" + sBlocks + "END\n";
  }

  // Runs the program on such a list, accepts the agreement, and uses the menu. What
  // the program shows and starts is that of this run.
  void UseMenu(const std::string& sBlocks, const MenuScript& script) {
    WriteList(sBlocks);
    system.messages.clear();
    system.started.clear();
    bool bOpened = false;
    RunProgram([] {},
               [&] {
                 bOpened = true;
                 script(MainMenu());
                 if (MainMenu().Loaded()) Driver::CloseWindow();
               });
    EXPECT_TRUE(bOpened) << "the menu did not open";
  }

  // The same with products named "Product 1", "Product 2", ... with the code "P1",
  // revision 1 and installer "p1.exe"; every second has a read-me file.
  void UseMenu(int nProducts, const MenuScript& script) {
    std::string sBlocks;
    for (int i = 1; i <= nProducts; ++i) {
      const std::string s = std::to_string(i);
      sBlocks += "BLOCK APPLICATION\nPRODUCT = Product " + s + "\nDESCRIPTION = About " + s +
                 "\nPRODUCTCODE = P" + s + "\nREVISION = 1\nINSTALLFILE = p" + s + ".exe\n" +
                 (i % 2 == 0 ? "READMEFILE = read me.exe " + s + ".txt\n" : "") + "END\n";
    }
    UseMenu(sBlocks, script);
  }

  struct Place {
    const char* sName;
    const Control& control;
    Twips left, top, width, height;  // of a form: of its inside
  };

  static void ExpectPlaces(const std::vector<Place>& places) {
    const auto pixels = [](Twips twips) {
      return static_cast<int>(std::lround(twips / Screen::TwipsPerPixelX()));
    };
    for (const Place& place : places) {
      const bool bForm = dynamic_cast<const Form*>(&place.control) != nullptr;
      const PixelRect expected = {pixels(place.left), pixels(place.top), pixels(place.width),
                                  pixels(place.height)};
      EXPECT_EQ(bForm ? Driver::Inside(place.control) : Driver::Bounds(place.control), expected)
          << place.sName;
    }
  }

  // Some systems add the frame only when the window is shown.
  static void ExpectInTheMiddle(const Form& form) {
    const Twips frame = 4 * Screen::TwipsPerPixelX();
    EXPECT_NEAR(form.Left() + form.Width() / 2, Screen::Width() / 2, frame);
    EXPECT_NEAR(form.Top() + form.Height() / 2, Screen::Height() / 2, frame);
  }

  // Presses and releases the pointer on the text of a row.
  static void PressRow(std::int16_t nRow) { Driver::Click(MainMenu().lblStatus[nRow]); }

  // The rows from the top as an accessibility client reads them: the titles'
  // numbers, the selected one in brackets.
  static std::string Rows() {
    std::string sRows;
    for (std::int16_t i = 0; i < frmMainMenu::Rows; ++i) {
      const PictureBox& box = MainMenu().picListItem[i];
      if (!Driver::IsShown(box)) continue;
      const std::string sNumber = Driver::ReadText(MainMenu().lblTitle[i]).substr(8);
      // At the end of the row, away from its children and its frame.
      const Rgb color = Driver::PixelAt(box, Driver::Bounds(box).nWidth - 3, 5);
      const bool bCyan = color == Rgb{0, 255, 255};
      EXPECT_TRUE(bCyan || color == Driver::RgbOf(Color::ButtonFace)) << "row " << i;
      sRows += bCyan ? "[" + sNumber + "]" : sNumber;
    }
    return sRows;
  }
};

}  // namespace trelin
