#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/toolkit_window.h"

namespace trelin {

namespace {

TEST_F(ToolkitWindow, LoadsShowsAndUnloadsOnce) {
  form.OnLoad = Note("load");
  form.OnUnload = [this] {
    events.push_back("unload");
    form.Unload();
  };
  form.Unload();
  EXPECT_EQ(Taken(), Events());
  for (const auto& close :
       std::vector<Driver::Script>{[this] { form.Unload(); }, [] { Driver::CloseWindow(); }}) {
    Driver::ShowModal(form, [&] {
      EXPECT_TRUE(form.Loaded());
      EXPECT_TRUE(Driver::IsShown(form));
      close();
      EXPECT_FALSE(Driver::IsShown(form));
    });
    EXPECT_FALSE(form.Loaded());
    EXPECT_EQ(Taken(), Events({"load", "unload"}));
  }
}

TEST_F(ToolkitWindow, ReturnsAfterTheHandlerThatUnloadsIt) {
  yes.OnClick = [this] {
    form.Unload();
    Driver::Wait(30);
    events.push_back("handler's end");
  };
  Driver::ShowModal(form, [this] { Driver::Click(yes); });
  EXPECT_EQ(Taken(), Events({"handler's end"}));

  form.OnLoad = [this] { form.Unload(); };
  form.ShowModal();  // never shown
  EXPECT_FALSE(form.Loaded());
}

TEST_F(ToolkitWindow, TicksNeverInterruptAHandler) {
  int nTicks = 0;
  timer.OnTimer = [&] { ++nTicks; };
  const auto ticksDuring = [&](const Driver::Script& action) {
    const int nBefore = nTicks;
    action();
    return nTicks - nBefore;
  };
  yes.OnClick = [&] { EXPECT_EQ(ticksDuring([] { Driver::Wait(100); }), 0); };
  no.OnClick = [&] {
    const int nInBox = ticksDuring([] { Driver::ShowMessage("text", MessageButtons::Ok, ""); });
    EXPECT_EQ(nInBox, 0);
  };
  Driver::ShowModal(form, [&] {
    EXPECT_EQ(ticksDuring([] { Driver::Wait(50); }), 0);  // still disabled
    timer.SetEnabled(true);
    EXPECT_GT(ticksDuring([] { Driver::Wait(100); }), 2);
    Driver::Click(yes);
    Driver::WhenMessageOpens([&](OpenMessage&) {
      Driver::Wait(100);
      events.push_back("message");
    });
    Driver::Click(no);
    EXPECT_GT(ticksDuring([] { Driver::Wait(100); }), 2);
  });
  EXPECT_EQ(Taken(), Events({"message"}));
}

TEST_F(ToolkitWindow, PaintsGoOnWhileAMessageBoxIsOpen) {
  yes.OnClick = [] { Driver::ShowMessage("text", MessageButtons::Ok, ""); };
  Driver::ShowModal(form, [&] {
    Driver::WhenMessageOpens([&](OpenMessage&) {
      box.OnPaint = Note("paint");
      box.Refresh();
      Driver::Wait(50);
      Driver::Click(no);  // the box keeps input from its owner
    });
    Driver::Click(yes);
  });
  EXPECT_EQ(Taken(), Events({"paint"}));
}

TEST_F(ToolkitWindow, OnlyTheBoxThatAskedIsPainted) {
  PictureBox child(static_cast<Control&>(box));
  child.SetBounds(150, 150, 750, 750);
  child.OnPaint = Note("child");
  box.OnPaint = Note("box");
  Driver::ShowModal(form, [&] {
    Driver::Wait(50);
    Taken();
    const std::pair<Driver::Script, Events> cases[] = {
        {[&] { box.SetBackColor(Color::Cyan); }, {"box"}},
        {[&] { child.Refresh(); }, {"child"}},
        {[&] { yes.SetEnabled(false); }, {}},
    };
    for (const auto& [act, expected] : cases) {
      act();
      Driver::Wait(50);
      EXPECT_EQ(Taken(), expected);
    }
  });
}

TEST_F(ToolkitWindow, AnExceptionComesOutOfShowModal) {
  const auto fail = [] { throw std::runtime_error("fault"); };
  const auto failAt = [fail](Twips, Twips) { fail(); };
  struct Case {
    const char* sName;
    Driver::Script arm;
    Driver::Script act;
  };
  const Case cases[] = {
      {"click", [&] { yes.OnClick = fail; }, [&] { Driver::Click(yes); }},
      {"Enter", [&] { yes.OnClick = fail; }, [] { Driver::Type(Key::Enter); }},
      {"press", [&] { box.OnMouseDown = failAt; }, [&] { Driver::Press(box, px(9), py(9)); }},
      {"paint", [&] { box.OnPaint = fail; }, [&] { box.Refresh(); }},
      {"tick", [&] { timer.OnTimer = fail; }, [&] { timer.SetEnabled(true); }},
      {"wheel", [&] { bar.OnChange = fail; }, [&] { Driver::TurnWheel(box, -1); }},
      {"close box", [&] { form.OnUnload = fail; }, [] { Driver::CloseWindow(); }},
      {"unload", [&] { yes.OnClick = [&] { form.Unload(); }, form.OnUnload = fail; },
       [&] { Driver::Click(yes); }},
      {"value", [&] { yes.OnClick = [&] { bar.SetValue(7); }, bar.OnChange = fail; },
       [&] { Driver::Click(yes); }},
      {"paint beside a message",
       [&] {
         yes.OnClick = [&] {
           box.OnPaint = fail;
           box.Refresh();
           EXPECT_EQ(Driver::ShowMessage("", MessageButtons::YesNo, ""), MessageAnswer::No);
         };
       },
       [&] { Driver::Click(yes); }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.sName);
    const bool bWasLoaded = c.sName != std::string("close box") && c.sName != std::string("unload");
    Driver::ShowModal(form, [] {});
    EXPECT_THROW(Driver::ShowModal(form,
                                   [&] {
                                     c.arm();
                                     c.act();
                                     Driver::Wait(50);
                                     Driver::Click(no);  // is delivered no longer
                                   }),
                 std::runtime_error);
    EXPECT_FALSE(Driver::IsShown(form));
    EXPECT_EQ(form.Loaded(), bWasLoaded);
    EXPECT_EQ(Taken(), Events());
    yes.OnClick = box.OnPaint = timer.OnTimer = bar.OnChange = form.OnUnload = nullptr;
    box.OnMouseDown = nullptr;
    timer.SetEnabled(false);
    form.Unload();
  }
  form.OnLoad = fail;
  EXPECT_THROW(form.ShowModal(), std::runtime_error);
  EXPECT_TRUE(form.Loaded());
}

TEST_F(ToolkitWindow, AHandlerCanShowAnotherWindow) {
  Form inner(FormBorder::Sizable, false, 3000, 3000);
  Timer innerTimer(inner);
  innerTimer.SetInterval(10);
  innerTimer.OnTimer = [&] {
    innerTimer.SetEnabled(false);
    events.push_back("inner tick");
  };
  timer.OnTimer = Note("outer tick");
  yes.OnClick = [&] {
    innerTimer.SetEnabled(true);
    timer.SetEnabled(true);
    Driver::ShowModal(inner, [&] {
      Driver::Wait(60);
      Driver::Click(no);
    });
    timer.SetEnabled(false);
    events.push_back("shown");
  };
  Driver::ShowModal(form, [&] {
    Driver::Click(yes);
    Driver::Click(no);
  });
  EXPECT_EQ(Taken(), Events({"inner tick", "shown", "&No"}));
}

TEST_F(ToolkitWindow, MessageBoxesAnswer) {
  struct Case {
    MessageButtons buttons;
    std::function<void(OpenMessage&)> act;
    MessageAnswer answer;
  };
  const auto press = [](MessageAnswer button) {
    return [button](OpenMessage& message) { message.Press(button); };
  };
  const auto escape = [](OpenMessage& message) { message.PressEscape(); };
  const auto close = [](OpenMessage& message) { message.Close(); };
  const auto enter = [](OpenMessage&) { Driver::Type(Key::Enter); };
  const Case cases[] = {
      {MessageButtons::Ok, press(MessageAnswer::Ok), MessageAnswer::Ok},
      {MessageButtons::Ok, escape, MessageAnswer::Ok},
      {MessageButtons::Ok, close, MessageAnswer::Ok},
      {MessageButtons::YesNo, press(MessageAnswer::Yes), MessageAnswer::Yes},
      {MessageButtons::YesNo, press(MessageAnswer::No), MessageAnswer::No},
      {MessageButtons::YesNo, enter, MessageAnswer::Yes},
      {MessageButtons::YesNo, escape, MessageAnswer::No},
      {MessageButtons::YesNo, close, MessageAnswer::No},
  };
  const std::string sText = "<b>R&D</b> \x80 \xFC\r\nline";
  for (const Case& c : cases) {
    Driver::WhenMessageOpens([&](OpenMessage& message) {
      EXPECT_EQ(message.Title(), "Title & \xE9");
      EXPECT_EQ(message.Text(), sText);
      c.act(message);
    });
    EXPECT_EQ(Driver::ShowMessage(sText, c.buttons, "Title & \xE9"), c.answer);
  }
}

TEST_F(ToolkitWindow, LabelsCanBeReadAndLetTheBackgroundThrough) {
  Label label(box);
  label.SetBounds(150, 150, 1500, 600);
  label.SetFont({9.75F, true, true});
  box.SetBackColor(Color::Cyan);
  box.OnMouseDown = [this](Twips, Twips) { events.push_back("box"); };
  for (const std::string sText : {"Bore & shaft", "&Gauge", "<b>5</b>", "", "\xB5m \x80"}) {
    label.SetCaption(sText);
    EXPECT_EQ(label.Caption(), sText);
    EXPECT_EQ(Driver::ReadText(label), sText);
  }
  label.SetCaption("&");
  const Rgb cyan = Driver::RgbOf(Color::Cyan);
  Driver::ShowModal(form, [&] {
    std::ptrdiff_t nInk = 0;
    for (const auto& row : Driver::PixelsOf(label))
      nInk += std::count_if(row.begin(), row.end(), [&](const Rgb& rgb) { return rgb != cyan; });
    EXPECT_GT(nInk, 10);
    EXPECT_EQ(Driver::PixelAt(label, Driver::Bounds(label).nWidth - 1, 0), cyan);
    Driver::Click(label);
    label.OnMouseDown = Note("label");
    Driver::Click(label);
  });
  EXPECT_EQ(Taken(), Events({"box", "label"}));
}

TEST_F(ToolkitWindow, LinesLeaveOutTheirFinalPixel) {
  struct Line {
    int x1, y1, x2, y2;
    PixelRect drawn;  // the pixels in the end
  };
  const Line lines[] = {
      {2, 2, 6, 2, {2, 2, 4, 1}},    {6, 4, 2, 4, {3, 4, 4, 1}},   {10, 2, 10, 6, {10, 2, 1, 4}},
      {12, 6, 12, 2, {12, 3, 1, 4}}, {14, 2, 14, 2, {0, 0, 0, 0}}, {16, 3, 16, -1, {16, 0, 1, 4}},
  };
  box.OnPaint = [&] {
    for (const auto& [x1, y1, x2, y2, drawn] : lines)
      box.Line(px(static_cast<float>(x1)), py(static_cast<float>(y1)), px(static_cast<float>(x2)),
               py(static_cast<float>(y2)), Color::DarkShadow3D);
  };
  const auto isDrawn = [&](auto nColumn, auto nRow) {
    const auto x = static_cast<int>(nColumn);
    const auto y = static_cast<int>(nRow);
    for (const Line& line : lines) {
      const PixelRect& r = line.drawn;
      if (x >= r.nLeft && x < r.nLeft + r.nWidth && y >= r.nTop && y < r.nTop + r.nHeight)
        return true;
    }
    return false;
  };
  Driver::ShowModal(form, [&] {
    const auto pixels = Driver::PixelsOf(box);
    for (std::size_t y = 0; y < 8; ++y) {
      for (std::size_t x = 0; x < 18; ++x) {
        EXPECT_EQ(pixels.at(y).at(x),
                  Driver::RgbOf(isDrawn(x, y) ? Color::DarkShadow3D : Color::ButtonFace))
            << x << ", " << y;
      }
    }
    box.OnPaint = nullptr;
    box.SetBackColor(Color::Cyan);
    box.Line(0, 0, px(9), 0, Color::ButtonText);  // no paint, no line
    EXPECT_EQ(Driver::PixelAt(box, 2, 0), Driver::RgbOf(Color::Cyan));
  });
}

TEST_F(ToolkitWindow, ASunkenBorderLiesOutsideTheInnerArea) {
  PictureBox child(static_cast<Control&>(box));
  child.SetBounds(0, 0, px(10), py(10));
  child.SetBackColor(Color::Cyan);
  box.SetBorder(BoxBorder::Sunken);
  Twips pressedAt = -1;
  box.OnMouseDown = [&](Twips x, Twips) { pressedAt = x; };
  Driver::ShowModal(form, [&] {
    const PixelRect outer = Driver::Bounds(box);
    const PixelRect inner = Driver::Inside(box);
    EXPECT_EQ(inner,
              (PixelRect{outer.nLeft + 2, outer.nTop + 2, outer.nWidth - 4, outer.nHeight - 4}));
    EXPECT_EQ(Driver::PixelAt(box, 0, 0), Driver::RgbOf(Color::Cyan));
    const Color edge[] = {Color::ButtonShadow, Color::DarkShadow3D};
    for (int i = 0; i < 2; ++i)
      EXPECT_EQ(Driver::PixelAt(box, 5, i - 2), Driver::RgbOf(edge[i])) << i;
    EXPECT_EQ(Driver::PixelAt(box, 5, inner.nHeight + 1), Driver::RgbOf(Color::ButtonHighlight));
    Driver::Click(box, px(20), py(3));
    EXPECT_FLOAT_EQ(pressedAt, px(20));
  });
}

TEST_F(ToolkitWindow, IsLaidOutInPixelsOfTheScreen) {
  const float tx = Screen::TwipsPerPixelX();
  const auto pixels = [](double inches, float twipsPerPixel) {
    return static_cast<int>(inches * 1440 / static_cast<double>(twipsPerPixel) + 0.5);
  };
  EXPECT_GE(Screen::Width(), px(640));
  yes.SetBounds(1440, 720, 2880, 360);
  Label label(box);
  label.SetCaption("Measure");
  Driver::ShowModal(form, [&] {
    EXPECT_EQ(Driver::Bounds(yes),
              (PixelRect{pixels(1, tx), pixels(0.5, tx), pixels(2, tx), pixels(0.25, tx)}));
    EXPECT_FLOAT_EQ(yes.Width(), px(static_cast<float>(pixels(2, tx))));
    const PixelRect inside = Driver::Inside(form);
    EXPECT_EQ(inside.nWidth, pixels(6000.0 / 1440, tx));
    EXPECT_EQ(inside.nHeight, pixels(4500.0 / 1440, tx));
    form.Move(1440, 2880);
    EXPECT_FLOAT_EQ(form.Left(), 1440);
    EXPECT_FLOAT_EQ(form.Top(), 2880);
  });
}

TEST_F(ToolkitWindow, ControlsMayOutliveTheirContainer) {
  auto container = std::make_unique<Form>(FormBorder::Sizable, true, 3000.0F, 3000.0F);
  auto inner = std::make_unique<PictureBox>(*container);
  const Label label(*inner);
  const Timer late(*container);
  const ScrollBar scrollBar(*inner);
  container.reset();
  inner.reset();
}

}  // namespace

}  // namespace trelin
