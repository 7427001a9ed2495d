#include "texts/messages.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "testing/program_test.h"
#include "texts/numbers.h"

namespace trelin {
namespace {

TEST(Messages, PlaceholdersAreFilledInAscendingOrder) {
  const Argument absent;
  const ArgumentArray ten = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};
  const struct {
    const char *sCase, *sTemplate;
    ArgumentArray arguments;
    const char* sExpected;
  } cases[] = {
      {"used twice", "%0%-%0%", {"a"}, "a-a"},
      {"order in the text is free", "%1% %0%", {"a", "b"}, "b a"},
      {"gap between arguments", "%0% %1% %2%", {"a", absent, "c"}, "a %1% c"},
      {"empty argument is filled in", "[%0%]", {""}, "[]"},
      {"the tenth, but nothing above it", "%9% %10%", ten, "9 %10%"},
      {"number in plain decimal", "%0% %1%", {17, -3}, "17 -3"},
      {"inserted text is searched for higher ones", "%0%", {"%1%", "z"}, "z"},
      {"but not for its own or lower ones", "%0% %1%", {"%0%", "%0%"}, "%0% %0%"},
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

TEST(Numbers, AreReadAndFitOrRaise) {
  EXPECT_EQ(ParseInt16(" 12 ", "It"), 12);
  EXPECT_EQ(ParseInt16("-32768", "It"), -32768);
  EXPECT_EQ(ParseInt16("+7", "It"), 7);
  const auto read = [](const std::string& sText) {
    return Failure([&] { ParseInt16(sText, "It"); });
  };
  for (const std::string sText : {"", " ", "x", "1x", "1.5", "+-1", "--1", "-", "0x10"})
    EXPECT_EQ(read(sText), "It should be a whole number but reads \"" + sText + "\".");
  for (const std::string sText : {"32768", "-32769", "99999999999999999999"})
    EXPECT_EQ(read(sText), "It is " + sText + "; it must lie between -32768 and 32767.");
  EXPECT_EQ(ToInt16(-32768, "It"), -32768);
  for (const int lNumber : {32768, -32769})
    EXPECT_THROW(ToInt16(lNumber, "It"), std::overflow_error);
}

}  // namespace
}  // namespace trelin
