#include "shared/label_lines.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace trelin {
namespace {

// In a line there is room for ten characters.
std::size_t CountOfTen(std::u16string_view sText) {
  return std::min<std::size_t>(10, sText.size());
}

std::string Joined(const LabelLines& label) {
  std::string sAll;
  for (const std::u16string& sLine : label.lines) {
    for (const char16_t c : sLine) sAll += c == u'\u2026' ? '~' : static_cast<char>(c);
    sAll += '|';
  }
  return sAll;
}

TEST(LabelLines, BreakAtSpacesAndEndInAnEllipsis) {
  const struct {
    std::u16string_view sText;
    int nMaxLines;
    const char* sLines;
  } cases[] = {
      {u"", 1, ""},
      {u"short", 1, "short|"},
      {u"ten letter", 1, "ten letter|"},
      {u"ten letter  ", 1, "ten letter|"},
      {u"ten letters", 1, "ten lette~|"},
      {u"ten letters", 2, "ten|letters|"},
      {u"one two   three", 2, "one two|three|"},
      {u"spaces at          the end", 1, "spaces at~|"},
      {u"spaces at          the end", 2, "spaces at|the end|"},
      {u"one two three four five", 2, "one two|three fou~|"},
      {u"measurement", 1, "measureme~|"},
      {u"measurement", 2, "measuremen|t|"},
      {u"a measurement", 2, "a|measureme~|"},
      {u"one\r\ntwo\n\nfour", 4, "one|two||four|"},
      {u"one\r\ntwo", 1, "one~|"},
      {u"no room", 0, "no room|"},
      {u"one\n", 1, "one|"},
      {u"no room at all", 0, "no room a~|"},
      {u"   led by spaces", 2, "   led by|spaces|"},
  };
  for (const auto& c : cases) {
    const LabelLines label = BreakIntoLines(c.sText, c.nMaxLines, CountOfTen);
    EXPECT_EQ(Joined(label), c.sLines);
    EXPECT_EQ(label.bWhole, Joined(label).find('~') == std::string::npos) << c.sLines;
  }
}

TEST(LabelLines, EndEvenWhereNothingFits) {
  const auto countNone = [](std::u16string_view) { return std::size_t{0}; };
  EXPECT_EQ(Joined(BreakIntoLines(u"a b", 9, countNone)), "a|b|");
  EXPECT_EQ(Joined(BreakIntoLines(u"a b", 1, countNone)), "~|");
}

// A very long text costs as little as one that is a bit too long.
TEST(LabelLines, OnlyTheBeginningOfALongTextIsMeasured) {
  for (const std::size_t nFitting : {50U, 128U, 1000U}) {
    std::size_t nMeasured = 0;
    const LabelLines label =
        BreakIntoLines(std::u16string(1'000'000, u'x'), 3, [&](std::u16string_view sPart) {
          nMeasured += sPart.size();
          return std::min(sPart.size(), nFitting);
        });
    ASSERT_EQ(label.lines.size(), 3U);
    EXPECT_EQ(label.lines[0].size(), nFitting);
    EXPECT_LT(nMeasured, 20'000U) << nFitting;
  }
}

}  // namespace
}  // namespace trelin
