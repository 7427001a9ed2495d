#include "platform/host/host_path.h"

#include <unistd.h>

#include "tests/temporary_folder.h"

namespace trelin {
namespace {

TEST(HostPathTest, FindsNamesInAnyLetterCase) {
  const TemporaryFolder folder;
  for (const char* sName : {"M\u00fcller.bmp", "menu.ICO", "Menu.ICO"})
    folder.Write(std::string("Icons/") + sName, "");
  const char* const cases[][2] = {
      {"icons\\M\xDCLLER.BMP", "Icons/M\u00fcller.bmp"},
      {"ICONS/..\\icons\\menu.ICO", "Icons/../Icons/menu.ICO"},  // as written
      {"icons\\MENU.ico", "Icons/Menu.ICO"},                     // first in byte order
      {"ICONS\\\\", "Icons//"},
      {"icons\\Gone\\MENU.ico", "Icons/Gone/MENU.ico"},
  };
  for (const auto& [sPath, sHostPath] : cases)
    EXPECT_EQ(HostPath(ProgramPath(folder / "") + sPath), folder / sHostPath);
}

TEST(HostPathTest, SeesThatFolderHasChanged) {
  const TemporaryFolder folder;
  const auto found = [&folder] { return HostPath(ProgramPath(folder / "MENU.ICO")); };
  usleep(30'000);  // from then on its names are kept
  EXPECT_EQ(found(), folder / "MENU.ICO");
  folder.Write("menu.ico", "");
  EXPECT_EQ(found(), folder / "menu.ico");
  std::filesystem::rename(folder / "menu.ico", folder / "Menu.ico");  // in the same moment
  EXPECT_EQ(found(), folder / "Menu.ico");
}

}  // namespace
}  // namespace trelin
