#include "texts/messages.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "testing/program_test.h"
#include "texts/numbers.h"
#include "texts/string_resources.h"

namespace trelin {
namespace {

TEST(Messages, PlaceholdersAreFilledInAscendingOrder) {
  const Argument absent;
  const struct {
    const char* sCase;
    const char* sTemplate;
    ArgumentArray arguments;
    const char* sExpected;
  } cases[] = {
      {"one argument", "Key %0% not found", {"Foo"}, "Key Foo not found"},
      {"used twice", "%0%-%0%", {"a"}, "a-a"},
      {"order in the text is free", "%1% %0%", {"a", "b"}, "b a"},
      {"absent argument stays", "%0% %2%", {"a", "b"}, "a %2%"},
      {"gap between arguments", "%0% %1% %2%", {"a", absent, "c"}, "a %1% c"},
      {"empty argument is filled in", "[%0%]", {""}, "[]"},
      {"the tenth, but nothing above it",
       "%9% %10%",
       {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"},
       "9 %10%"},
      {"number in plain decimal", "%0% %1%", {17, -3}, "17 -3"},
      {"inserted text is searched for higher ones", "%0%", {"%1%", "z"}, "z"},
      {"inserted text is not searched for its own or lower ones",
       "%0% %1%",
       {"%0%", "%0%"},
       "%0% %0%"},
      {"arguments join into a placeholder", "%%0%%", {"1", "z"}, "z"},
      {"spaces make it no placeholder", "%0 % % 0%", {"a"}, "%0 % % 0%"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(SubstituteArguments(c.sTemplate, c.arguments), c.sExpected) << c.sCase;
}

TEST(Messages, TextsBeyond16BitsOverflowAndKeepTheirPlaceholders) {
  const std::string sLongest(std::numeric_limits<std::int16_t>::max(), 'x');
  EXPECT_EQ(ReplaceText(sLongest, "y", "z"), sLongest);
  EXPECT_THROW(ReplaceText(sLongest + "x", "y", "z"), std::overflow_error);

  // The first argument makes the text too long for the second.
  EXPECT_EQ(SubstituteArguments("%0% %1%", {sLongest, "b"}), sLongest + " %1%");

  // A gigabyte would come of it.
  std::string sPlaceholders;
  while (sPlaceholders.size() < sLongest.size()) sPlaceholders += "%0%";
  sPlaceholders.resize(sLongest.size());
  EXPECT_EQ(SubstituteArguments(sPlaceholders, {std::string(100'000, 'x')}), sPlaceholders);
}

TEST_F(ProgramTest, AMessageIsEmptyBeforeLookupsAreEnabledAndFilledAfterwards) {
  EXPECT_EQ(FormatResourceString(TextNumber::RevisionTooLow, "2.0", "Runtime", "1.0"),
            "35037(2.0|Runtime|1.0)");
  EXPECT_EQ(FormatResourceString(35100, {"x"}), "35000(35100)")
      << "the template of a missing string";
}

TEST(Numbers, AreReadAndFitOrRaise) {
  EXPECT_EQ(ParseInt16(" 12 ", "It"), 12);
  EXPECT_EQ(ParseInt16("-32768", "It"), -32768);
  EXPECT_EQ(ParseInt16("+7", "It"), 7);
  for (const char* sText :
       {"", " ", "x", "1x", "1.5", "+-1", "--1", "-", "0x10", "Error: Resource File Not Found"})
    EXPECT_THROW(ParseInt16(sText, "It"), std::invalid_argument) << sText;
  for (const char* sText : {"32768", "-32769", "99999999999999999999"})
    EXPECT_THROW(ParseInt16(sText, "It"), std::overflow_error) << sText;
  EXPECT_THROW(ToInt16(32768, "It"), std::overflow_error);
}

}  // namespace
}  // namespace trelin
