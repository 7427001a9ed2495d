#include "startup/start_up.h"

#include "products/reg_entry.h"
#include "tests/program_window.h"

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
      {"Alt+Y", [] { Driver::TypeAccessKey('Y'); }, true},
      {"Yes", [] { Driver::Click(Agreement().cmdYes); }, true},
      {"Esc", [] { Driver::Type(Key::Escape); }, false},
      {"Alt+N", [] { Driver::TypeAccessKey('N'); }, false},
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

TEST_F(StartUpWindow, AFaultThatReachesMainIsShownWithItsSource) {
  const struct {
    const char *sCase, *sText;
    ShownMessage message;
  } cases[] = {
      {"format fault",
       "BLOCK X",
       {"35010(BLOCK|1|SETUPLIST|X)", MessageIcon::Critical, MessageButtons::Ok, "35009"}},
      {"bad line",
       "x",
       {"35008(1)", MessageIcon::Critical, MessageButtons::Ok, "BlockParse.GetToken"}},
      {"missing list",
       nullptr,
       {"Could not open the file \"C:\\Suite\\TRELIN.CFG\": there is no "
        "such file.",
        MessageIcon::Critical, MessageButtons::Ok, "Trelin"}},
  };
  for (const auto& c : cases) {
    system.files.clear();
    if (c.sText != nullptr) system.files[sList] = c.sText;
    system.messages.clear();
    Driver::WhenWindowOpens([] { Driver::Type(Key::Enter); });
    Main();
    EXPECT_EQ(system.messages, std::vector{c.message}) << c.sCase;
    EXPECT_EQ(system.nOpenFiles, 0) << c.sCase;
  }
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

TEST_F(StartUpWindow, MoreProductsThanTheMenuCanNumberAreRefused) {
  std::string sText = "BLOCK SETUPLIST\n";
  for (int i = 0; i < 32768; ++i) sText += "BLOCK APPLICATION\nEND\n";
  system.files[sList] = sText;
  Driver::WhenWindowOpens([] { Driver::Type(Key::Enter); });
  Main();
  ASSERT_EQ(system.messages.size(), 1U);
  EXPECT_EQ(system.messages[0].sText,
            "The setup list names 32768 products, but the menu can show 32767 at the most.");
}

TEST_F(StartUpWindow, AFailedStartShowsItsErrorAndNoWindow) {
  registry.RefuseAccess("HKEY_LOCAL_MACHINE\\SOFTWARE");
  const ShownMessage refused{"35002(SOFTWARE)", MessageIcon::Information, MessageButtons::Ok,
                             "Error at RegEntry.CreateInternal"};
  Main();
  EXPECT_EQ(system.messages, std::vector{refused});

  system.messages.clear();
  libraries.files.clear();
  Main();
  ASSERT_EQ(system.messages.size(), 1U);
  EXPECT_EQ(system.messages[0].sTitle, "Error at Trelin");
  EXPECT_EQ(system.messages[0].icon, MessageIcon::Information);
}

}  // namespace
}  // namespace trelin
