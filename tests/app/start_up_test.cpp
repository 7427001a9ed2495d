#include "app/start_up.h"

#include "suite/reg_entry.h"
#include "tests/app/program_window.h"

namespace trelin {
namespace {

using StartUpWindow = ProgramWindowTest;

const std::string sList = "C:\\Suite\\TRELIN.CFG";

TEST_F(StartUpWindow, TheAgreementIsAcceptedByYesAlone) {
  const struct {
    const char* sCase;
    Driver::Script answer;
    bool bAccepted;
  } cases[] = {
      {"Enter at once", [] { Driver::Type(Key::Enter); }, true},
      {"Yes", [] { Driver::Click(Agreement().cmdYes); }, true},
      {"Esc", [] { Driver::Type(Key::Escape); }, false},
      {"Enter on No",
       [] {
         Driver::Type(Key::Tab);
         Driver::Type(Key::Tab);
         Driver::Type(Key::Enter);
       },
       false},
      {"close box", [] { Driver::CloseWindow(); }, false},
  };
  for (const auto& c : cases) {
    system.messages.clear();  // without a setup list, going on shows a message
    Driver::WhenWindowOpens([&] {
      EXPECT_EQ(Driver::WindowTitle(), "Microsoft Product Integration Agreement") << c.sCase;
      EXPECT_TRUE(Driver::HasFocus(Agreement().txtAgreement)) << c.sCase;
      c.answer();
    });
    Main();
    EXPECT_EQ(system.messages.size(), c.bAccepted ? 1U : 0U) << c.sCase;
  }
  RegEntry objReg;
  objReg.OpenKey("Copyright");
  EXPECT_EQ(objReg.GetString("Line2"), "Second line") << "written whatever the answer";
}

TEST_F(StartUpWindow, AWindowOpensInTheMiddleOfTheScreen) {
  // Some systems add the frame only when the window is shown.
  const Twips frame = 4 * Screen::TwipsPerPixelX();
  UseMenu(7, [&] {
    const Form& form = MainMenu();
    EXPECT_NEAR(form.Left() + form.Width() / 2, Screen::Width() / 2, frame);
    EXPECT_NEAR(form.Top() + form.Height() / 2, Screen::Height() / 2, frame);
  });
}

TEST_F(StartUpWindow, AFaultInTheSetupListIsShownWithItsSource) {
  system.files[sList] = "BLOCK X";
  Driver::WhenWindowOpens([] { Driver::Type(Key::Enter); });
  Main();
  const ShownMessage expected{"35010(BLOCK|1|SETUPLIST|X)", MessageIcon::Critical,
                              MessageButtons::Ok, "35009"};
  EXPECT_EQ(system.messages, std::vector{expected});
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

TEST_F(StartUpWindow, AFailedStartShowsItsErrorAndNoWindow) {
  registry.RefuseAccess("HKEY_LOCAL_MACHINE\\SOFTWARE");
  const ShownMessage refused{"35002(SOFTWARE)", MessageIcon::Information, MessageButtons::Ok,
                             "Error at RegEntry.CreateInternal"};
  Main();
  EXPECT_EQ(system.messages, std::vector{refused});
}

}  // namespace
}  // namespace trelin
