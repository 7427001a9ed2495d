#include "seam/toolkit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "testing/driver.h"

namespace trelin {

namespace {

using Events = std::vector<std::string>;

Twips px(int nPixels) { return static_cast<Twips>(nPixels) * Screen::TwipsPerPixelX(); }
Twips py(int nPixels) { return static_cast<Twips>(nPixels) * Screen::TwipsPerPixelY(); }

// Button 0 is the default one, button 1 the cancel button; the box and the
// bar in it stand below them.
class ToolkitWindow : public testing::Test {
 protected:
  ToolkitWindow() {
    LayOut(yes, 0, "&Yes");
    LayOut(no, 1, "&No");
    yes.SetDefault();
    no.SetCancel();
    box.SetBounds(150, 1500, 4500, 2250);
    bar.SetBounds(4050, 0, 255, 2250);
    timer.SetInterval(10);
  }
  ~ToolkitWindow() override { EXPECT_TRUE(Driver::ForgetScripts()); }

  void LayOut(Button& button, std::int16_t nIndex, const std::string& sCaption) {
    button.SetBounds(1500.0F * nIndex + 150, 150, 1125, 345);
    button.SetCaption(sCaption);
    button.SetTabIndex(nIndex);
    button.OnClick = Note(sCaption);
  }

  std::function<void()> Note(const std::string& sEvent) {
    return [this, sEvent] { events.push_back(sEvent); };
  }

  static Driver::Script Type(Key key) {
    return [key] { Driver::Type(key); };
  }

  // What has happened since the last call.
  Events Taken() { return std::exchange(events, {}); }

