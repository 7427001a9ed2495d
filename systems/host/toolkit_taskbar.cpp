#include "systems/host/toolkit_taskbar.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace trelin {

namespace {

constexpr std::uint32_t AddState = 1;           // of _NET_WM_STATE's actions
constexpr std::uint32_t FromAnApplication = 1;  // of its sources

xcb_atom_t Atom(xcb_connection_t* pConnection, std::string_view sName) {
  struct Free {
    void operator()(xcb_intern_atom_reply_t* pReply) const { std::free(pReply); }
  };
  const auto cookie =
      xcb_intern_atom(pConnection, 0, static_cast<std::uint16_t>(sName.size()), sName.data());
  const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(
      xcb_intern_atom_reply(pConnection, cookie, nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace

void LeaveTaskbar(const QWidget& window) {
  if (QGuiApplication::platformName() != "xcb") return;
  const auto* pX11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  xcb_connection_t* pConnection = pX11->connection();
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = static_cast<xcb_window_t>(window.winId());
  event.type = Atom(pConnection, "_NET_WM_STATE");
  event.data.data32[0] = AddState;
  event.data.data32[1] = Atom(pConnection, "_NET_WM_STATE_SKIP_TASKBAR");
  event.data.data32[3] = FromAnApplication;
  const xcb_window_t hRoot = xcb_setup_roots_iterator(xcb_get_setup(pConnection)).data->root;
  xcb_send_event(pConnection, 0, hRoot,
                 XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                 reinterpret_cast<const char*>(&event));
  xcb_flush(pConnection);
}

}  // namespace trelin
