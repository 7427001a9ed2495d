#include "shared/code_page.h"

#include <gtest/gtest.h>

namespace trelin {
namespace {

TEST(CodePage, WhatItLacksBecomesOneQuestionMark) {
  EXPECT_EQ(FromUtf16(u"\u20AC\u00E4\u0081 \u0105 \U0001F600."), "\x80\xE4\x81 ? ?.");
  EXPECT_EQ(FromUtf8("\u20AC\u00E4 \u0105 \U0001F600."), "\x80\xE4 ? ?.");
  EXPECT_EQ(FromUtf8("\xC3 \xE2\x82 \xED\xA0\x80 \xFF"), "? ?? ??? ?") << "a mark each byte";
  EXPECT_EQ(ToUtf8("\x80\xE4\x81"), "\u20AC\u00E4\u0081");
}

}  // namespace
}  // namespace trelin
