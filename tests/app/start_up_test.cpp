#include "app/start_up.h"

#include "suite/reg_entry.h"
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
  const struct {
    const char* sCase;
    Driver::Script answer;
    bool bAccepted;
  } cases[] = {
      {"Enter at once", [] { Driver::Type(Key::Enter); }, true},
      {"Yes", [] { Driver::Click(Agreement().cmdYes); }, true},
      {"Alt+Y", [] { Driver::TypeAccessKey('Y'); }, true},
      {"Esc", [] { Driver::Type(Key::Escape); }, false},
      {"No", [] { Driver::Click(Agreement().cmdNo); }, false},
      {"Alt+N", [] { Driver::TypeAccessKey('N'); }, false},
      {"Enter on No", [] { Agreement().cmdNo.SetFocus(), Driver::Type(Key::Enter); }, false},
      {"close box", Driver::CloseWindow, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.sCase);
    system.messages.clear();  // without a setup list, going on shows a message
    Driver::WhenWindowOpens(c.answer);
    Main();
    EXPECT_TRUE(Driver::ForgetScripts());
    EXPECT_EQ(system.messages.size(), c.bAccepted ? 1U : 0U);
  }
  RegEntry objReg;
  objReg.OpenKey("Copyright");
  EXPECT_EQ(objReg.GetString("Line2"), "Second line") << "written whatever the answer";
}

TEST_F(StartUpWindow, AnErrorOutOfAHandlerEndsTheProgramWithAMessage) {
  UseMenu(4, [&] {
    PressRow(0);
    MainMenu().objSetupList->SetCurrentIndex(99);
    Driver::Type(Key::Enter);
  });
  const ShownMessage expected{"There is no item 99 in a list of 4.", MessageIcon::Critical,
                              MessageButtons::Ok, "Trelin"};
  EXPECT_EQ(system.messages, std::vector{expected});
}

}  // namespace
}  // namespace trelin
