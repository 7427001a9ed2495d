#include <string>
#include <utility>
#include <vector>

#include "tests/toolkit_window.h"

namespace trelin {

namespace {

TEST_F(ToolkitWindow, KeysReachTheButtons) {
  Driver::ShowModal(form, [this] {
    struct Case {
      const Control* focus;
      Driver::Script act;
      Events expected;
    };
    const auto type = [](Key key) { return [key] { Driver::Type(key); }; };
    const Case cases[] = {
        {&box, type(Key::Enter), {"&Yes"}},
        {&box, type(Key::KeypadEnter), {"&Yes"}},
        {&box, type(Key::Escape), {"&No"}},
        {&yes, type(Key::Enter), {"&Yes"}},
        {&no, type(Key::Enter), {"&No"}},
        {&no, type(Key::Space), {"&No"}},
        {&yes, type(Key::Escape), {"&No"}},
        {&box, [] { Driver::TypeAccessKey('N'); }, {"&No"}},
        {&no, [] { Driver::TypeAccessKey('Y'); }, {"&Yes"}},
    };
    for (const Case& c : cases) {
      const_cast<Control*>(c.focus)->SetFocus();
      c.act();
      EXPECT_EQ(Taken(), c.expected) << &c - cases;
    }
    yes.SetEnabled(false);
    no.SetEnabled(false);
    box.SetFocus();
    Driver::Type(Key::Enter);
    Driver::Type(Key::Escape);
    Driver::TypeAccessKey('Y');
    Driver::Click(yes);
    EXPECT_EQ(Taken(), Events());
    EXPECT_TRUE(Driver::IsShown(form));  // Esc alone closes nothing
  });
}

TEST_F(ToolkitWindow, TabFollowsTheTabOrder) {
  TextBox text(form);
  text.SetBounds(150, 600, 1500, 600);
  text.SetText("one\r\ntwo");
  box.SetTabIndex(4);
  bar.SetTabIndex(3);
  text.SetTabIndex(2);
  EXPECT_EQ(text.Text(), "one\r\ntwo");

  yes.SetEnabled(false);
  Driver::ShowModal(form, [&] {
    const std::vector<const Control*> order = {&no, &text, &bar, &box};
    for (std::size_t i = 0; i < 5; ++i, Driver::Type(Key::Tab))
      EXPECT_TRUE(Driver::HasFocus(*order[i % 4])) << i;
    Driver::Type(Key::BackTab);
    EXPECT_TRUE(Driver::HasFocus(no));
    bar.SetVisible(false);
    Driver::Type(Key::BackTab);
    Driver::Type(Key::BackTab);
    EXPECT_TRUE(Driver::HasFocus(text));
    Driver::Type(Key::Escape);
    Driver::Click(box, px(9), py(9));
    EXPECT_TRUE(Driver::HasFocus(box));
  });
  EXPECT_EQ(Taken(), Events({"&No"}));

  form.OnLoad = [&] { text.SetFocus(); };
  Driver::ShowModal(form, [&] { EXPECT_TRUE(Driver::HasFocus(text)); });
}

TEST_F(ToolkitWindow, PointerEventsReachTheirBox) {
  const auto note = [this](const std::string& sName) {
    return [this, sName](Twips x, Twips y) {
      const auto pixel = [](float f) { return std::to_string(static_cast<int>(f)); };
      events.push_back(sName + ' ' + pixel(x / px(1)) + ' ' + pixel(y / py(1)));
    };
  };
  box.OnMouseDown = note("down");
  box.OnMouseMove = note("move");
  box.OnMouseUp = note("up");
  box.OnClick = Note("click");
  Driver::ShowModal(form, [&] {
    Driver::MoveTo(box, px(5), py(6));
    Driver::Press(box, px(5), py(6));
    Driver::MoveTo(box, px(-20), py(-3));
    Driver::Release(box, px(-20), py(-3));
    EXPECT_EQ(Taken(), Events({"move 5 6", "down 5 6", "move -20 -3", "up -20 -3"}));
    Driver::MoveTo(box, px(-20), py(-3));
    EXPECT_EQ(Taken(), Events());
    box.CapturePointer();
    Driver::MoveTo(box, px(-9), py(-3));
    box.ReleasePointer();
    Driver::MoveTo(box, px(-8), py(-3));
    EXPECT_EQ(Taken(), Events({"move -9 -3"}));
    Driver::Click(box, px(4), py(4));
    EXPECT_EQ(Taken(), Events({"move 4 4", "down 4 4", "up 4 4", "click"}));
    PictureBox child(static_cast<Control&>(box));  // keeps its events from the box
    child.SetBounds(0, 0, px(10), py(10));
    Driver::Click(child);
    EXPECT_EQ(Taken(), Events());
  });
}

TEST_F(ToolkitWindow, TheScrollBarTellsDraggingFromOtherChanges) {
  bar.SetMin(1);
  bar.SetMax(40);
  bar.SetSmallChange(1);
  bar.SetLargeChange(4);
  EXPECT_EQ(bar.Value(), 1);
  bar.OnChange = [&] { events.push_back("change " + std::to_string(bar.Value())); };
  bar.OnScroll = [&] { events.push_back("scroll"); };
  bar.SetTabIndex(0);
  Label label(box);
  label.SetBounds(150, 150, 1500, 300);
  Driver::ShowModal(form, [&] {
    bar.SetFocus();
    const PixelRect bounds = Driver::Bounds(bar);
    const Twips middle = px(static_cast<float>(bounds.nWidth) / 2);
    const Twips bottom = py(static_cast<float>(bounds.nHeight));
    const std::pair<Driver::Script, const char*> cases[] = {
        {[&] { Driver::TurnWheel(box, -2); }, "change 3"},
        {[&] { Driver::TurnWheel(label, 1); }, "change 2"},
        {[&] { Driver::TurnWheel(bar, -1); }, "change 3"},
        {[] { Driver::Type(Key::Down); }, "change 4"},
        {[] { Driver::Type(Key::PageDown); }, "change 8"},
        {[] { Driver::Type(Key::PageUp); }, "change 4"},
        {[] { Driver::Type(Key::Up); }, "change 3"},
        {[&] { Driver::Click(bar, middle, bottom - py(4)); }, "change 4"},
        {[&] { Driver::Click(bar, middle, bottom - py(40)); }, "change 8"},
        {[&] { bar.SetValue(99); }, "change 40"},
        {[&] { bar.SetValue(1); }, "change 1"},
    };
    for (const auto& [act, sEvent] : cases) {
      act();
      EXPECT_EQ(Taken(), Events({sEvent}));
    }
    const Twips thumb = py(static_cast<float>(bounds.nWidth) + 3);
    Driver::Press(bar, middle, thumb);
    Driver::MoveTo(bar, middle, bottom / 2);
    const Events dragged = Taken();
    EXPECT_EQ(dragged, Events({"scroll"}));
    EXPECT_GT(bar.Value(), 10);
    Driver::Release(bar, middle, bottom / 2);
    EXPECT_EQ(Taken(), Events({"change " + std::to_string(bar.Value())}));

    bar.SetValue(bar.Value());
    bar.SetEnabled(false);
    Driver::TurnWheel(box, -1);
    bar.SetMax(5);
    EXPECT_EQ(bar.Value(), 5);
    EXPECT_EQ(Taken(), Events());
  });
}

}  // namespace

}  // namespace trelin
