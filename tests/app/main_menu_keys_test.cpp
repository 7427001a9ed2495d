#include <algorithm>
#include <functional>
#include <iterator>
#include <tuple>
#include <vector>

#include "app/main_menu.h"
#include "tests/app/program_window.h"

namespace trelin {
namespace {

using MainMenuKeysWindow = ProgramWindowTest;
using Texts = std::vector<std::string>;

TEST_F(MainMenuKeysWindow, TabGoesThroughTheWindowAndBack) {
  auto expectOrder = [](Key key, const std::vector<const Control*>& order) {
    for (std::size_t i = 0; i < order.size(); ++i) {
      Driver::Type(key);
      EXPECT_TRUE(Driver::HasFocus(*order[i])) << "place " << i;
    }
  };
  UseMenu(5, [&](auto& menu) {
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
  UseMenu(4, [&](auto& menu) {  // past what is disabled
    expectOrder(Key::Tab, {&menu.picListItem[0], &menu.picIcon[0], &menu.cmdSetup, &menu.cmdExit,
                           &menu.picListItem[0]});
    Driver::TurnWheel(menu.picList, -2);
    EXPECT_EQ(Rows(), "[1]234");
  });
  UseMenu(0, [&](auto& menu) {
    EXPECT_EQ(Rows(), "");
    for (const Key key : {Key::Down, Key::Home, Key::End, Key::Space, Key::Enter}) {
      Driver::Type(key);
      EXPECT_TRUE(Driver::HasFocus(menu.picList)) << "there is nothing to go to";
    }
    expectOrder(Key::Tab, {&menu.cmdExit});
  });
}

TEST_F(MainMenuKeysWindow, IsUsedWithKeysAlone) {
  UseMenu(7, [&](auto& menu) {
    // Each key on the rows, or on the icons, the row that has the focus then, all rows,
    // and the product whose installer is started.
    const std::tuple<ControlArray<PictureBox>&, Key, std::int16_t, const char*, std::string>
        cases[] = {
            {menu.picListItem, Key::Down, 0, "[1]234", ""},
            {menu.picListItem, Key::Down, 1, "1[2]34", ""},
            {menu.picListItem, Key::Space, 1, "1[2]34", ""},
            {menu.picListItem, Key::Enter, 1, "1[2]34", "2"},
            {menu.picListItem, Key::PageDown, 3, "345[6]", ""},
            {menu.picListItem, Key::Up, 2, "34[5]6", ""},
            {menu.picListItem, Key::End, 3, "456[7]", ""},
            {menu.picListItem, Key::Home, 0, "[1]234", ""},
            {menu.picIcon, Key::Tab, 0, "[1]234", ""},
            {menu.picIcon, Key::End, 3, "456[7]", ""},
            {menu.picIcon, Key::Up, 2, "45[6]7", ""},
            {menu.picIcon, Key::Space, 2, "45[6]7", "6"},
            {menu.picIcon, Key::Enter, 2, "45[6]7", "6"},
            {menu.picIcon, Key::PageUp, 0, "[2]345", ""},
        };
    int nStep = 0;
    for (const auto& [boxes, key, nRow, sRows, sStarted] : cases) {
      SCOPED_TRACE("step " + std::to_string(++nStep));
      Driver::Type(key);
      EXPECT_EQ(Rows(), sRows);
      EXPECT_TRUE(Driver::HasFocus(boxes[nRow]));
      EXPECT_EQ(menu.VScroll.Value(), menu.objSetupList->TopIndex());
      EXPECT_EQ(Driver::TakesInput(menu.cmdReadMe), menu.objSetupList->CurrentIndex() % 2 == 0);
      EXPECT_EQ(std::exchange(system.started, {}),
                sStarted.empty() ? Texts{} : Texts{"\"C:\\Suite\\p" + sStarted + ".exe\""});
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

TEST_F(MainMenuKeysWindow, ShowsTheFocusWhileItIsUsedByKeys) {
  UseMenu(4, [&](auto& menu) {
    // How many sides of a rectangle, that many pixels away from the edges, are dotted.
    const auto showsFocus = [](const PictureBox& box, std::size_t nAway) {
      const auto pixels = Driver::PixelsOf(box);
      const std::size_t nRight = pixels[0].size() - 1 - nAway, nBottom = pixels.size() - 1 - nAway;
      std::vector<Rgb> sides[4];
      for (std::size_t x = nAway; x <= nRight; ++x) {
        sides[0].push_back(pixels[nAway][x]);
        sides[1].push_back(pixels[nBottom][x]);
      }
      for (std::size_t y = nAway; y <= nBottom; ++y) {
        sides[2].push_back(pixels[y][nAway]);
        sides[3].push_back(pixels[y][nRight]);
      }
      return std::count_if(std::begin(sides), std::end(sides), [](const auto& side) {
        return std::adjacent_find(side.begin(), side.end(), std::not_equal_to()) != side.end();
      });
    };
    PressRow(1);
    Driver::Type(Key::Tab);
    EXPECT_EQ(showsFocus(menu.picIcon[1], 4), 4) << "Tab shows it";
    PressRow(1);
    EXPECT_EQ(showsFocus(menu.picListItem[1], 3), 0) << "as long as the pointer is used";
    Driver::Type(Key::Up);
    EXPECT_EQ(showsFocus(menu.picListItem[0], 3), 4);
    EXPECT_EQ(showsFocus(menu.picListItem[1], 3), 0);
    Driver::Type(Key::Down);
    EXPECT_EQ(showsFocus(menu.picListItem[1], 3), 4) << "on a selected row";
    EXPECT_EQ(showsFocus(menu.picListItem[0], 3), 0);
    const auto pixels = Driver::PixelsOf(menu.picListItem[1]);
    const Rgb black = {0, 0, 0}, cyan = {0, 255, 255};
    for (const auto& row : {pixels.front(), pixels.back()})
      EXPECT_EQ(row, std::vector(row.size(), black)) << "its frame is whole";
    for (const auto& row : {pixels[1], pixels.end()[-2]})
      EXPECT_TRUE(row.front() == cyan && row.back() == cyan) << "its frame is one pixel wide";
    const auto other = Driver::PixelsOf(menu.picListItem[0]);
    EXPECT_EQ(other[0][0], Driver::RgbOf(Color::ButtonFace)) << "without a frame";
    Driver::Type(Key::Tab);
    EXPECT_EQ(showsFocus(menu.picIcon[1], 4), 4);
    PressRow(1);
    EXPECT_EQ(showsFocus(menu.picListItem[1], 3), 0);
  });
}

TEST_F(MainMenuKeysWindow, IsUsedWithoutAPicture) {
  UseMenu(5, [&](auto& menu) {
    EXPECT_EQ(Driver::Describe(menu.picList), "list <35014> focused");
    EXPECT_EQ(
        Driver::DescribeChildren(menu.picList),
        Texts({"list item <Product 1, About 1, 35015>", "list item <Product 2, About 2, 35015>",
               "list item <Product 3, About 3, 35015>", "list item <Product 4, About 4, 35015>",
               "scroll bar <>"}));
    EXPECT_EQ(
        Driver::DescribeChildren(menu.picListItem[3]),
        Texts({"button <35027: Product 4>", "text <Product 4>", "text <About 4>", "text <35015>"}));
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
