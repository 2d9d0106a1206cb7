#include "platform/qt/auto_repeat.h"

#include <QGuiApplication>

#include <cstdlib>

// The header of this extension names a member with a C++ keyword.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

namespace quillet {

void requestDetectableAutoRepeat() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr)
        return;
    constexpr std::uint32_t flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    xcb_connection_t* connection = x11->connection();
    const auto request =
        xcb_xkb_per_client_flags(connection, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0);
    std::free(xcb_xkb_per_client_flags_reply(connection, request, nullptr));
}

} // namespace quillet
