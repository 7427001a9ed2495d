#include "platform/host/command_line.h"

#include <gtest/gtest.h>

#include <tuple>

namespace trelin {
namespace {

TEST(CommandLineTest, TakesCommandLinesApart) {
  const auto isFile = [](const std::string& sPath) {
    return sPath == "C:\\My  Suite\\a.exe" || sPath == "C:\\My" ||
           sPath == "C:\\My  Suite\\a.exe b";
  };
  const std::tuple<const char*, const char*, std::vector<std::string>> cases[] = {
      {"", "", {}},
      {"\"", "", {}},
      {"\"C:\\a b.exe\"  /q", "C:\\a b.exe", {"/q"}},
      {"  \"a\"b", "a", {"b"}},
      {"\"C:\\a b", "C:\\a b", {}},
      {"\"\" x", "", {"x"}},
      {"C:\\My  Suite\\a.exe", "C:\\My  Suite\\a.exe", {}},
      {" C:\\My  Suite\\a.exe  ", "C:\\My  Suite\\a.exe", {}},
      {"C:\\My  Suite\\a.exe  c", "C:\\My  Suite\\a.exe", {"c"}},
      {"C:\\My  Suite\\a.exe b c", "C:\\My  Suite\\a.exe b", {"c"}},
      {"C:\\My  Suite\\b.exe", "C:\\My", {"Suite\\b.exe"}},
      {"p a\tb  c ", "p", {"a", "b", "c"}},
      {"p \"a b\"c d\"e f\"", "p", {"a bc", "de f"}},
      {"p \"\" \"a", "p", {"", "a"}},
      {"p a\\\\b \"c\\\\\" d\\", "p", {"a\\\\b", "c\\", "d\\"}},
      {"p \\\"a\\\" \\\\\"b c\"", "p", {"\"a\"", "\\b c"}},
      {"p \\\\\\\"a", "p", {"\\\"a"}},
      {"p \"a\"\"b c\" d", "p", {"a\"b c", "d"}},
  };
  for (const auto& [sText, sProgram, arguments] : cases) {
    const CommandLine command = ResolveCommandLine(sText, isFile);
    EXPECT_EQ(command.sProgram, sProgram) << sText;
    EXPECT_EQ(command.arguments, arguments) << sText;
  }
}

}  // namespace
}  // namespace trelin
