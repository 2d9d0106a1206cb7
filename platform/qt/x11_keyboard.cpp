#include "platform/qt/x11_keyboard.h"

#include <QAbstractNativeEventFilter>
#include <QApplication>

#include <cstdlib>
#include <memory>

// The header of this extension names a member with a C++ keyword.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
#include <xkbcommon/xkbcommon-x11.h>

namespace quillet {
namespace {

using Keymap = std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)>;

xcb_connection_t* x11Connection() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
}

// Holds the server's keymap until the server tells of another one.
class KeymapCache : public QAbstractNativeEventFilter {
  public:
    explicit KeymapCache(xcb_connection_t* connection)
        : connection_(connection),
          context_(xkb_context_new(XKB_CONTEXT_NO_FLAGS), &xkb_context_unref) {
        const auto* extension = xcb_get_extension_data(connection, &xcb_xkb_id);
        firstEvent_ = extension != nullptr ? extension->first_event : 0;
        qGuiApp->installNativeEventFilter(this);
    }

    bool nativeEventFilter(const QByteArray& /*type*/, void* message,
                           qintptr* /*result*/) override {
        const auto* event = static_cast<xcb_generic_event_t*>(message);
        constexpr int sentMask = 0x80;
        if ((event->response_type & ~sentMask) == firstEvent_) {
            const auto kind = static_cast<xcb_xkb_new_keyboard_notify_event_t*>(message)->xkbType;
            if (kind == XCB_XKB_NEW_KEYBOARD_NOTIFY || kind == XCB_XKB_MAP_NOTIFY)
                keymap_.reset();
        }
        return false;
    }

    xkb_keymap* keymap() {
        if (!keymap_) {
            const int device = xkb_x11_get_core_keyboard_device_id(connection_);
            keymap_.reset(xkb_x11_keymap_new_from_device(context_.get(), connection_, device,
                                                         XKB_KEYMAP_COMPILE_NO_FLAGS));
        }
        return keymap_.get();
    }

  private:
    xcb_connection_t* connection_;
    std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> context_;
    Keymap keymap_{nullptr, &xkb_keymap_unref};
    int firstEvent_ = 0;
};

// While a menu grabs the keys, the window below keeps the focus, and the keys are addressed to it:
// the toolkit passes them on to the menu as long as it is open.
class KeysOfFocus : public QAbstractNativeEventFilter {
  public:
    KeysOfFocus() { qGuiApp->installNativeEventFilter(this); }

    bool nativeEventFilter(const QByteArray& /*type*/, void* message,
                           qintptr* /*result*/) override {
        const int type = static_cast<xcb_generic_event_t*>(message)->response_type;
        if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE) {
            if (focus_ != XCB_NONE)
                static_cast<xcb_key_press_event_t*>(message)->event = focus_;
            return false;
        }
        return (type == XCB_FOCUS_IN || type == XCB_FOCUS_OUT) &&
               isByMenu(*static_cast<xcb_focus_in_event_t*>(message));
    }

  private:
    bool isByMenu(const xcb_focus_in_event_t& event) {
        if (event.mode == XCB_NOTIFY_MODE_GRAB)
            return QApplication::activePopupWidget() != nullptr;
        if (event.detail == XCB_NOTIFY_DETAIL_POINTER)
            return false;
        if (event.response_type == XCB_FOCUS_IN)
            focus_ = event.event;
        else if (event.event == focus_)
            focus_ = XCB_NONE; // it may be gone before another window has the focus
        return false;
    }

    xcb_window_t focus_ = XCB_NONE;
};

// Whether a key in the three rows of letters gives a Latin one in this layout of the keymap.
bool hasLatinLetters(xkb_keymap* keymap, xkb_layout_index_t layout) {
    constexpr xkb_keycode_t firstLetter = 24;
    constexpr xkb_keycode_t lastLetter = 58;
    for (xkb_keycode_t code = firstLetter; code <= lastLetter; ++code) {
        const xkb_keysym_t* symbols = nullptr;
        const int count = xkb_keymap_key_get_syms_by_level(keymap, code, layout, 0, &symbols);
        if (count == 1 && symbols[0] >= 'a' && symbols[0] <= 'z')
            return true;
    }
    return false;
}

} // namespace

void requestDetectableAutoRepeat() {
    xcb_connection_t* connection = x11Connection();
    if (connection == nullptr)
        return;
    constexpr std::uint32_t flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const auto request =
        xcb_xkb_per_client_flags(connection, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0);
    std::free(xcb_xkb_per_client_flags_reply(connection, request, nullptr));
}

void keepKeysBehindMenus() {
    if (x11Connection() != nullptr)
        static const KeysOfFocus filter;
}

bool isLatinLayout(std::uint32_t nativeModifiers) {
    xcb_connection_t* connection = x11Connection();
    if (connection == nullptr)
        return true;
    static KeymapCache cache(connection);
    constexpr std::uint32_t layoutShift = 13; // the two bits of the core state behind the masks
    const xkb_layout_index_t layout = nativeModifiers >> layoutShift & 3;
    xkb_keymap* keymap = cache.keymap();
    return keymap == nullptr || hasLatinLetters(keymap, layout);
}

} // namespace quillet
