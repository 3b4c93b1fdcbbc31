// X11: a request to the window manager that says whose wish it is ("_NET_ACTIVE_WINDOW" of the Extended
// Window Manager Hints 1.5). The toolkit's own tells when this program was last used, which is why window
// managers refuse it.
#include "platform/BeforeOtherPrograms.h"
#include "platform/FloatingPanel.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace marquill {

namespace {

constexpr std::uint32_t askedByUser = 2;  // the hints' "source indication"

xcb_atom_t atomNamed(xcb_connection_t* connection, std::string_view name) {
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

void askWindowManager(xcb_connection_t* connection, xcb_window_t window) {
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atomNamed(connection, "_NET_ACTIVE_WINDOW");
    message.data.data32[0] = askedByUser;
    message.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(connection, 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection);
}

}  // namespace

void bringBeforeOtherPrograms(QWidget& window) {
    makeKeyAndOrderFront(window);
    // Also the platform without a screen may speak X11, without a connection of ours.
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (xcb_connection_t* const connection = x11 ? x11->connection() : nullptr) {
        askWindowManager(connection, static_cast<xcb_window_t>(window.winId()));
    }
}

}  // namespace marquill
