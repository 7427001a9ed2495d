#include "shared/label_lines.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace trelin {
namespace {

TEST(LabelLines, BreakAtSpacesAndEndInAnEllipsis) {
  const struct {
    std::u16string_view sText;
    int nMaxLines;
    std::u16string sLines;   // joined
    std::size_t nRoom = 10;  // characters of a line
  } cases[] = {
      {u"", 1, u""},
      {u"short", 1, u"short"},
      {u"ten letter", 1, u"ten letter"},
      {u"ten letter  ", 1, u"ten letter"},
      {u"ten letters", 1, u"ten lette\u2026"},
      {u"ten letters", 2, u"ten\nletters"},
      {u"one two   three", 2, u"one two\nthree"},
      {u"spaces at          the end", 1, u"spaces at\u2026"},
      {u"spaces at          the end", 2, u"spaces at\nthe end"},
      {u"one two three four five", 2, u"one two\nthree fou\u2026"},
      {u"measurement", 1, u"measureme\u2026"},
      {u"measurement", 2, u"measuremen\nt"},
      {u"a measurement", 2, u"a\nmeasureme\u2026"},
      {u"one\r\ntwo\n\nfour", 4, u"one\ntwo\n\nfour"},
      {u"one\r\ntwo", 1, u"one\u2026"},
      {u"no room", 0, u"no room"},
      {u"one\n", 1, u"one"},
      {u"no room at all", 0, u"no room a\u2026"},
      {u"   led by spaces", 2, u"   led by\nspaces"},
      {u"a b", 9, u"a\nb", 0},
      {u"a b", 1, u"\u2026", 0},
  };
  for (const auto& c : cases) {
    const LabelLines label = BreakIntoLines(c.sText, c.nMaxLines, [&](std::u16string_view sPart) {
      return std::min(c.nRoom, sPart.size());
    });
    EXPECT_EQ(label.Joined(), c.sLines);
    EXPECT_EQ(label.bWhole, c.sLines.find(u'\u2026') == std::u16string::npos) << &c - cases;
  }
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
