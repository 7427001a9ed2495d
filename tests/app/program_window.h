#pragma once

#include <string>
#include <utility>
#include <vector>

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
    std::string sBlocks;
    for (int i = 1; i <= nProducts; ++i) {
      const std::string s = std::to_string(i);
      sBlocks += "BLOCK APPLICATION\nPRODUCT = Product " + s + "\nDESCRIPTION = About " + s +
                 "\nPRODUCTCODE = P" + s + "\nREVISION = 1\nINSTALLFILE = p" + s + ".exe\n" +
                 (i % 2 == 0 ? "READMEFILE = read me.exe " + s + ".txt\n" : "") + "END\n";
    }
    WriteList(sBlocks);
  }

  void WriteList(const std::string& sBlocks) {
    system.files["C:\\Suite\\TRELIN.CFG"] = "BLOCK SETUPLIST\n" + sBlocks + "END\n";
  }

  // Runs the program, accepts the agreement, and uses the menu. What the program
  // shows and starts is that of this run.
  void UseMenu(const Driver::Script& script) {
    system.messages.clear();
    system.started.clear();
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
    Driver::ForgetScripts();
  }

  // Of such a list, or of blocks.
  template <class List>
  void UseMenu(const List& list, const Driver::Script& script) {
    WriteList(list);
    UseMenu(script);
  }

  struct Place {
    const char* sName;
    const Control& control;
    Twips left, top, width, height;  // of a form: of its inside
  };

  // To the pixel where its measures are whole ones.
  static void ExpectPlaces(const std::vector<Place>& places) {
    const Twips pixel = Screen::TwipsPerPixelX();
    const Twips least = pixel == 15 ? 0 : pixel;
    for (const Place& place : places) {
      const bool bForm = dynamic_cast<const Form*>(&place.control) != nullptr;
      const PixelRect is = bForm ? Driver::Inside(place.control) : Driver::Bounds(place.control);
      const std::pair<int, Twips> measures[] = {{is.nLeft, place.left},
                                                {is.nTop, place.top},
                                                {is.nWidth, place.width},
                                                {is.nHeight, place.height}};
      for (const auto& [nPixels, twips] : measures)
        EXPECT_NEAR(static_cast<Twips>(nPixels) * pixel, twips, least) << place.sName << ": " << is;
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
