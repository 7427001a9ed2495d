#include "app/notice_lines.h"

#include <stdexcept>

#include "testing/program_test.h"

namespace trelin {
namespace {

using NoticeLines = ProgramTest;

TEST_F(NoticeLines, AreCopiedAndSurplusOnesStay) {
  auto& texts = libraries.Own();
  const auto written = [&] {
    std::string sAll;
    for (const char* sName : {"NumLines", "Line1", "Line2", "Line3"})
      sAll +=
          registry.Text("HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\Copyright", sName).value_or("-") +
          "|";
    return sAll;
  };
  for (const char* sCount : {"32768", "two"}) {
    texts[35040] = sCount;
    EXPECT_ANY_THROW(WriteNoticeLines()) << sCount;
    EXPECT_EQ(written(), "-|-|-|-|") << sCount;
  }
  texts[35043] = " Third line ";
  const std::pair<const char*, const char*> cases[] = {
      {"3", "3|First line|Second line| Third line |"},
      {"1", "1|New line|Second line| Third line |"},
      {"-1", "-1|New line|Second line| Third line |"},
      {"0", "0|New line|Second line| Third line |"},
  };
  for (const auto& [sCount, sWritten] : cases) {
    texts[35040] = sCount;
    EXPECT_TRUE(WriteNoticeLines());
    EXPECT_EQ(written(), sWritten);
    texts[35041] = "New line";
  }
}

}  // namespace
}  // namespace trelin
