#include "app/main_menu.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <vector>

#include "tests/app/program_window.h"

namespace trelin {
namespace {

using namespace std::literals;
using MainMenuWindow = ProgramWindowTest;
using Started = std::vector<std::string>;

TEST_F(MainMenuWindow, StandsAsDesigned) {
  UseMenu(7, [&](auto& menu) {
    EXPECT_EQ(Driver::WindowTitle(), "35014");
    EXPECT_EQ(Driver::FrameOf(menu), "icon, close box, in the task bar");
    ExpectInTheMiddle(menu);
    ExpectPlaces({
        {"form", menu, 0, 0, 8520, 6060},
        {"list", menu.picList, 75, 120, 6975, 5820},
        {"row 1", menu.picListItem[0], 0, 0, 6645, 1440},
        {"row 4", menu.picListItem[3], 0, 4320, 6645, 1440},
        {"icon 1", menu.picIcon[0], 120, 120, 1365, 1185},
        {"icon 4", menu.picIcon[3], 120, 120, 1365, 1185},
        {"title 1", menu.lblTitle[0], 1620, 75, 4890, 315},
        {"title 2", menu.lblTitle[1], 1620, 90, 4890, 315},
        {"description 1", menu.lblDescription[0], 1620, 390, 4890, 585},
        {"description 4", menu.lblDescription[3], 1620, 405, 4890, 585},
        {"status 1", menu.lblStatus[0], 1620, 1035, 4890, 240},
        {"status 4", menu.lblStatus[3], 1620, 1050, 4890, 240},
        {"scroll bar", menu.VScroll, 6660, 0, 255, 5760},
        {"Setup", menu.cmdSetup, 7200, 120, 1125, 345},
        {"Read Me", menu.cmdReadMe, 7200, 510, 1125, 345},
        {"Exit", menu.cmdExit, 7200, 900, 1125, 345},
    });
    EXPECT_EQ(menu.VScroll.LargeChange(), 4);
  });
}

TEST_F(MainMenuWindow, APressOnARowSelectsItsProduct) {
  UseMenu(7, [&](auto& menu) {
    const std::tuple<const Control&, const char*, const char*, bool> cases[] = {
        {menu.lblTitle[1], "1[2]34", "1[2]34", true},
        {menu.lblDescription[0], "[1]234", "[1]234", false},
        {menu.lblStatus[3], "123[4]", "123[4]", true},
        {menu.picIcon[0], "[1]234", "[1]234", false},
        {menu.picListItem[2], "[1]234", "12[3]4", false},  // waits for the release
    };
    for (const auto& [control, sPressed, sReleased, bReadMe] : cases) {
      const Twips x = &control == &menu.picListItem[2] ? 6600 : 30;
      Driver::Press(control, x, 30);
      EXPECT_EQ(Rows(), sPressed);
      Driver::Release(control, &control == &menu.picIcon[0] ? -30 : x, 30);
      EXPECT_EQ(Rows(), sReleased);
      EXPECT_TRUE(Driver::TakesInput(menu.cmdSetup));
      EXPECT_EQ(Driver::TakesInput(menu.cmdReadMe), bReadMe) << sReleased;
    }
  });
  EXPECT_EQ(system.started, Started());
}

// A picture of one pixel.
std::string Bmp(Rgb rgb) {
  std::string sBytes =
      "BM\x3A\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18"s + std::string(25, '\0');
  for (const int n : {rgb.nBlue, rgb.nGreen, rgb.nRed, 0}) sBytes += static_cast<char>(n);
  return sBytes;
}

constexpr Rgb Red = {255, 0, 0}, Blue = {0, 0, 255};

class MainMenuIconWindow : public MainMenuWindow {
 protected:
  // A list with these pictures, "red" and "blue" among them.
  void UseIcons(const std::vector<std::string>& images, const MenuScript& script) {
    system.files["C:\\Suite\\red"] = Bmp(Red);
    system.files["C:\\Suite\\blue"] = Bmp(Blue);
    system.files["C:\\Suite\\text"] = "no picture";
    std::string sBlocks;
    for (const std::string& sImage : images)
      sBlocks +=
          "BLOCK APPLICATION\nPRODUCT = Product 1\nINSTALLFILE = p\nIMAGE = " + sImage + "\nEND\n";
    UseMenu(sBlocks, script);
  }
};

TEST_F(MainMenuIconWindow, AProductHasItsPictureOrTheDefaultIcon) {
  UseIcons({"missing", "red", "", "red", "text", "blue"}, [&](auto& menu) {
    const auto icons = [&] {
      std::string sIcons;
      for (const PictureBox& box : menu.picIcon) {
        const PixelRect place = Driver::Bounds(box);
        const Rgb middle = Driver::PixelAt(box, place.nWidth / 2, place.nHeight / 2);
        sIcons += middle == Red ? 'r' : middle == Blue ? 'b' : '-';
      }
      return sIcons;
    };
    EXPECT_EQ(icons(), "-r-r");
    const auto none = Driver::PixelsOf(menu.picIcon[0]);
    EXPECT_EQ(Driver::PixelsOf(menu.picIcon[2]), none);
    const auto& middle = none[none.size() / 2];
    EXPECT_LT(std::count(middle.begin(), middle.end(), Driver::RgbOf(Color::ButtonFace)),
              static_cast<std::ptrdiff_t>(middle.size()) - 10);
    menu.VScroll.SetValue(3);
    EXPECT_EQ(icons(), "-r-b");
    EXPECT_EQ(Driver::PixelsOf(menu.picIcon[2]), none);
  });
}

using PixelRows = std::vector<std::vector<Rgb>>;

// Where there is a red square.
PixelRect RedPlace(const PixelRows& pixels) {
  for (auto row = pixels.begin(); row != pixels.end(); ++row) {
    const auto nWidth = std::count(row->begin(), row->end(), Red);
    if (nWidth == 0) continue;
    const auto nLeft = std::find(row->begin(), row->end(), Red) - row->begin();
    return {static_cast<int>(nLeft), static_cast<int>(row - pixels.begin()),
            static_cast<int>(nWidth), static_cast<int>(std::count(row, pixels.end(), *row))};
  }
  return {0, 0, 0, 0};
}

// The first and last three pixels of the first and last three rows.
void ExpectFrame(const PixelRows& pixels, const std::vector<std::string>& frame) {
  const std::map<char, Color> colors = {
      {'H', Color::ButtonHighlight}, {'L', Color::Light3D},    {'D', Color::DarkShadow3D},
      {'S', Color::ButtonShadow},    {'F', Color::ButtonFace},
  };
  for (std::size_t i = 0; i < 36; ++i) {
    const std::size_t nX = i % 6, nY = i / 6;
    const auto& row = pixels[nY < 3 ? nY : pixels.size() + nY - 6];
    EXPECT_EQ(row[nX < 3 ? nX : row.size() + nX - 6], Driver::RgbOf(colors.at(frame[nY][nX])))
        << frame[nY] << ": " << nX << ", " << nY;
  }
}

TEST_F(MainMenuIconWindow, AnIconIsRaisedAndSunkenWhilePressed) {
  UseIcons({"", "red"}, [&](auto& menu) {
    const PictureBox& box = menu.picIcon[1];
    const PixelRows raised = Driver::PixelsOf(box);
    ExpectFrame(raised, {"HLHHHD", "HLLLSD", "HLFFSD", "HLFFSD", "HLSSSD", "HDDDDD"});
    const PixelRect icon = RedPlace(raised), bounds = Driver::Bounds(box);
    EXPECT_NEAR(2 * icon.nLeft + 32, bounds.nWidth, 2);
    EXPECT_NEAR(2 * icon.nTop + 32, bounds.nHeight, 2);
    Driver::Press(box, 600, 600);
    const PixelRows sunken = Driver::PixelsOf(box);
    ExpectFrame(sunken, {"DSDDDH", "DSSSSH", "DSFFFH", "DSFFFH", "DSFFFH", "DHHHHH"});
    EXPECT_EQ(RedPlace(sunken), (PixelRect{icon.nLeft + 1, icon.nTop + 1, 32, 32}));
    EXPECT_EQ(Rows(), "1[1]");
    // The left and the top edge are outside, the last pixels are inside.
    const Twips right = box.Width() - Screen::TwipsPerPixelX();
    const Twips bottom = box.Height() - Screen::TwipsPerPixelY();
    const std::tuple<const char*, Twips, Twips, bool> cases[] = {
        {"left edge", 0, 600, false},
        {"left", 15, 600, true},
        {"top edge", 600, 0, false},
        {"top", 600, 15, true},
        {"beyond the right", right + 20, 600, false},
        {"right", right, 600, true},
        {"below", 600, bottom + 20, false},
        {"bottom", 600, bottom, true},
    };
    for (const auto& [sPlace, x, y, bInside] : cases) {
      Driver::MoveTo(box, x, y);
      EXPECT_TRUE(Driver::PixelsOf(box) == (bInside ? sunken : raised)) << sPlace;
      EXPECT_EQ(system.started, Started());
    }
    for (const auto& [sPlace, x, y, bInside] : cases) {
      Driver::Press(box, 600, 600);
      Driver::Release(box, x, y);
      EXPECT_TRUE(Driver::PixelsOf(box) == raised) << sPlace << ", released";
      EXPECT_EQ(std::exchange(system.started, {}).size(), bInside ? 1U : 0U) << sPlace;
    }
  });
}

TEST_F(MainMenuIconWindow, AMessageBoxEndsThePressOfAnIcon) {
  UseMenu("BLOCK APPLICATION\nPRODUCT = Product 1\nEND\n", [&](auto& menu) {
    const PictureBox& box = menu.picIcon[0];
    const auto isSunken = [&] {
      return Driver::PixelAt(box, 0, 0) == Driver::RgbOf(Color::DarkShadow3D);
    };
    system.onMessage = [&] {
      Driver::WhenWindowOpens([&] {
        EXPECT_FALSE(isSunken()) << "beside the message box";
        Driver::Type(Key::Enter);
      });
      return Driver::ShowMessage("", MessageButtons::Ok, "");
    };
    Driver::Press(box, 600, 600);
    EXPECT_TRUE(isSunken());
    Driver::Type(Key::Enter);
    EXPECT_FALSE(isSunken());
    Driver::Release(box, 600, 600);
  });
  EXPECT_EQ(system.messages.size(), 1U) << "the release is no click";
}

TEST_F(MainMenuWindow, ADoubleClickIsOneClick) {
  UseMenu(2, [&](auto& menu) {
    for (const Control* pControl :
         std::initializer_list<const Control*>{&menu.picIcon[0], &menu.cmdSetup, &menu.cmdReadMe}) {
      PressRow(1);
      Driver::DoubleClick(*pControl);
      EXPECT_EQ(std::exchange(system.started, {}).size(), 1U);
    }
  });
}

TEST_F(MainMenuWindow, ScrollsAndKeepsItsSelection) {
  UseMenu(7, [&](auto& menu) {
    PressRow(0);
    Driver::TurnWheel(menu.lblStatus[2], -1);
    EXPECT_EQ(Rows(), "2345") << "one notch is one row";
    Driver::TurnWheel(menu.picList, -9);
    EXPECT_EQ(Rows(), "4567") << "the end";
    Driver::Type(Key::Enter);
    EXPECT_EQ(system.started, Started{"\"C:\\Suite\\p1.exe\""}) << "Setup still acts on product 1";
    PressRow(3);
    const Twips middle = menu.VScroll.Width() / 2;
    Driver::Press(menu.VScroll, middle, menu.VScroll.Height() - 400);  // the thumb
    EXPECT_EQ(Rows(), "456[7]");
    Driver::MoveTo(menu.VScroll, middle, 0);
    EXPECT_EQ(Rows(), "1234") << "while it is dragged";
    Driver::Release(menu.VScroll, middle, 0);
  });
}

// Where it breaks lines is the tooltip's matter.
std::string WithoutSpaces(std::string sText) {
  std::erase_if(sText, [](char c) { return c == ' ' || c == '\n'; });
  return sText;
}

TEST_F(MainMenuWindow, TextsThatAreCutAreWholeInATooltip) {
  std::string sLong = "Measures bore & shaft";
  while (sLong.size() < 400) sLong += " and <b>again</b>";
  UseMenu("BLOCK APPLICATION\nPRODUCT = Short\nDESCRIPTION = " + sLong +
              "\nEND\nBLOCK APPLICATION\nPRODUCT = " + std::string(100, 'W') +
              "\nDESCRIPTION = " + std::string(30000, 'W') + "\nEND\n",
          [&](auto& menu) {
            const std::pair<const Label&, std::string> cases[] = {
                {menu.lblDescription[0], sLong},
                {menu.lblTitle[0], ""},
                {menu.lblTitle[1], std::string(100, 'W')},
                {menu.lblStatus[1], ""},
            };
            for (const auto& [label, sText] : cases)
              EXPECT_EQ(WithoutSpaces(Driver::TooltipOver(label)), WithoutSpaces(sText));
            EXPECT_TRUE(Driver::TooltipOver(menu.lblDescription[1]).ends_with("W\x85"));
            EXPECT_EQ(Driver::ReadText(menu.lblDescription[0]), sLong);
          });
}

TEST_F(MainMenuWindow, SetupAsksInOrderAndStartsFromTheSourceFolder) {
  const std::string sInstall = "INSTALLFILE = p\n";
  const std::string sStart = "start \"C:\\Suite\\p\"\n", sNewer = "35014 52: 35030\n";
  const std::string sQuoted =
      "35014 16: Could not start the program \"p\": the folder \"D:\\Disk 1\" on the command line "
      "holds quotation marks; please start Trelin again without them, also where the name has "
      "spaces.\n";
  const MessageAnswer yes = MessageAnswer::Yes, no = MessageAnswer::No, ok = MessageAnswer::Ok;
  const struct {
    const char *sCase, *sCommandLine;
    std::string sLines;
    const char* sInstalled;
    MessageAnswer answer;
    std::string sLog;  // behind the read-me program's
  } cases[] = {
      {"nothing to ask", "", sInstall, "", no, sStart},
      {"another folder", "D:\\Disk 1", sInstall, "", no, "start \"D:\\Disk 1\\p\"\n"},
      {"a drive", "D:\\", sInstall, "", no, "start \"D:\\p\"\n"},
      {"quotation marks", "\"D:\\Disk 1\"", sInstall, "", no, sQuoted},
      {"no installer", "", "BLOCK DEPENDENCY\nPRODUCTCODE = R\nEND\n", "2", yes,
       "35014 16: 35029\n"},
      {"newer, closed", "", sInstall, "2", ok, sNewer},
      {"newer, Yes", "", sInstall, "2", yes, sNewer + sStart},
  };
  for (const auto& c : cases) {
    Record("P", c.sInstalled);
    Record("other", "1");
    system.sCommandLine = c.sCommandLine;
    system.onMessage = [&] { return c.answer; };
    faults.log.clear();
    UseMenu("BLOCK APPLICATION\nPRODUCTCODE = P\nREVISION = 1\nREADMEFILE = r.exe x.txt\n" +
                c.sLines + "END\n",
            [&](auto& menu) {
              PressRow(0);
              Driver::Click(menu.cmdReadMe);
              EXPECT_FALSE(menu.Timer1.Enabled()) << c.sCase;
              Driver::Click(menu.cmdSetup);
              EXPECT_EQ(menu.Timer1.Enabled(), c.sLog.ends_with("p\"\n")) << c.sCase;
              Driver::Click(menu.cmdExit);
              EXPECT_FALSE(menu.Loaded());
            });
    EXPECT_EQ(faults.log, "start C:\\Suite\\r.exe x.txt\n" + c.sLog) << c.sCase;
  }
}

TEST_F(MainMenuWindow, TheTimerShowsAChangeOnceAndStops) {
  UseMenu(4, [&](auto& menu) {
    menu.Timer1.SetInterval(1);
    PressRow(1);
    Driver::Type(Key::Enter);
    Driver::Wait(30);
    EXPECT_TRUE(menu.Timer1.Enabled()) << "nothing has changed yet";
    PressRow(0);
    Record("P1", "1");
    Driver::Wait(30);
    EXPECT_EQ(Driver::ReadText(menu.lblStatus[0]), "35016") << "of the product that is selected";
    EXPECT_FALSE(menu.Timer1.Enabled());
    EXPECT_EQ(Rows(), "[1]234");
  });
}

}  // namespace
}  // namespace trelin
