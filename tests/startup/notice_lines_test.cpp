#include "startup/notice_lines.h"

#include <stdexcept>

#include "products/reg_entry.h"
#include "startup/error.h"
#include "startup/string_resources.h"
#include "tests/fake_platform.h"

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

TEST_F(NoticeLines, ACountThatIsNoNumberWritesNothing) {
  Texts()[35040] = "32768";
  EXPECT_THROW(WriteNoticeLines(), std::overflow_error);
  libraries.files.clear();
  InitStringResources(1033);
  try {
    WriteNoticeLines();
    FAIL() << "a missing library was not noticed";
  } catch (const std::invalid_argument& error) {
    EXPECT_NE(std::string(error.what()).find("ENU35000.DLL"), std::string::npos) << error.what();
  }
  EXPECT_EQ(Written(), "no key");
}

TEST_F(NoticeLines, AValueThatCannotBeWrittenIsNamedAndLinesBeforeItStay) {
  registry.RefuseValue("Line2");
  try {
    WriteNoticeLines();
    FAIL() << "the refusal was not noticed";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), 5002);
    EXPECT_EQ(error.Source(), "RegEntry.SetValue");
    EXPECT_EQ(error.Description(), "35003(Line2)");
  }
  EXPECT_EQ(Written(), "2|First line||");
  EXPECT_EQ(registry.OpenHandles(), 0U);
}

}  // namespace
}  // namespace trelin
