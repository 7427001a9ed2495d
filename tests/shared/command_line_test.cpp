#include "shared/command_line.h"

#include <gtest/gtest.h>

#include <tuple>

namespace trelin {
namespace {

TEST(CommandLineTest, TakesCommandLinesApart) {
  const PathTests path = {
      [](const std::string& s) { return s == "C:\\My  Suite\\a" || s == "C:\\My" || s == "p"; },
      [](const std::string& s) { return s == "C:" || s == "C:\\My  Suite"; }};
  const std::tuple<const char*, const char*, std::vector<std::string>> cases[] = {
      {"", "", {}},
      {"  \"C:\\a b\"  c", "C:\\a b", {"c"}},
      {"\"", "", {}},
      {"\"C:\\a b", "C:\\a b", {}},
      {" C:\\My  Suite\\a  c", "C:\\My  Suite\\a", {"c"}},
      {"C:\\My  Suite\\b  c ", "C:\\My  Suite\\b  c", {}},
      {"C:\\My  Suit\\b ", "C:\\My", {"Suit\\b"}},
      {"C:\\My", "C:\\My", {}},
      {"q a", "q a", {}},
      {"p \"a b\"c\td\"e f\" \"\" \"g", "p", {"a bc", "de f", "", "g"}},
      {"p a\\\\b \"c\\\\\" d\\", "p", {"a\\\\b", "c\\", "d\\"}},
      {"p \\\"a \\\\\"b c\" \\\\\\\"d", "p", {"\"a", "\\b c", "\\\"d"}},
      {"p \"a\"\"b c\" d", "p", {"a\"b c", "d"}},
  };
  for (const auto& [sText, sProgram, arguments] : cases) {
    const CommandLine command = ResolveCommandLine(sText, path);
    EXPECT_EQ(command.sProgram, sProgram) << sText;
    EXPECT_EQ(SplitArguments(command.sArguments), arguments) << sText;
  }
}

TEST(CommandLineTest, AsksAboutNoPathThatIsLongerThanPathsCanBe) {
  std::string sText;
  while (sText.size() < 100'000) sText += "ab\\c ";
  const PathTests path = {[](const std::string& s) { return s.size() > 32760; },
                          [](const std::string& s) { return s.size() > 32767; }};
  EXPECT_EQ(ResolveCommandLine(sText, path).sProgram, sText.substr(0, 32764));
}

TEST(CommandLineTest, LeavesTheTextBehindTheProgramAsItIs) {
  const std::pair<const char*, const char*> cases[] = {
      {"C:\\a.exe", ""},
      {"C:\\a.exe \t D:\\My  Suite ", "D:\\My  Suite "},
      {"\"C:\\My Suite\\a.exe\"  \"D:\\x y\"", "\"D:\\x y\""},
      {"\"C:\\My Suite\\a\".exe x", "x"},
  };
  for (const auto& [sText, sRest] : cases) EXPECT_EQ(TextAfterProgram(sText), sRest) << sText;
}

}  // namespace
}  // namespace trelin
