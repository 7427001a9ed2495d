#include <algorithm>

#include "testing/windows/accessible_client.h"
#include "tests/app/program_window.h"

namespace trelin {
namespace {

using WindowsMenuWindow = ProgramWindowTest;

bool Contains(const std::vector<std::string>& events, const std::string& sEvent) {
  return std::find(events.begin(), events.end(), sEvent) != events.end();
}

TEST_F(WindowsMenuWindow, TellsAScreenReaderOfChanges) {
  Record("other", "1");
  UseMenu(5, [&](auto& menu) {
    menu.Timer1.SetInterval(10);
    auto events = EventsDuring([] { Driver::Type(Key::Down); });
    EXPECT_TRUE(Contains(events, "focus <Product 1, About 1, 35015>"));
    EXPECT_TRUE(Contains(events, "selection <Product 1, About 1, 35015>"));
    Driver::Type(Key::PageDown);
    events = EventsDuring([] { Driver::Type(Key::PageUp); });
    EXPECT_TRUE(Contains(events, "name <Product 1, About 1, 35015>")) << "the row is another one";
    EXPECT_TRUE(Contains(events, "focus <Product 1, About 1, 35015>"));
    Driver::Type(Key::Enter);
    events = EventsDuring([&] {
      Record("P1", "1");
      Driver::Wait(50);
    });
    EXPECT_TRUE(Contains(events, "name <Product 1, About 1, 35016>"));
    EXPECT_TRUE(Contains(events, "announcement <35016>"));
    EXPECT_EQ(events.size(), 3U) << "the row, its status and the announcement";
  });
}

}  // namespace
}  // namespace trelin