  Events events;
  Form form{FormBorder::FixedSingle, true, 6000, 4500};
  Button yes{form};
  Button no{form};
  PictureBox box{form};
  ScrollBar bar{box};
  Timer timer{form};
};

TEST_F(ToolkitWindow, LoadsShowsAndUnloadsOnce) {
  form.OnLoad = Note("load");
  form.OnUnload = [this] {
    events.push_back("unload");
    form.Unload();
  };
  yes.OnClick = [this] {
    form.Unload();
    Driver::Wait(30);
    events.push_back("handler's end");
  };
  form.Unload();
  Driver::ShowModal(form, [this] { Driver::Click(yes); });
  EXPECT_EQ(Taken(), Events({"load", "unload", "handler's end"}));
  Driver::ShowModal(form, Driver::CloseWindow);
  EXPECT_EQ(Taken(), Events({"load", "unload"}));
}

TEST_F(ToolkitWindow, OnlyPaintsInterruptAHandler) {
  int nTicks = 0;
  timer.OnTimer = [&] { ++nTicks; };
  const auto wait = [] { Driver::Wait(100); };
  yes.OnClick = [&] {
    nTicks = 0;
    wait();
    Driver::ShowMessage("text", MessageButtons::Ok, "");
    EXPECT_EQ(nTicks, 0);
  };
  Driver::ShowModal(form, [&] {
    wait();
    EXPECT_EQ(nTicks, 0) << "starts disabled";
    timer.SetEnabled(true);
    wait();
    EXPECT_GT(nTicks, 2);
    Driver::WhenWindowOpens([&] {
      box.OnPaint = Note("paint");
      box.Refresh();
      wait();
      Driver::Click(no);  // the message box keeps input from its owner
      Driver::Answer(MessageAnswer::Ok);
    });
    Driver::Click(yes);
    wait();
    EXPECT_GT(nTicks, 2) << "ticks go on";
  });
  EXPECT_EQ(Taken(), Events({"paint"}));
}

TEST_F(ToolkitWindow, AnExceptionComesOutOfShowModal) {
  const auto fail = [] { throw std::runtime_error("fault"); };
  const auto click = [&] { Driver::Click(yes); };
  const auto askWithAPaint = [&] {
    box.OnPaint = fail;
    box.Refresh();
    EXPECT_EQ(Driver::ShowMessage("", MessageButtons::YesNo, ""), MessageAnswer::No);
  };
  const struct {
    const char* sName;
    std::function<void()>& handler;
    Driver::Script run, act;
  } cases[] = {
      {"click", yes.OnClick, fail, click},
      {"paint", box.OnPaint, fail, [&] { box.Refresh(); }},
      {"tick", timer.OnTimer, fail, [&] { timer.SetEnabled(true); }},
      {"close box", form.OnUnload, fail, Driver::CloseWindow},
      {"paint beside a message", yes.OnClick, askWithAPaint, click},
  };
  for (const auto& c : cases) {
    const auto script = [&] {
      c.handler = c.run;
      c.act();
      Driver::Wait(50);
      Driver::Click(no);  // is delivered no longer
    };
    EXPECT_THROW(Driver::ShowModal(form, script), std::runtime_error) << c.sName;
    EXPECT_FALSE(Driver::IsShown(form)) << c.sName;
    EXPECT_EQ(form.Loaded(), &c.handler != &form.OnUnload) << c.sName;
    EXPECT_EQ(Taken(), Events()) << c.sName;
    c.handler = box.OnPaint = nullptr;
    timer.SetEnabled(false);
    form.Unload();
  }
}

TEST_F(ToolkitWindow, MessageBoxesAnswer) {
  using enum MessageAnswer;
  const auto press = [](MessageAnswer button) { return [button] { Driver::Answer(button); }; };
  const std::tuple<const char*, Driver::Script, MessageAnswer> cases[] = {
      {"OK", press(Ok), Ok},          {"Yes", press(Yes), Yes},
      {"No", press(No), No},          {"Enter", Type(Key::Enter), Yes},
      {"Esc", Type(Key::Escape), No}, {"close box", Driver::CloseWindow, No},
  };
  const std::string sText = "<b>R&D</b> \x80 \xFC\r\nline", sTitle = "Title & \xE9";
  for (const auto& [sName, act, answer] : cases) {
    Driver::WhenWindowOpens([&, &answerBox = act] {
      EXPECT_EQ(Driver::WindowTitle(), sTitle);
      EXPECT_EQ(Driver::MessageText(), sText);
      answerBox();
    });
    const auto buttons = answer == Ok ? MessageButtons::Ok : MessageButtons::YesNo;
    EXPECT_EQ(Driver::ShowMessage(sText, buttons, sTitle), answer) << sName;
  }
}

TEST_F(ToolkitWindow, KeysReachTheButtons) {
  const std::tuple<const char*, Control&, Driver::Script, const char*> cases[] = {
      {"Enter", box, Type(Key::Enter), "&Yes"},
      {"Enter of the keypad", box, Type(Key::KeypadEnter), "&Yes"},
      {"Enter on a button", no, Type(Key::Enter), "&No"},
      {"Space", no, Type(Key::Space), "&No"},
      {"Esc", yes, Type(Key::Escape), "&No"},
      {"access key", box, [] { Driver::TypeAccessKey('N'); }, "&No"},
  };
  yes.SetTabIndex(2);
  Driver::ShowModal(form, [&] {
    EXPECT_TRUE(Driver::HasFocus(no)) << "the first in the tab order";
    Driver::Type(Key::Tab);
    EXPECT_TRUE(Driver::HasFocus(yes)) << "the second";
    for (const auto& [sName, focus, act, sClicked] : cases) {
      focus.SetFocus();
      act();
      EXPECT_EQ(Taken(), Events({sClicked})) << sName;
    }
    box.SetFocus();
    Driver::TypeAccessKey('N');
    Driver::Type(Key::Enter);
    EXPECT_EQ(Taken(), Events({"&No", "&No"})) << "an access key gives its button the focus";
    box.SetFocus();
    yes.SetEnabled(false);
    no.SetEnabled(false);
    for (const auto& [sName, focus, act, sClicked] : cases) act();
    EXPECT_EQ(Taken(), Events()) << "disabled buttons answer nothing";
    EXPECT_TRUE(Driver::IsShown(form)) << "Esc alone closes nothing";
  });
}

TEST_F(ToolkitWindow, PointerEventsCountFromTheInsideOfTheBorder) {
  box.SetBorder(BoxBorder::Sunken);
  box.SetBackColor(Color::Cyan);
  const auto note = [this](const std::string& sName) {
    return [this, sName](Twips x, Twips y) {
      EXPECT_FLOAT_EQ(x / px(1), y / py(1));
      events.push_back(sName + ' ' + std::to_string(static_cast<int>(x / px(1))));
    };
  };
  box.OnMouseDown = note("down");
  box.OnMouseMove = note("move");
  box.OnMouseUp = note("up");
  box.OnClick = Note("click");
  Driver::ShowModal(form, [&] {
    const std::pair<int, Color> edge[] = {
        {-2, Color::ButtonShadow}, {-1, Color::DarkShadow3D}, {0, Color::Cyan}};
    for (const auto& [nY, color] : edge)
      EXPECT_EQ(Driver::PixelAt(box, 5, nY), Driver::RgbOf(color)) << nY;
    Driver::Press(box, px(5), py(5));
    Driver::Release(box, px(-3), py(-3));
    EXPECT_EQ(Taken(), Events({"move 5", "down 5", "move -3", "up -3"}));
    Driver::MoveTo(box, px(-4), py(-4));
    box.CapturePointer();
    Driver::MoveTo(box, px(-5), py(-5));
    box.ReleasePointer();
    Driver::Click(box, px(4), py(4));
    EXPECT_EQ(Taken(), Events({"move -5", "move 4", "down 4", "up 4", "click"}));
  });
}

TEST_F(ToolkitWindow, TheScrollBarTellsDraggingFromOtherChanges) {
  bar.SetMin(1);
  bar.SetMax(40);
  bar.SetLargeChange(4);
  bar.SetSmallChange(2);
  bar.OnChange = [&] { events.push_back("change " + std::to_string(bar.Value())); };
  bar.OnScroll = [&] { events.push_back("scroll " + std::to_string(bar.Value())); };
  Driver::ShowModal(form, [&] {
    bar.SetFocus();
    const PixelRect bounds = Driver::Bounds(bar);
    const Twips middle = px(bounds.nWidth / 2);
    const std::pair<Driver::Script, const char*> cases[] = {
        {[&] { Driver::TurnWheel(box, -2); }, "change 5"},
        {[&] { Driver::TurnWheel(bar, 1); }, "change 3"},
        {Type(Key::Down), "change 5"},
        {Type(Key::PageDown), "change 9"},
        {Type(Key::Up), "change 7"},
        {Type(Key::PageUp), "change 3"},
        {[&] { Driver::Click(bar, middle, py(bounds.nHeight - 40)); }, "change 7"},
        {[&] { bar.SetValue(99); }, "change 40"},
        {[&] { bar.SetValue(-9); }, "change 1"},
    };
    for (const auto& [act, sEvent] : cases) {
      act();
      EXPECT_EQ(Taken(), Events({sEvent}));
    }
    Driver::Press(bar, middle, py(bounds.nWidth + 3));  // the thumb
    Driver::MoveTo(bar, middle, py(bounds.nHeight / 2));
    EXPECT_EQ(Taken(), Events({"scroll " + std::to_string(bar.Value())}));
    EXPECT_GT(bar.Value(), 10);
    Driver::Release(bar, middle, py(bounds.nHeight / 2));
    EXPECT_EQ(Taken(), Events({"change " + std::to_string(bar.Value())}));
    bar.SetMax(5);
    EXPECT_EQ(bar.Value(), 5);
    EXPECT_EQ(Taken(), Events());
  });
}

TEST_F(ToolkitWindow, LabelsCanBeReadAndLetTheBackgroundThrough) {
  Label label(box);
  label.SetBounds(150, 150, 3000, 585);  // as a description
  box.SetBackColor(Color::Cyan);
  box.OnMouseDown = [this](Twips, Twips) { events.push_back("box"); };
  for (const std::string sText :
       {"Bore & shaft", "<b>5</b>", "", "\xB5m \x80", "&", "W\r\nW\r\nW"}) {
    label.SetCaption(sText);
    EXPECT_EQ(Driver::ReadText(label), sText);
  }
  Driver::ShowModal(form, [&] {
    const auto pixels = Driver::PixelsOf(label);
    const std::vector<Rgb> empty(pixels[0].size(), Driver::RgbOf(Color::Cyan));
    EXPECT_EQ(pixels[0].back(), empty[0]);
    const auto thirdLine = pixels.begin() + static_cast<std::ptrdiff_t>(pixels.size() * 3 / 4);
    EXPECT_NE(std::find_if(thirdLine, pixels.end(), [&](const auto& row) { return row != empty; }),
              pixels.end())
        << "at each resolution there is room for three lines";
    Driver::Click(label);
    label.OnMouseDown = Note("label");
    Driver::Click(label);
  });
  EXPECT_EQ(Taken(), Events({"box", "label"}));
}

TEST_F(ToolkitWindow, LinesOfALabelBeginOneUnderTheOther) {
  Label label(box);
  label.SetBounds(150, 150, 1500, 600);
  label.SetCaption("|\r\n|");
  Driver::ShowModal(form, [&] {
    std::map<std::ptrdiff_t, int> rows;  // by their first column that is drawn
    for (const auto& row : Driver::PixelsOf(label)) {
      const Rgb back = row.back();
      const auto first = std::find_if(row.begin(), row.end(), [&](Rgb c) { return !(c == back); });
      if (first != row.end()) ++rows[first - row.begin()];
    }
    EXPECT_EQ(rows.size(), 1U);
  });
}

TEST_F(ToolkitWindow, ALabelThatIsTooSmallShowsNotAllOfItsText) {
  const std::string sLine = "The quick brown fox jumps over the lazy dog, and once again";
  const LabelFont plain, title = {.points = 9.75F, .bBold = true};
  const std::tuple<std::string, LabelFont, Twips, int> cases[] = {
      {"", plain, 1, 0},
      {sLine, plain, 1, 0},
      {sLine, title, 1, 1},
      {sLine + ' ' + sLine, plain, 1, 1},
      {sLine + ' ' + sLine, plain, 2, 0},
      {sLine + "\r\n" + sLine + "\r\n" + sLine, plain, 2, 1},
      {std::string(30000, 'W'), plain, 1, 100},  // at least
  };
  for (const auto& [sText, font, lines, nCutOff] : cases)  // as wide as one of the menu
    EXPECT_EQ(LabelLinesCutOff(sText, font, 4890, 240 * lines), nCutOff)
        << sText << " in " << lines;
}

TEST_F(ToolkitWindow, IsLaidOutAndDrawnInPixelsOfTheScreen) {
  const auto nInch = static_cast<int>(1440 / Screen::TwipsPerPixelX() + 0.5F);
  yes.SetBounds(1440, 720, 2880, 360);
  box.OnPaint = [this] {
    for (const auto& [x1, y1, x2, y2] : std::vector<std::array<int, 4>>{
             {2, 0, 4, 0}, {4, 2, 2, 2}, {8, 0, 8, 2}, {10, 2, 10, 0}, {12, 0, 12, 0}})
      box.Line(px(x1), py(y1), px(x2), py(y2), Color::DarkShadow3D);
  };
  Driver::ShowModal(form, [&] {
    EXPECT_EQ(Driver::Bounds(yes), (PixelRect{nInch, nInch / 2, 2 * nInch, nInch / 4}));
    EXPECT_EQ(Driver::Inside(form), (PixelRect{0, 0, 6000 * nInch / 1440, 4500 * nInch / 1440}));
    const auto button = Driver::PixelsOf(yes);
    yes.SetCaption("");
    EXPECT_NE(Driver::PixelsOf(yes), button) << "a button shows its caption";
    const auto pixels = Driver::PixelsOf(box);
    Events rows(3);
    for (std::size_t i = 0; i < 3 * 13; ++i)
      rows[i / 13] += pixels[i / 13][i % 13] == Driver::RgbOf(Color::DarkShadow3D) ? '#' : '.';
    EXPECT_EQ(rows, Events({"..##....#....",  //
                            "........#.#..",  //
                            "...##.....#.."}))
        << "lines leave out their final pixel";
  });
}

}  // namespace

}  // namespace trelin
