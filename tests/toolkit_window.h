#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/toolkit.h"
#include "tests/driver.h"

namespace trelin {

using Events = std::vector<std::string>;

inline Twips px(float pixels) { return pixels * Screen::TwipsPerPixelX(); }
inline Twips py(float pixels) { return pixels * Screen::TwipsPerPixelY(); }

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

  void LayOut(Button& button, std::int16_t nIndex, const std::string& sCaption) {
    button.SetBounds(1500.0F * nIndex + 150, 150, 1125, 345);
    button.SetCaption(sCaption);
    button.SetTabIndex(nIndex);
    button.OnClick = [this, sCaption] { events.push_back(sCaption); };
  }

  std::function<void()> Note(const std::string& sEvent) {
    return [this, sEvent] { events.push_back(sEvent); };
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

}  // namespace trelin
