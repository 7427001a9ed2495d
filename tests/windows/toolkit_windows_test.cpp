#include <windows.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "app/agreement.h"
#include "systems/windows/toolkit_native.h"
#include "testing/driver.h"

// What this system's windows alone can do.
namespace trelin {
namespace {

HWND HandleOf(const Control& control) { return control.Get().Handle(); }

// As a screen of another resolution tells the form that has come to it.
void TellDpi(const Form& form, int nDpi) {
  RECT place = {0, 0, 1200, 1000};
  SendMessageA(HandleOf(form), WM_DPICHANGED, MAKEWPARAM(nDpi, nDpi),
               reinterpret_cast<LPARAM>(&place));
}

TEST(WindowsWindow, IsLaidOutAnewOnAScreenOfAnotherResolution) {
  Form form(FormBorder::FixedSingle, true, 6000, 3000);
  PictureBox box(form);
  Label label(box);
  box.SetBounds(720, 360, 2880, 1440);
  label.SetBounds(0, 0, 2000, 240);
  std::vector<Twips> painted;
  box.OnPaint = [&] { painted = {Screen::TwipsPerPixelX(), box.Width(), box.Height()}; };
  Driver::ShowModal(form, [&] {
    for (const int nDpi : {144, 192, 96}) {
      TellDpi(form, nDpi);
      Driver::Wait(10);
      EXPECT_EQ(Driver::Inside(form), (PixelRect{0, 0, 6000 * nDpi / 1440, 3000 * nDpi / 1440}));
      EXPECT_EQ(Driver::Bounds(box), (PixelRect{nDpi / 2, nDpi / 4, 2 * nDpi, nDpi}));
      EXPECT_EQ(painted, (std::vector<Twips>{1440.0F / static_cast<Twips>(nDpi), 2880, 1440}));
      LOGFONTA font{};
      GetObjectA(reinterpret_cast<HFONT>(SendMessageA(HandleOf(label), WM_GETFONT, 0, 0)),
                 sizeof font, &font);
      EXPECT_EQ(font.lfHeight, -(nDpi * 33 + 144) / 288) << nDpi;
    }
  });
}

// The system runs a loop of its own while the thumb is held down.
TEST(WindowsWindow, AThumbThatIsDraggedKeepsNothingOpen) {
  Form form(FormBorder::FixedSingle, true, 3000, 6000);
  PictureBox box(form);
  ScrollBar bar(box);
  Timer timer(form);
  box.SetBounds(0, 0, 3000, 6000);
  bar.SetBounds(0, 0, 255, 6000);
  timer.SetInterval(10);
  const auto fail = [] { throw std::runtime_error("fault"); };
  const auto drag = [&] {
    Driver::Press(bar, 120, 300);
    Driver::MoveTo(bar, 120, 3000);
    timer.SetEnabled(true);
    Driver::Wait(100);
    Driver::Release(bar, 120, 3000);
  };
  bar.OnScroll = fail;
  EXPECT_THROW(Driver::ShowModal(form, drag), std::runtime_error);
  timer.SetEnabled(false);
  bar.OnScroll = nullptr;
  timer.OnTimer = [&] { form.Unload(); };
  Driver::ShowModal(form, [&] {
    drag();
    EXPECT_FALSE(form.Loaded()) << "no tick comes while the thumb is held";
  });
  EXPECT_EQ(GetCapture(), nullptr);
}

TEST(WindowsWindow, AWindowKeepsTheOneBelowFromAnswering) {
  Form below(FormBorder::FixedSingle, true, 3000, 3000);
  Form above(FormBorder::FixedSingle, true, 3000, 3000);
  Button show(below);
  show.SetBounds(0, 0, 1500, 600);
  bool bShown = false;
  show.OnClick = [&] {
    bShown = true;
    Driver::ShowModal(above, [&] {
      EXPECT_FALSE(Driver::TakesInput(below));
      PostMessageA(HandleOf(below), WM_CLOSE, 0, 0);
      Driver::Wait(10);
      EXPECT_TRUE(below.Loaded());
    });
    EXPECT_TRUE(Driver::TakesInput(below));
  };
  Driver::ShowModal(below, [&] { Driver::Click(show); });
  EXPECT_TRUE(bShown);
}

TEST(AgreementWindow, ShowsItsTextWholeWithALineToSpare) {
  frmMicrosoft form;
  const HWND hText = HandleOf(form.txtAgreement);
  Driver::ShowModal(form, [&] {
    EXPECT_EQ(SendMessageA(hText, EM_GETSEL, 0, 0), 0) << "text is selected";
    for (const int nDpi : {96, 110, 120, 144, 168, 192, 240}) {
      TellDpi(form, nDpi);
      RECT inside{};
      SendMessageA(hText, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&inside));
      const auto lineTop = [&](LRESULT nLine) {
        const LRESULT nAt = SendMessageA(hText, EM_LINEINDEX, static_cast<WPARAM>(nLine), 0);
        return HIWORD(SendMessageA(hText, EM_POSFROMCHAR, static_cast<WPARAM>(nAt), 0));
      };
      const LRESULT nLines = SendMessageA(hText, EM_GETLINECOUNT, 0, 0);
      const int nHeight = lineTop(1) - lineTop(0);
      EXPECT_GT(nLines, 18) << nDpi;
      EXPECT_LE(lineTop(nLines - 1) + 2 * nHeight, inside.bottom) << nDpi << " dpi: " << nLines;
    }
  });
}

}  // namespace
}  // namespace trelin
