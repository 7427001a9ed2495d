#include <algorithm>
#include <functional>
#include <vector>

#include "app/main_menu.h"
#include "tests/app/program_window.h"

namespace trelin {
namespace {

using MainMenuKeysWindow = ProgramWindowTest;

TEST_F(MainMenuKeysWindow, TabGoesThroughTheWindowAndBack) {
  auto expectOrder = [](Key key, const std::vector<const Control*>& order) {
    for (std::size_t i = 0; i < order.size(); ++i) {
      Driver::Type(key);
      EXPECT_TRUE(Driver::HasFocus(*order[i])) << "place " << i;
    }
  };
  UseMenu(5, [&] {
    auto& menu = MainMenu();
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
  UseMenu(1, [&] {  // past what is hidden or disabled
    auto& menu = MainMenu();
    expectOrder(Key::Tab, {&menu.picListItem[0], &menu.picIcon[0], &menu.cmdSetup, &menu.cmdExit,
                           &menu.picListItem[0]});
  });
  UseMenu(0, [&] {
    for (const Key key : {Key::Down, Key::Home, Key::End, Key::Space, Key::Enter}) {
      Driver::Type(key);
      EXPECT_TRUE(Driver::HasFocus(MainMenu().picList)) << "there is nothing to go to";
    }
    expectOrder(Key::Tab, {&MainMenu().cmdExit});
  });
}

TEST_F(MainMenuKeysWindow, IsUsedWithKeysAlone) {
  UseMenu(7, [&] {
    auto& menu = MainMenu();
    // Each key on the rows, or on the icons, and the row that has the focus then.
    const struct {
      ControlArray<PictureBox>& boxes;
      Key key;
      std::int16_t nRow;
      const char *sRows, *sStarted;
    } cases[] = {
        {menu.picListItem, Key::Down, 0, "[1]234", ""},
        {menu.picListItem, Key::Down, 1, "1[2]34", ""},
        {menu.picListItem, Key::Space, 1, "1[2]34", ""},
        {menu.picListItem, Key::Enter, 1, "1[2]34", "2"},
        {menu.picListItem, Key::PageDown, 3, "345[6]", ""},
        {menu.picListItem, Key::Up, 2, "34[5]6", ""},
        {menu.picListItem, Key::End, 3, "456[7]", ""},
        {menu.picListItem, Key::Down, 3, "456[7]", ""},
        {menu.picListItem, Key::Home, 0, "[1]234", ""},
        {menu.picListItem, Key::PageUp, 0, "[1]234", ""},
        {menu.picListItem, Key::Up, 0, "[1]234", ""},
        {menu.picIcon, Key::Tab, 0, "[1]234", ""},
        {menu.picIcon, Key::End, 3, "456[7]", ""},
        {menu.picIcon, Key::Up, 2, "45[6]7", ""},
        {menu.picIcon, Key::Space, 2, "45[6]7", "6"},
        {menu.picIcon, Key::Enter, 2, "45[6]7", "6"},
        {menu.picIcon, Key::PageUp, 0, "[2]345", ""},
    };
    for (const auto& c : cases) {
      Driver::Type(c.key);
      EXPECT_EQ(Rows(), c.sRows) << "step " << &c - cases;
      EXPECT_TRUE(Driver::HasFocus(c.boxes[c.nRow])) << "step " << &c - cases;
      EXPECT_EQ(menu.VScroll.Value(), menu.objSetupList->TopIndex()) << "step " << &c - cases;
      EXPECT_EQ(Driver::TakesInput(menu.cmdReadMe), menu.objSetupList->CurrentIndex() % 2 == 0);
      const std::string sProgram = std::string("\"C:\\Suite\\p") + c.sStarted + ".exe\"";
      EXPECT_EQ(std::exchange(system.started, {}),
                std::vector<std::string>(*c.sStarted == '\0' ? 0 : 1, sProgram))
          << "step " << &c - cases;
    }
    Driver::TurnWheel(menu.picList, -9);
    EXPECT_TRUE(Driver::HasFocus(menu.picList)) << "no icon, as the selected one is out of view";
    Driver::TurnWheel(menu.picList, 1);
    EXPECT_TRUE(Driver::HasFocus(menu.picList));
    Driver::TurnWheel(menu.picList, 1);
    EXPECT_EQ(Rows(), "[2]345");
    EXPECT_TRUE(Driver::HasFocus(menu.picListItem[0]));
    Driver::TurnWheel(menu.picList, -9);
    Driver::Type(Key::Down);
    EXPECT_EQ(Rows(), "[3]456") << "from the selected one, which was scrolled away";

    menu.cmdExit.SetFocus();
    Driver::Type(Key::Up);
    EXPECT_TRUE(Driver::HasFocus(menu.cmdExit)) << "a button leaves arrows alone";
  });
}

// Whether the pixels of a row of them, from the left, are not all alike.
bool IsDotted(const std::vector<Rgb>& pixels) {
  return std::adjacent_find(pixels.begin(), pixels.end(), std::not_equal_to()) != pixels.end();
}

TEST_F(MainMenuKeysWindow, ShowsTheFocusWhileItIsUsedByKeys) {
  UseMenu(4, [&] {
    auto& menu = MainMenu();
    // Its four sides, that many pixels away from the edges.
    const auto showsFocus = [](const PictureBox& box, std::size_t nAway) {
      const auto pixels = Driver::PixelsOf(box);
      const auto from = static_cast<std::ptrdiff_t>(nAway);
      int nSides = 0;
      for (const std::size_t nY : {nAway, pixels.size() - 1 - nAway})
        nSides += IsDotted({pixels[nY].begin() + from, pixels[nY].end() - from}) ? 1 : 0;
      for (const std::size_t nX : {nAway, pixels[0].size() - 1 - nAway}) {
        std::vector<Rgb> column;
        for (std::size_t y = nAway; y < pixels.size() - nAway; ++y) column.push_back(pixels[y][nX]);
        nSides += IsDotted(column) ? 1 : 0;
      }
      return nSides;
    };
    PressRow(1);
    EXPECT_EQ(showsFocus(menu.picListItem[1], 3), 0) << "as long as the pointer is used";
    Driver::Type(Key::Up);
    EXPECT_EQ(showsFocus(menu.picListItem[0], 3), 4);
    EXPECT_EQ(showsFocus(menu.picListItem[1], 3), 0);
    Driver::Type(Key::Down);
    EXPECT_EQ(showsFocus(menu.picListItem[1], 3), 4) << "on a selected row";
    EXPECT_EQ(showsFocus(menu.picListItem[0], 3), 0);
    const auto pixels = Driver::PixelsOf(menu.picListItem[1]);
    for (const std::size_t nY : {std::size_t{0}, pixels.size() - 1})
      EXPECT_EQ(pixels[nY], std::vector(pixels[nY].size(), Rgb{0, 0, 0})) << "its frame is whole";
    Driver::Type(Key::Tab);
    EXPECT_EQ(showsFocus(menu.picIcon[1], 4), 4);
    PressRow(1);
    EXPECT_EQ(showsFocus(menu.picListItem[1], 3), 0);
  });
}

TEST_F(MainMenuKeysWindow, IsUsedWithoutAPicture) {
  UseMenu(5, [&] {
    auto& menu = MainMenu();
    using Texts = std::vector<std::string>;
    EXPECT_EQ(Driver::Describe(menu.picList), "list <35014> focused");
    EXPECT_EQ(
        Driver::DescribeChildren(menu.picList),
        Texts({"list item <Product 1, About 1, 35015>", "list item <Product 2, About 2, 35015>",
               "list item <Product 3, About 3, 35015>", "list item <Product 4, About 4, 35015>",
               "scroll bar <>"}));
    EXPECT_EQ(
        Driver::DescribeChildren(menu.picListItem[1]),
        Texts({"button <35027: Product 2>", "text <Product 2>", "text <About 2>", "text <35015>"}));
    Driver::Type(Key::End);
    EXPECT_EQ(Driver::Describe(menu.picIcon[3]), "button <35027: Product 5>");
    EXPECT_EQ(Driver::Describe(menu.picListItem[3]),
              "list item <Product 5, About 5, 35015> focused selected");
    Driver::Type(Key::Home);
    EXPECT_EQ(Driver::Describe(menu.picListItem[3]), "list item <Product 4, About 4, 35015>");

    Driver::Act(menu.picListItem[1]);
    EXPECT_EQ(Rows(), "1[2]34");
    EXPECT_EQ(system.started, Texts());
    Driver::Act(menu.picIcon[2]);
    EXPECT_EQ(Rows(), "12[3]4");
    EXPECT_EQ(system.started, Texts{"\"C:\\Suite\\p3.exe\""});
  });
}

}  // namespace
}  // namespace trelin
