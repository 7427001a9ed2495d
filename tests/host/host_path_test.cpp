#include "platform/host/host_path.h"

#include "tests/host/temporary_folder.h"

namespace trelin {
namespace {

TEST(HostPathTest, FindsNamesInAnyLetterCase) {
  const TemporaryFolder folder;
  for (const char* sName : {"M\u00fcller.bmp", "menu.ICO", "Menu.ICO", "\u65e5"}) {
    folder.Write(std::string("Icons/") + sName, "");
  }
  const char* const cases[][2] = {
      {"icons\\M\xDCLLER.BMP", "Icons/M\u00fcller.bmp"},
      {"ICONS/..\\.\\icons\\menu.ICO", "Icons/.././Icons/menu.ICO"},  // as written
      {"icons\\MENU.ico", "Icons/Menu.ICO"},                          // first in byte order
      {"ICONS\\\\", "Icons//"},
      {"icons\\Gone\\MENU.ico", "Icons/Gone/MENU.ico"},
      {"icons\\?", "Icons/?"},  // not the name that the code page lacks
      {"\\", "/"},
      {"", ""},
  };
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder / "");
  for (const auto& [sPath, sHostPath] : cases) {
    EXPECT_EQ(HostPath(sPath), sHostPath);
    EXPECT_EQ(HostPath(ProgramPath(folder / "") + sPath), folder / sHostPath);
  }
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace trelin
