#include "app/notice_lines.h"

#include <stdexcept>

#include "suite/reg_entry.h"
#include "testing/program_test.h"

namespace trelin {
namespace {

class NoticeLines : public ProgramTest {
 protected:
  // "NumLines|Line1|Line2|Line3" as the registry holds them.
  static std::string Written() {
    RegEntry objReg;
    if (!objReg.TestKey("Copyright")) return "no key";
    objReg.OpenKey("Copyright");
    std::string sAll = objReg.GetString("NumLines");
    for (const char* sLine : {"Line1", "Line2", "Line3"}) sAll += "|" + objReg.GetString(sLine);
    return sAll;
  }

  FakeLibraries::Texts& Texts() { return libraries.files["C:\\Suite\\ENU35000.DLL"]; }
};

TEST_F(NoticeLines, AreCopiedAndSurplusOnesStay) {
  Texts()[35040] = "3";
  Texts()[35043] = "Third line";
  EXPECT_TRUE(WriteNoticeLines());
  EXPECT_EQ(Written(), "3|First line|Second line|Third line");

  Texts()[35040] = "1";
  Texts()[35041] = "New line";
  WriteNoticeLines();
  EXPECT_EQ(Written(), "1|New line|Second line|Third line");

  Texts()[35040] = "-1";
  WriteNoticeLines();
  EXPECT_EQ(Written(), "-1|New line|Second line|Third line");
}

TEST_F(NoticeLines, ACountThatIsNo16BitNumberWritesNothing) {
  Texts()[35040] = "32768";
  EXPECT_THROW(WriteNoticeLines(), std::overflow_error);
  Texts()[35040] = "two";
  EXPECT_THROW(WriteNoticeLines(), std::invalid_argument);
  EXPECT_EQ(Written(), "no key");
}

}  // namespace
}  // namespace trelin
