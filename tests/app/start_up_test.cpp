#include "app/start_up.h"

#include <tuple>

#include "app/notice_lines.h"
#include "tests/app/program_window.h"

namespace trelin {
namespace {

using StartUpWindow = ProgramWindowTest;

TEST_F(StartUpWindow, TheAgreementStandsAsDesigned) {
  Driver::WhenWindowOpens([] {
    auto& form = Agreement();
    EXPECT_EQ(Driver::WindowTitle(), "Microsoft Product Integration Agreement");
    EXPECT_EQ(Driver::FrameOf(form), "icon, close box, sizable");
    ExpectInTheMiddle(form);
    ExpectPlaces({{"form", form, 0, 0, 6330, 5610},
                  {"text", form.txtAgreement, 150, 120, 5985, 4815},
                  {"Yes", form.cmdYes, 1950, 5160, 1125, 345},
                  {"No", form.cmdNo, 3165, 5160, 1125, 345}});
    EXPECT_EQ(Driver::ReadText(form.txtAgreement).substr(0, 19), "    The measurement");
    for (const Control* pNext : std::initializer_list<const Control*>{
             &form.txtAgreement, &form.cmdYes, &form.cmdNo, &form.txtAgreement}) {
      EXPECT_TRUE(Driver::HasFocus(*pNext));
      Driver::Type(Key::Tab);
    }
    Driver::CloseWindow();
  });
  Main();
  EXPECT_TRUE(Driver::ForgetScripts());
}

TEST_F(StartUpWindow, TheAgreementIsAcceptedByYesAlone) {
  const std::tuple<const char*, Driver::Script, bool> cases[] = {
      {"Enter at once", [] { Driver::Type(Key::Enter); }, true},
      {"Yes", [] { Driver::Click(Agreement().cmdYes); }, true},
      {"Alt+Y", [] { Driver::TypeAccessKey('Y'); }, true},
      {"Esc", [] { Driver::Type(Key::Escape); }, false},
      {"No", [] { Driver::Click(Agreement().cmdNo); }, false},
      {"Alt+N", [] { Driver::TypeAccessKey('N'); }, false},
      {"Enter on No", [] { Agreement().cmdNo.SetFocus(), Driver::Type(Key::Enter); }, false},
      {"close box", Driver::CloseWindow, false},
  };
  for (const auto& [sCase, answer, bAccepted] : cases) {
    SCOPED_TRACE(sCase);
    system.messages.clear();  // without a setup list, going on shows a message
    Driver::WhenWindowOpens(answer);
    Main();
    EXPECT_TRUE(Driver::ForgetScripts());
    EXPECT_EQ(system.messages.size(), bAccepted ? 1U : 0U);
  }
}

TEST_F(StartUpWindow, NoticeLinesAreCopiedAndSurplusOnesStay) {
  auto& texts = libraries.Own();
  texts[35043] = " Third line ";
  const std::pair<const char*, const char*> cases[] = {
      {"32768", "-|-|-|-|"},
      {"two", "-|-|-|-|"},
      {"3", "3|First line|Second line| Third line |"},
      {"1", "1|New line|Second line| Third line |"},
      {"-1", "-1|New line|Second line| Third line |"},
      {"0", "0|New line|Second line| Third line |"},
  };
  const std::string sKey = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\Copyright";
  for (const auto& [sCount, sExpected] : cases) {
    texts[35040] = sCount;
    if (*sCount == '1') texts[35041] = "New line";
    Failure(WriteNoticeLines);
    std::string sWritten;
    for (const char* sName : {"NumLines", "Line1", "Line2", "Line3"})
      sWritten += registry.Text(sKey, sName).value_or("-") + "|";
    EXPECT_EQ(sWritten, sExpected) << sCount;
  }
}

}  // namespace
}  // namespace trelin
