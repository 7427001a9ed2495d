#include "app/main_menu.h"

#include <algorithm>
#include <functional>
#include <vector>

#include "testing/temporary_folder.h"
#include "tests/app/program_window.h"

namespace trelin {
namespace {

using MainMenuWindow = ProgramWindowTest;
using Driver::PixelAt;

TEST_F(MainMenuWindow, OpensWithTheListInFocusAndNothingSelected) {
  UseMenu(7, [&] {
    EXPECT_EQ(Driver::WindowTitle(), "35014");
    EXPECT_EQ(Rows(), "1234");
    EXPECT_EQ(Driver::ReadText(MainMenu().lblDescription[3]), "About 4");
    EXPECT_EQ(Driver::ReadText(MainMenu().lblStatus[3]), "35015");
    EXPECT_FALSE(Driver::TakesInput(MainMenu().cmdSetup));
    EXPECT_FALSE(Driver::TakesInput(MainMenu().cmdReadMe));
    EXPECT_TRUE(Driver::HasFocus(MainMenu().picList));
    Driver::Type(Key::Enter);
    EXPECT_TRUE(MainMenu().Loaded());
    EXPECT_EQ(MainMenu().VScroll.Max(), 4);
    EXPECT_EQ(MainMenu().VScroll.LargeChange(), 4);
  });
  EXPECT_TRUE(system.started.empty());
  EXPECT_TRUE(system.messages.empty());
}

TEST_F(MainMenuWindow, ShowsFewerProductsThanRows) {
  const std::pair<int, const char*> cases[] = {{0, ""}, {1, "1"}, {4, "1234"}};
  for (const auto& [nProducts, sRows] : cases) {
    UseMenu(nProducts, [&, sExpected = sRows] {
      EXPECT_EQ(Rows(), sExpected);
      EXPECT_FALSE(Driver::TakesInput(MainMenu().VScroll));
      Driver::TurnWheel(MainMenu().picList, -1);
      EXPECT_EQ(Rows(), sExpected);
      Driver::Type(Key::Escape);
      EXPECT_FALSE(MainMenu().Loaded());
    });
  }
}

TEST_F(MainMenuWindow, APressOnARowSelectsItsProduct) {
  UseMenu(7, [&] {
    auto& menu = MainMenu();
    Driver::Press(menu.lblTitle[1], 30, 30);
    EXPECT_EQ(Rows(), "1[2]34") << "a press on a label selects at once";
    EXPECT_TRUE(Driver::TakesInput(menu.cmdReadMe));
    Driver::Release(menu.lblTitle[1], 30, 30);

    Driver::Press(menu.picListItem[2], 6600, 700);
    EXPECT_EQ(Rows(), "1[2]34") << "a press on the box itself waits for the release";
    Driver::Release(menu.picListItem[2], 6600, 700);
    EXPECT_EQ(Rows(), "12[3]4");
    EXPECT_TRUE(Driver::TakesInput(menu.cmdSetup));
    EXPECT_FALSE(Driver::TakesInput(menu.cmdReadMe)) << "product 3 has no read-me file";

    const int nBottom = Driver::Bounds(menu.picListItem[2]).nHeight - 1;
    const int nRight = Driver::Bounds(menu.picListItem[2]).nWidth - 1;
    for (const int nX : {0, nRight}) {
      EXPECT_EQ(PixelAt(menu.picListItem[2], nX, 0), (Rgb{0, 0, 0}));
      EXPECT_EQ(PixelAt(menu.picListItem[2], nX, 1), (Rgb{0, 255, 255}));
      EXPECT_EQ(PixelAt(menu.picListItem[2], nX, nBottom), (Rgb{0, 0, 0}));
      EXPECT_EQ(PixelAt(menu.picListItem[1], nX, 0), Driver::RgbOf(Color::ButtonFace));
    }
  });
}

TEST_F(MainMenuWindow, AnIconHasARaisedFrameAndASunkenOneWhilePressed) {
  // Positions count from the left and the top, or below 0 from the other side.
  const struct {
    int nX, nY;
    Color raised, sunken;
  } cases[] = {
      {0, 0, Color::ButtonHighlight, Color::DarkShadow3D},
      {1, 0, Color::Light3D, Color::ButtonShadow},
      {1, 1, Color::Light3D, Color::ButtonShadow},
      {-1, 0, Color::DarkShadow3D, Color::ButtonHighlight},
      {-2, 2, Color::ButtonShadow, Color::ButtonFace},
      {0, -1, Color::ButtonHighlight, Color::DarkShadow3D},
      {1, -1, Color::DarkShadow3D, Color::ButtonHighlight},
      {1, -2, Color::Light3D, Color::ButtonShadow},
      {2, -2, Color::ButtonShadow, Color::ButtonFace},
      {-1, -1, Color::DarkShadow3D, Color::ButtonHighlight},
      {-3, -3, Color::ButtonFace, Color::ButtonFace},
  };
  UseMenu(4, [&] {
    PictureBox& box = MainMenu().picIcon[1];
    const PixelRect bounds = Driver::Bounds(box);
    const auto expectFrame = [&](bool bSunken) {
      for (const auto& c : cases)
        EXPECT_EQ(PixelAt(box, c.nX < 0 ? bounds.nWidth + c.nX : c.nX,
                          c.nY < 0 ? bounds.nHeight + c.nY : c.nY),
                  Driver::RgbOf(bSunken ? c.sunken : c.raised))
            << (bSunken ? "sunken " : "raised ") << c.nX << ", " << c.nY;
    };
    expectFrame(false);
    Driver::Press(box, 300, 300);
    expectFrame(true);
    Driver::MoveTo(box, 0, 300);
    expectFrame(false);
    Driver::Release(box, 0, 300);
  });
}

// Points all over the icon in a box, moved right and down by nShift pixels.
std::vector<Rgb> IconOf(const PictureBox& box, int nShift) {
  const PixelRect bounds = Driver::Bounds(box);
  std::vector<Rgb> pixels;
  for (int nY = -14; nY < 16; nY += 8)
    for (int nX = -14; nX < 16; nX += 8)
      pixels.push_back(
          PixelAt(box, bounds.nWidth / 2 + nX + nShift, bounds.nHeight / 2 + nY + nShift));
  return pixels;
}

TEST_F(MainMenuWindow, APressedIconIsDrawnOnePixelToTheRightAndDown) {
  UseMenu(1, [&] {
    PictureBox& box = MainMenu().picIcon[0];
    const std::vector<Rgb> raised = IconOf(box, 0);
    EXPECT_NE(raised, std::vector<Rgb>(16, Driver::RgbOf(Color::ButtonFace))) << "no icon there";
    Driver::Press(box, 300, 300);
    EXPECT_EQ(IconOf(box, 1), raised);
    Driver::MoveTo(box, -30, -30);
    Driver::Release(box, -30, -30);
  });
}

TEST_F(MainMenuWindow, AnIconRunsSetupWhenReleasedOverIt) {
  UseMenu(7, [&] {
    PictureBox& box = MainMenu().picIcon[2];
    Driver::Press(box, 600, 600);
    EXPECT_EQ(Rows(), "12[3]4") << "a press selects";
    EXPECT_TRUE(system.started.empty());
    Driver::Release(box, 0, 600);
    EXPECT_TRUE(system.started.empty()) << "released outside: on the edge";

    Driver::Press(box, 600, 600);
    Driver::MoveTo(box, 0, 600);  // the edge itself is outside
    Driver::MoveTo(box, 600, 600);
    Driver::Release(box, 600, 600);
    EXPECT_EQ(system.started, (std::vector<std::string>{"\"C:\\Suite\\p3.exe\""}));
  });
}

TEST_F(MainMenuWindow, ADoubleClickIsOneClick) {
  UseMenu(2, [&] {
    auto& menu = MainMenu();
    PressRow(1);
    for (const Control* pControl :
         std::initializer_list<const Control*>{&menu.picIcon[0], &menu.cmdSetup, &menu.cmdReadMe}) {
      system.started.clear();
      Driver::DoubleClick(*pControl);
      EXPECT_EQ(system.started.size(), 1U);
      PressRow(1);
    }
  });
}

TEST_F(MainMenuWindow, AMessageBoxEndsThePressOfAnIcon) {
  system.files["C:\\Suite\\TRELIN.CFG"] =
      "BLOCK SETUPLIST\nBLOCK APPLICATION\nPRODUCT = Product 1\n";
  UseMenu([&] {
    PictureBox& box = MainMenu().picIcon[0];
    const auto isSunken = [&] { return PixelAt(box, 0, 0) == Driver::RgbOf(Color::DarkShadow3D); };
    system.onMessage = [&] {
      Driver::WhenWindowOpens([&] { EXPECT_FALSE(isSunken()) << "beside the message box"; });
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

TEST_F(MainMenuWindow, ScrollsAndKeepsItsSelection) {
  UseMenu(7, [&] {
    PressRow(0);
    EXPECT_EQ(Rows(), "[1]234");
    Driver::TurnWheel(MainMenu().lblStatus[2], -1);
    EXPECT_EQ(Rows(), "2345") << "one notch is one row";
    Driver::TurnWheel(MainMenu().picList, -9);
    EXPECT_EQ(Rows(), "4567") << "the end";
    Driver::Type(Key::Enter);
    EXPECT_EQ(system.started.back(), "\"C:\\Suite\\p1.exe\"") << "Setup still acts on product 1";
    PressRow(2);
    EXPECT_EQ(Rows(), "45[6]7");
    MainMenu().VScroll.SetValue(1);
    EXPECT_EQ(Rows(), "1234");
  });
}

TEST_F(MainMenuWindow, TabGoesThroughTheWindowAndBack) {
  UseMenu(5, [&] {
    auto& menu = MainMenu();
    const auto expectOrder = [&](Key key, std::vector<const Control*> order) {
      for (std::size_t i = 0; i < order.size(); ++i) {
        Driver::Type(key);
        EXPECT_TRUE(Driver::HasFocus(*order[i])) << "place " << i;
      }
    };
    expectOrder(Key::Tab, {&menu.VScroll, &menu.picListItem[0], &menu.picIcon[0], &menu.cmdSetup,
                           &menu.cmdExit});
    EXPECT_EQ(Rows(), "[1]234") << "the row that Tab has reached";
    PressRow(1);
    expectOrder(Key::BackTab, {&menu.VScroll, &menu.cmdExit, &menu.cmdReadMe, &menu.cmdSetup,
                               &menu.picIcon[1], &menu.picListItem[1]});
    EXPECT_EQ(Rows(), "1[2]34");
    Driver::TurnWheel(menu.picList, -1);
    Driver::Type(Key::Tab);
    EXPECT_TRUE(Driver::HasFocus(menu.picIcon[0])) << "of the selected product";
    menu.VScroll.SetValue(1);
    menu.cmdExit.SetFocus();
    Driver::TurnWheel(menu.picList, -2);
    EXPECT_TRUE(Driver::HasFocus(menu.cmdExit));
    for (int i = 0; i < 2; ++i) Driver::Type(Key::Tab);
    EXPECT_EQ(Rows(), "[2]345") << "it was scrolled away: Tab reaches the top row";
  });
  UseMenu(1, [&] {
    auto& menu = MainMenu();
    for (const Control* pControl : std::initializer_list<const Control*>{
             &menu.picListItem[0], &menu.picIcon[0], &menu.cmdSetup, &menu.cmdExit,
             &menu.picListItem[0]}) {
      Driver::Type(Key::Tab);
      EXPECT_TRUE(Driver::HasFocus(*pControl)) << "past what is hidden or disabled";
    }
  });
}

TEST_F(MainMenuWindow, IsUsedWithKeysAlone) {
  UseMenu(7, [&] {
    auto& menu = MainMenu();
    const struct {
      Key key;
      std::int16_t nRow;  // that has the focus
      const char* sRows;
    } cases[] = {
        {Key::Down, 0, "[1]234"},     {Key::Down, 1, "1[2]34"}, {Key::Space, 1, "1[2]34"},
        {Key::PageDown, 3, "345[6]"}, {Key::Up, 2, "34[5]6"},   {Key::End, 3, "456[7]"},
        {Key::Down, 3, "456[7]"},     {Key::Home, 0, "[1]234"}, {Key::PageUp, 0, "[1]234"},
        {Key::Up, 0, "[1]234"},       {Key::Down, 1, "1[2]34"}, {Key::Down, 2, "12[3]4"},
    };
    for (const auto& c : cases) {
      Driver::Type(c.key);
      EXPECT_EQ(Rows(), c.sRows) << "step " << &c - cases;
      EXPECT_TRUE(Driver::HasFocus(menu.picListItem[c.nRow])) << "step " << &c - cases;
      EXPECT_EQ(menu.VScroll.Value(), menu.objSetupList->TopIndex()) << "step " << &c - cases;
    }
    const auto expectStarted = [&](const char* sProduct) {
      ASSERT_FALSE(system.started.empty());
      EXPECT_EQ(system.started.back(), "\"C:\\Suite\\p" + std::string(sProduct) + ".exe\"");
    };
    Driver::Type(Key::Enter);
    expectStarted("3");
    EXPECT_FALSE(Driver::TakesInput(menu.cmdReadMe)) << "product 3 has no read-me file";

    Driver::Type(Key::Tab);
    Driver::Type(Key::End);
    EXPECT_TRUE(Driver::HasFocus(menu.picIcon[3])) << "icons are a column of their own";
    EXPECT_EQ(Rows(), "456[7]");
    Driver::Type(Key::Up);
    for (const Key key : {Key::Space, Key::Enter}) {
      system.started.clear();
      Driver::Type(key);
      expectStarted("6");
      EXPECT_TRUE(Driver::HasFocus(menu.picIcon[2]));
    }

    Driver::TurnWheel(menu.picList, 9);
    EXPECT_TRUE(Driver::HasFocus(menu.picList)) << "no row, as the selected one is out of view";
    Driver::TurnWheel(menu.picList, -2);
    EXPECT_EQ(Rows(), "345[6]");
    EXPECT_TRUE(Driver::HasFocus(menu.picListItem[3]));
    Driver::TurnWheel(menu.picList, 9);
    Driver::Type(Key::Down);
    EXPECT_EQ(Rows(), "456[7]") << "from the selected one, which was scrolled away";

    menu.cmdExit.SetFocus();
    Driver::Type(Key::Up);
    EXPECT_TRUE(Driver::HasFocus(menu.cmdExit)) << "a button leaves arrows alone";
  });
}

TEST_F(MainMenuWindow, KeysDoNothingInAnEmptyList) {
  UseMenu(0, [&] {
    for (const Key key : {Key::Down, Key::Home, Key::End, Key::Space, Key::Enter}) {
      Driver::Type(key);
      EXPECT_TRUE(Driver::HasFocus(MainMenu().picList));
    }
    Driver::Type(Key::Tab);
    EXPECT_TRUE(Driver::HasFocus(MainMenu().cmdExit));
  });
}

// Whether the pixels of a row of them, from the left, are not all alike.
bool IsDotted(const std::vector<Rgb>& pixels) {
  return std::adjacent_find(pixels.begin(), pixels.end(), std::not_equal_to()) != pixels.end();
}

TEST_F(MainMenuWindow, ShowsTheFocusWhileItIsUsedByKeys) {
  UseMenu(4, [&] {
    auto& menu = MainMenu();
    const auto showsFocus = [](const PictureBox& box, int nAway) {
      const auto pixels = Driver::PixelsOf(box);
      const auto nY = static_cast<std::size_t>(nAway);
      return IsDotted({pixels[nY].begin() + nAway, pixels[nY].end() - nAway});
    };
    PressRow(1);
    EXPECT_FALSE(showsFocus(menu.picListItem[1], 3)) << "as long as the pointer is used";
    Driver::Type(Key::Up);
    EXPECT_TRUE(showsFocus(menu.picListItem[0], 3));
    EXPECT_FALSE(showsFocus(menu.picListItem[1], 3));
    Driver::Type(Key::Down);
    EXPECT_TRUE(showsFocus(menu.picListItem[1], 3)) << "on a selected row";
    EXPECT_FALSE(showsFocus(menu.picListItem[0], 3));
    const auto pixels = Driver::PixelsOf(menu.picListItem[1]);
    for (const std::size_t nY : {std::size_t{0}, pixels.size() - 1})
      EXPECT_EQ(pixels[nY], std::vector(pixels[nY].size(), Rgb{0, 0, 0})) << "its frame is whole";
    Driver::Type(Key::Tab);
    EXPECT_TRUE(showsFocus(menu.picIcon[1], 4));
    PressRow(1);
    EXPECT_FALSE(showsFocus(menu.picListItem[1], 3));
  });
}

TEST_F(MainMenuWindow, IsUsedWithoutAPicture) {
  UseMenu(5, [&] {
    auto& menu = MainMenu();
    EXPECT_EQ(Driver::Describe(menu.picList), "list <35014> focused");
    EXPECT_EQ(Driver::DescribeChildren(menu.picList),
              (std::vector<std::string>{"list item <Product 1, About 1, 35015>",
                                        "list item <Product 2, About 2, 35015>",
                                        "list item <Product 3, About 3, 35015>",
                                        "list item <Product 4, About 4, 35015>", "scroll bar <>"}));
    EXPECT_EQ(Driver::DescribeChildren(menu.picListItem[1]),
              (std::vector<std::string>{"button <35027: Product 2>", "text <Product 2>",
                                        "text <About 2>", "text <35015>"}));
    Driver::Type(Key::End);
    EXPECT_EQ(Driver::Describe(menu.picIcon[3]), "button <35027: Product 5>");
    EXPECT_EQ(Driver::Describe(menu.picListItem[3]),
              "list item <Product 5, About 5, 35015> focused selected");
    Driver::Type(Key::Home);
    EXPECT_EQ(Driver::Describe(menu.picListItem[3]), "list item <Product 4, About 4, 35015>");

    Driver::Act(menu.picListItem[1]);
    EXPECT_EQ(Rows(), "1[2]34");
    EXPECT_TRUE(system.started.empty());
    Driver::Act(menu.picIcon[2]);
    EXPECT_EQ(Rows(), "12[3]4");
    EXPECT_EQ(system.started, (std::vector<std::string>{"\"C:\\Suite\\p3.exe\""}));
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
  system.files["C:\\Suite\\TRELIN.CFG"] =
      "BLOCK SETUPLIST\nBLOCK APPLICATION\nPRODUCT = Short\nDESCRIPTION = " + sLong +
      "\nEND\nBLOCK APPLICATION\nPRODUCT = " + std::string(100, 'W') +
      "\nDESCRIPTION = " + std::string(30000, 'W') + "\nEND\n";
  UseMenu([&] {
    auto& menu = MainMenu();
    EXPECT_EQ(WithoutSpaces(Driver::TooltipOver(menu.lblDescription[0])), WithoutSpaces(sLong));
    EXPECT_EQ(Driver::TooltipOver(menu.lblTitle[0]), "");
    EXPECT_EQ(WithoutSpaces(Driver::TooltipOver(menu.lblTitle[1])), std::string(100, 'W'));
    EXPECT_TRUE(Driver::TooltipOver(menu.lblDescription[1]).ends_with("W\x85"));
    EXPECT_EQ(Driver::ReadText(menu.lblDescription[0]), sLong);
  });
}

TEST_F(MainMenuWindow, EnterIsSetupAndEscIsExit) {
  system.sCommandLine = "D:\\Disk 1";
  UseMenu(4, [&] {
    MainMenu().cmdExit.SetFocus();
    PressRow(1);
    Driver::Type(Key::Enter);
    EXPECT_EQ(system.started.back(), "\"D:\\Disk 1\\p2.exe\"");
    Driver::Click(MainMenu().cmdExit);
    EXPECT_FALSE(MainMenu().Loaded());
  });
  system.sCommandLine = "\"D:\\Disk 1\"";
  UseMenu(4, [&] {
    PressRow(1);
    Driver::Type(Key::Enter);
    ASSERT_EQ(system.messages.size(), 1U);
    EXPECT_TRUE(system.messages[0].sText.starts_with(
        "Could not start the program \"p2.exe\": the folder \"D:\\Disk 1\" on the command line "
        "holds "
        "quotation marks; please start Trelin again without them"));
    EXPECT_EQ(system.started.size(), 1U);
    EXPECT_FALSE(MainMenu().Timer1.Enabled());
    Driver::Click(MainMenu().cmdReadMe);
    EXPECT_EQ(system.started.back(), "C:\\Suite\\read me.exe 2.txt")
        << "always from the program's folder, as it stands";
    Driver::Type(Key::Escape);
    EXPECT_FALSE(MainMenu().Loaded());
  });
}

TEST_F(MainMenuWindow, SetupAsksInOrder) {
  const std::string sPrerequisite = "BLOCK DEPENDENCY\nPRODUCTCODE = R\nTITLE = R\nEND\n";
  const auto stop = [](const char* sText) {
    return ShownMessage{sText, MessageIcon::Critical, MessageButtons::Ok, "35014"};
  };
  const ShownMessage newer{"35030", MessageIcon::Exclamation, MessageButtons::YesNo, "35014"};
  const ShownMessage unmet{"35039(R)", MessageIcon::Information, MessageButtons::Ok, "35031"};
  const struct {
    const char* sCase;
    std::string sBlock, sInstalled;
    MessageAnswer answer;
    std::vector<ShownMessage> messages;
    bool bStarted;
  } cases[] = {
      {"nothing to ask", "INSTALLFILE = p\n", "", MessageAnswer::No, {}, true},
      {"no installer",
       "READMEFILE = x\n" + sPrerequisite,
       "2",
       MessageAnswer::Yes,
       {stop("35029")},
       false},
      {"newer, No", "INSTALLFILE = p\n" + sPrerequisite, "2", MessageAnswer::No, {newer}, false},
      {"newer, Yes", "INSTALLFILE = p\n", "2", MessageAnswer::Yes, {newer}, true},
      {"newer, Yes, but a prerequisite is missing",
       "INSTALLFILE = p\n" + sPrerequisite,
       "2",
       MessageAnswer::Yes,
       {newer, unmet},
       false},
      {"a prerequisite is missing",
       "INSTALLFILE = p\n" + sPrerequisite,
       "1",
       MessageAnswer::Yes,
       {unmet},
       false},
  };
  for (const auto& c : cases) {
    Record("P", c.sInstalled);
    Record("other", "1");
    system.messages.clear();
    system.started.clear();
    system.onMessage = [&] { return c.answer; };
    system.files["C:\\Suite\\TRELIN.CFG"] =
        "BLOCK SETUPLIST\nBLOCK APPLICATION\nPRODUCTCODE = P\nREVISION = 1\n" + c.sBlock;
    UseMenu([&] {
      PressRow(0);
      Driver::Type(Key::Enter);
      EXPECT_EQ(MainMenu().Timer1.Enabled(), c.bStarted) << c.sCase;
    });
    EXPECT_EQ(system.messages, c.messages) << c.sCase;
    EXPECT_EQ(system.started.size(), c.bStarted ? 1U : 0U) << c.sCase;
  }
}

TEST_F(MainMenuWindow, TheTimerShowsAChangeOnceAndStops) {
  Record("other", "1");
  UseMenu(4, [&] {
    MainMenu().Timer1.SetInterval(20);
    PressRow(1);
    Driver::Type(Key::Enter);
    Driver::Wait(100);
    EXPECT_TRUE(MainMenu().Timer1.Enabled()) << "nothing has changed yet";
    Record("P2", "1");
    Driver::Wait(100);
    EXPECT_EQ(Driver::ReadText(MainMenu().lblStatus[1]), "35016");
    EXPECT_FALSE(MainMenu().Timer1.Enabled());
    EXPECT_EQ(Rows(), "1[2]34");
  });
}

TEST_F(MainMenuWindow, NoTickComesWhileAMessageBoxIsOpen) {
  Record("P1", "2");  // newer, so that Setup asks
  UseMenu(2, [&] {
    MainMenu().Timer1.SetInterval(20);
    PressRow(0);
    MainMenu().Timer1.SetEnabled(true);
    std::string sMeanwhile;
    system.onMessage = [&] {
      Record("P1", "1");
      Driver::Wait(100);
      sMeanwhile = Driver::ReadText(MainMenu().lblStatus[0]);
      return MessageAnswer::No;
    };
    Driver::Type(Key::Enter);
    EXPECT_EQ(sMeanwhile, "35018");
    Driver::Wait(100);
    EXPECT_EQ(Driver::ReadText(MainMenu().lblStatus[0]), "35016") << "ticks go on afterwards";
  });
}

TEST_F(MainMenuWindow, AProductWithoutAPictureHasTheDefaultIcon) {
  const std::string sSuite = "C:\\Suite\\";
  system.files[sSuite + "gear.bmp"] = FileBytes(TRELIN_SOURCE_DIR "/demo/pictures/gear.bmp");
  std::string sText = "BLOCK SETUPLIST\n";
  for (const char* sImage : {"missing.bmp", "gear.bmp", "", "gear.bmp"})
    sText += "BLOCK APPLICATION\nPRODUCT = Product 1\nIMAGE = " + std::string(sImage) + "\nEND\n";
  system.files[sSuite + "TRELIN.CFG"] = sText;
  UseMenu([&] {
    auto& boxes = MainMenu().picIcon;
    EXPECT_EQ(IconOf(boxes[0], 0), IconOf(boxes[2], 0));
    EXPECT_NE(IconOf(boxes[0], 0), IconOf(boxes[1], 0));
    EXPECT_EQ(IconOf(boxes[1], 0), IconOf(boxes[3], 0));
  });
}

}  // namespace
}  // namespace trelin
