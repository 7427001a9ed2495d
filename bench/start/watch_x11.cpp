// Starts a program on the X display and measures when its windows are shown.
//
//   watch_x11 WINDOWS PROGRAM [hold]
//
// Prints one number a window: the milliseconds from just before the program is
// started until that window is on the screen with its contents drawn. Each but
// the last is answered with Enter at once. The program is ended afterwards;
// with hold, when the standard input ends.
//
// From outside a window counts as drawn when it is mapped and the damage that
// the display reports for it spans it whole. The windows of Qt have no
// background that the display would paint by itself, so that the damage is what
// the program has drawn. The damage is watched from the moment that a window is
// made, so that none is missed.
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/damage.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto Patience = std::chrono::seconds(30);
constexpr std::uint8_t EnterKeyCode = 36;  // on the keyboard that Xvfb has
constexpr std::uint8_t SentEventBit = 0x80;

struct Free {
  template <class T>
  void operator()(T* p) const {
    std::free(p);
  }
};
template <class T>
using Owner = std::unique_ptr<T, Free>;

class Display {
 public:
  Display() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_) != 0)
      throw std::runtime_error("There is no display.");
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    WatchForWindows();
    StartDamage();
    MovePointerAway();
  }
  ~Display() { xcb_disconnect(connection_); }
  Display(const Display&) = delete;
  Display& operator=(const Display&) = delete;

  // Waits until a window is drawn that was not before, and returns it.
  xcb_window_t NextDrawn(Clock::time_point end) {
    while (true) {
      const Owner<xcb_generic_event_t> event(NextEvent(end));
      if (const xcb_window_t hWindow = Handle(*event); hWindow != XCB_NONE) return hWindow;
    }
  }

  void PressEnter(xcb_window_t hWindow) {
    xcb_set_input_focus(connection_, XCB_INPUT_FOCUS_PARENT, hWindow, XCB_CURRENT_TIME);
    for (const auto type : {std::uint8_t{XCB_KEY_PRESS}, std::uint8_t{XCB_KEY_RELEASE}})
      xcb_test_fake_input(connection_, type, EnterKeyCode, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    xcb_flush(connection_);
  }

 private:
  void WatchForWindows() {
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_, root_, XCB_CW_EVENT_MASK, &mask);
  }

  void StartDamage() {
    const auto* pExtension = xcb_get_extension_data(connection_, &xcb_damage_id);
    if (pExtension == nullptr || pExtension->present == 0)
      throw std::runtime_error("The display does not tell of damage.");
    damageEvent_ = pExtension->first_event;
    const auto cookie = xcb_damage_query_version(connection_, 1, 1);
    const Owner<xcb_damage_query_version_reply_t> reply(
        xcb_damage_query_version_reply(connection_, cookie, nullptr));
  }

  // A window that opens under the pointer has more to do.
  void MovePointerAway() {
    xcb_warp_pointer(connection_, XCB_NONE, root_, 0, 0, 0, 0, INT16_MAX, INT16_MAX);
  }

  xcb_generic_event_t* NextEvent(Clock::time_point end) {
    while (Clock::now() < end) {
      if (xcb_generic_event_t* pEvent = xcb_poll_for_event(connection_)) return pEvent;
      if (xcb_connection_has_error(connection_) != 0) break;
      pollfd answer{xcb_get_file_descriptor(connection_), POLLIN, 0};
      poll(&answer, 1, 1000);
    }
    throw std::runtime_error("No window was shown.");
  }

  xcb_window_t Handle(const xcb_generic_event_t& event) {
    const auto type = static_cast<std::uint8_t>(event.response_type & ~SentEventBit);
    if (type == XCB_CREATE_NOTIFY) {
      WatchDamage(reinterpret_cast<const xcb_create_notify_event_t&>(event).window);
    } else if (type == XCB_MAP_NOTIFY) {
      mapped_.insert(reinterpret_cast<const xcb_map_notify_event_t&>(event).window);
    } else if (type == damageEvent_ + XCB_DAMAGE_NOTIFY) {
      return Drawn(reinterpret_cast<const xcb_damage_notify_event_t&>(event));
    }
    return XCB_NONE;
  }

  void WatchDamage(xcb_window_t hWindow) {
    xcb_damage_create(connection_, xcb_generate_id(connection_), hWindow,
                      XCB_DAMAGE_REPORT_LEVEL_BOUNDING_BOX);
    xcb_flush(connection_);
  }

  xcb_window_t Drawn(const xcb_damage_notify_event_t& damage) {
    const bool bWhole =
        damage.area.width >= damage.geometry.width && damage.area.height >= damage.geometry.height;
    const bool bNew =
        bWhole && mapped_.contains(damage.drawable) && drawn_.insert(damage.drawable).second;
    return bNew ? damage.drawable : xcb_window_t{XCB_NONE};
  }

  xcb_connection_t* connection_;
  xcb_window_t root_ = XCB_NONE;
  std::uint8_t damageEvent_ = 0;
  std::set<xcb_window_t> mapped_;
  std::set<xcb_window_t> drawn_;
};

// A started program, which ends with its object.
class Program {
 public:
  explicit Program(char* sPath) : pid_(fork()) {
    if (pid_ != 0) return;
    char* arguments[] = {sPath, nullptr};
    execv(sPath, arguments);
    _exit(127);
  }
  ~Program() {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

 private:
  pid_t pid_;
};

void Watch(int nWindows, char* sPath, bool bHold) {
  Display display;
  const Clock::time_point start = Clock::now();
  const Program program(sPath);
  for (int i = 1; i <= nWindows; ++i) {
    const xcb_window_t hWindow = display.NextDrawn(start + Patience);
    const Clock::time_point shown = Clock::now();
    if (i < nWindows) display.PressEnter(hWindow);
    std::cout << std::chrono::duration<double, std::milli>(shown - start).count() << "\n";
  }
  std::cout.flush();
  if (bHold) std::cin.get();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3 && argc != 4) {
    std::cerr << "watch_x11 WINDOWS PROGRAM [hold]\n";
    return 2;
  }
  try {
    Watch(std::stoi(argv[1]), argv[2], argc == 4);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
}
