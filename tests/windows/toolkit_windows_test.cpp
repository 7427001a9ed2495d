#include <windows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
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

void SetTextScale(DWORD lPercent) {
  RegSetKeyValueA(HKEY_CURRENT_USER, "Software\\Microsoft\\Accessibility", "TextScaleFactor",
                  REG_DWORD, &lPercent, sizeof lPercent);
}

TEST(WindowsWindow, IsAsLargeAsTextsAreToBeAndAsTheScreenHasRoomFor) {
  const int nDpi = static_cast<int>(std::lround(1440 / Screen::TwipsPerPixelX()));
  const Twips screen = Screen::Width();
  const struct {
    DWORD lPercent;
    Twips width;
    bool bFits;
  } rows[] = {{100, 3000, true},  {150, 3000, true},           {225, 3000, true},
              {1000, 3000, true}, {100, 1.1F * screen, false}, {200, 0.6F * screen, false}};
  for (const auto& row : rows) {
    SetTextScale(row.lPercent);
    Form form(FormBorder::FixedSingle, true, row.width, 1440);
    Driver::ShowModal(form, [&] {
      SCOPED_TRACE(row.lPercent);
      const PixelRect inside = Driver::Inside(form);
      const int nLarger = static_cast<int>(std::min<DWORD>(row.lPercent, 225)) * nDpi / 100;
      if (row.bFits)
        EXPECT_EQ(inside.nHeight, nLarger);  // it is an inch high
      else
        EXPECT_LE(form.Width(), Screen::Width());
      EXPECT_NEAR(inside.nWidth, static_cast<Twips>(inside.nHeight) * row.width / 1440,
                  inside.nWidth / 40);
    });
  }
  SetTextScale(100);
}

// The user's colours, until they are put back.
class SystemColors {
 public:
  SystemColors(COLORREF face, COLORREF text) {
    const COLORREF colors[] = {face, text, RGB(0, 0, 128), RGB(255, 255, 0)};
    for (int i = 0; i < Count; ++i) before_[i] = GetSysColor(Indexes[i]);
    SetSysColors(Count, Indexes, colors);
  }
  ~SystemColors() { SetSysColors(Count, Indexes, before_); }
  SystemColors(const SystemColors&) = delete;
  SystemColors& operator=(const SystemColors&) = delete;

 private:
  static constexpr int Count = 4;
  static constexpr int Indexes[Count] = {COLOR_BTNFACE, COLOR_BTNTEXT, COLOR_HIGHLIGHT,
                                         COLOR_HIGHLIGHTTEXT};
  COLORREF before_[Count] = {};
};

// Also while it is shown, and not on what has the system's colours. Wine never has the
// mark of high contrast set, so that only the texts' colour tells.
TEST(WindowsWindow, ColorsOfTheProgramGiveWayToThoseOfTheUser) {
  Form form(FormBorder::FixedSingle, true, 3000, 1440);
  PictureBox boxes[] = {PictureBox(form), PictureBox(form)};
  Label labels[] = {Label(boxes[0]), Label(boxes[1])};
  for (int i = 0; i < 2; ++i) {
    boxes[i].SetBounds(0, static_cast<Twips>(720 * i), 3000, 720);
    labels[i].SetBounds(300, 150, 1440, 240);
    labels[i].SetCaption("I");
  }
  boxes[0].SetBackColor(Color::Cyan);
  const struct {
    const char* sColors;
    COLORREF face, text;
    Color back, fore;  // of what the program has coloured
  } rows[] = {
      {"dark on light", RGB(255, 255, 255), RGB(0, 0, 0), Color::Cyan, Color::ButtonText},
      {"light on dark", RGB(0, 0, 0), RGB(255, 255, 255), Color::Highlight, Color::HighlightText},
  };
  Driver::ShowModal(form, [&] {
    for (const auto& row : rows) {
      SCOPED_TRACE(row.sColors);
      const SystemColors colors(row.face, row.text);
      Driver::Wait(50);
      EXPECT_EQ(boxes[0].ForeColor(), row.fore);
      const Color expected[][2] = {{row.back, row.fore}, {Color::ButtonFace, Color::ButtonText}};
      for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(Driver::PixelAt(boxes[i], 2, 2), Driver::RgbOf(expected[i][0]));
        EXPECT_EQ(Driver::PixelAt(labels[i], 90, 2), Driver::RgbOf(expected[i][0]));
        const auto pixels = Driver::PixelsOf(labels[i]);
        const auto hasText = [&](const auto& line) {
          return std::find(line.begin(), line.end(), Driver::RgbOf(expected[i][1])) != line.end();
        };
        EXPECT_TRUE(std::any_of(pixels.begin(), pixels.end(), hasText)) << "box " << i;
      }
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
