#include "testing/driver.h"

#include <gtest/gtest.h>

#include <chrono>
#include <exception>
#include <list>
#include <memory>
#include <utility>

#include "real_platform.h"
#include "shared/modal_loop.h"
#include "testing/driver_system.h"

namespace trelin {

namespace {

using namespace DriverSystem;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds LongestShown{10};

// A script that waits for its window.
struct Waiting {
  std::function<bool(Window used)> isMeant;
  std::function<void(Window)> run;
};
std::list<Waiting> waiting;

// Windows whose scripts run, and since when.
std::list<std::pair<Window, Clock::time_point>> watched;

void StartScript() {
  const Window used = UsedWindow();
  for (auto task = waiting.begin(); task != waiting.end(); ++task) {
    if (used == nullptr || !task->isMeant(used)) continue;
    const auto run = std::move(task->run);
    waiting.erase(task);
    watched.emplace_back(used, Clock::now());
    try {
      run(used);
    } catch (const std::exception& error) {
      ADD_FAILURE() << "the script threw: " << error.what();
    }
    return;
  }
}

void CloseWhatIsOpenTooLong() {
  std::erase_if(watched, [](const auto& window) { return !IsOpen(window.first); });
  for (auto& [window, since] : watched) {
    if (Clock::now() - since < LongestShown) continue;
    ADD_FAILURE() << "a window is still open: " << TitleOf(window);
    since = Clock::now();
    return CloseAll();
  }
}

void WaitFor(Waiting script) {
  waiting.push_back(std::move(script));
  KeepTicking([] {
    CloseWhatIsOpenTooLong();
    StartScript();
  });
}

}  // namespace

void Driver::ShowModal(Form& form, const Script& script) {
  const auto opened = std::make_shared<bool>(false);
  const auto run = [opened, script](Window window) {
    *opened = true;
    script();
    if (IsOpen(window)) Close(window);
  };
  WaitFor({[window = WindowOf(form)](Window used) { return used == window; }, run});
  form.ShowModal();
  EXPECT_TRUE(*opened) << "the window did not open";
}

void Driver::WhenWindowOpens(const Script& script) {
  const auto run = [script](Window window) {
    script();
    const ModalLoop* const pLoop = ModalLoop::Innermost();
    if (!IsOpen(window) || (pLoop != nullptr && pLoop->Ended())) return;
    ADD_FAILURE() << "its script leaves a window open: " << TitleOf(window);
    Close(window);
  };
  WaitFor({[before = UsedWindow()](Window used) { return used != before; }, run});
}

bool Driver::ForgetScripts() { return std::exchange(waiting, {}).empty(); }

MessageAnswer Driver::ShowMessage(const std::string& sText, MessageButtons buttons,
                                  const std::string& sTitle) {
  return RealSystem().ShowMessage(sText, MessageIcon::Information, buttons, sTitle);
}

void Driver::Click(const Control& control, Twips x, Twips y) {
  Press(control, x, y);
  Release(control, x, y);
}

std::string Driver::WindowTitle() {
  const Window used = UsedWindow();
  return used != nullptr ? TitleOf(used) : "";
}

Rgb Driver::PixelAt(const Control& control, int nX, int nY) {
  return PixelsIn(control, {nX, nY, 1, 1})[0][0];
}

std::vector<std::vector<Rgb>> Driver::PixelsOf(const Control& control) {
  const PixelRect inside = Inside(control);
  return PixelsIn(control, {0, 0, inside.nWidth, inside.nHeight});
}

std::ostream& operator<<(std::ostream& out, const Rgb& rgb) {
  return out << "rgb " << rgb.nRed << ' ' << rgb.nGreen << ' ' << rgb.nBlue;
}

std::ostream& operator<<(std::ostream& out, const PixelRect& rect) {
  return out << rect.nWidth << " by " << rect.nHeight << " at " << rect.nLeft << ", " << rect.nTop;
}

}  // namespace trelin
