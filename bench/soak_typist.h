// A tireless typist at two desks: each stroke goes to the real program and into the logic.
#pragma once

#include "tests/desktop_session.h"
#include "tests/test_window.h"
#include "tests/typing.h"
#include "window/box_keyboard.h"

#include <algorithm>
#include <bitset>
#include <cstdint>
#include <random>
#include <stdexcept>

#include <xcb/xtest.h>

namespace quillet {

/// A key of a US keyboard.
struct SoakKey {
    std::uint8_t place; // X11 keycode
    std::int16_t code;
    std::int16_t plain = 0; // the character that it types; 0 for none
    std::int16_t shifted = 0;
    std::int16_t modifier = 0; // its own

    bool operator==(const SoakKey& other) const { return place == other.place; }
};

namespace soak {

inline constexpr SoakKey escape = {9, key::escape};
inline constexpr SoakKey backspace = {22, key::backspace, key::backspace, key::backspace};
inline constexpr SoakKey tab = {23, key::tab, key::tab};
inline constexpr SoakKey enter = {36, key::enter, key::enter, key::enter};
inline constexpr SoakKey ctrl = {37, key::ctrl, 0, 0, modifier::ctrl};
inline constexpr SoakKey shift = {50, key::shift, 0, 0, modifier::shift};
inline constexpr SoakKey alt = {64, key::alt, 0, 0, modifier::alt};
inline constexpr SoakKey home = {110, key::home};
inline constexpr SoakKey left = {113, key::left};
inline constexpr SoakKey right = {114, key::right};
inline constexpr SoakKey end = {115, key::end};
inline constexpr SoakKey down = {116, key::down};
inline constexpr SoakKey del = {119, key::del};
inline constexpr SoakKey menu = {135, 0}; // the box does not see it

inline constexpr std::string_view plain = "1234567890-=qwertyuiop[]asdfghjkl;'`\\zxcvbnm,./   ";
inline constexpr std::string_view shifted = "!@#$%^&*()_+QWERTYUIOP{}ASDFGHJKL:\"~|ZXCVBNM<>?   ";

inline SoakKey keyAt(std::size_t at) {
    return {static_cast<std::uint8_t>(std::stoi(DesktopSession::keyOf(plain[at]))),
            typing::keyOf(plain[at]).code, plain[at], shifted[at]};
}

/// Of a letter, also a capital one.
inline SoakKey keyOf(char letter) {
    return keyAt(plain.find(static_cast<char>(std::tolower(letter))));
}

} // namespace soak

class SoakTypist {
    frmQuillet& form_;

  public:
    BoxKeyboard keyboard{form_}; // of the logic

    SoakTypist(frmQuillet& form, unsigned seed) : form_(form), random_(seed) {
        const std::uint32_t off = XCB_AUTO_REPEAT_MODE_OFF;
        xcb_change_keyboard_control(connection_.get(), XCB_KB_AUTO_REPEAT_MODE, &off);
        DesktopSession::send("mousemove 1279 859"); // away from menus
        window_ = focus();
    }

    std::size_t upTo(std::size_t count) { return random_() % count; }
    int events() const { return events_; }

    /// One or a few events of somebody whose strokes overlap.
    void type() {
        const std::size_t what = upTo(200);
        if (held_.size() == 3 || (!held_.empty() && what < 90))
            return release(held_[upTo(held_.size())]);
        if (what < 2) { // seldom with Shift, after which the next key replaces much
            if (!isHeld(soak::shift) || upTo(10) == 0)
                strikeLineKey();
        } else if (what < 6) {
            const SoakKey keys[] = {soak::left, soak::right, soak::backspace, soak::del};
            strikeWithCtrl(upTo(2) == 0 ? soak::keyOf('z') : keys[upTo(std::size(keys))]);
        } else {
            const SoakKey key = what < 40 ? editingKey() : soak::keyAt(upTo(soak::plain.size()));
            const bool opensWindow = key.plain == 'z' && form_.keyboard == normalMode;
            if (!isHeld(key) && !opensWindow)
                press(key);
        }
    }

    // To the program and into the logic.
    void press(const SoakKey& key) {
        pressThere(key);
        keyboard.press(strokeOf(key));
    }
    void release(SoakKey key) {
        send(key, XCB_KEY_RELEASE);
        std::erase(held_, key);
        keyboard.release(strokeOf(key));
    }
    void releaseAll() {
        while (!held_.empty())
            release(held_.back());
    }

    // To the program alone.
    void pressThere(const SoakKey& key) {
        send(key, XCB_KEY_PRESS);
        held_.push_back(key);
    }
    void strikeThere(const SoakKey& key) {
        send(key, XCB_KEY_PRESS);
        send(key, XCB_KEY_RELEASE);
    }
    void tabBackThere() {
        send(soak::shift, XCB_KEY_PRESS);
        strikeThere(soak::tab);
        send(soak::shift, XCB_KEY_RELEASE);
    }
    void releaseAllThere() {
        for (const SoakKey& key : held_)
            send(key, XCB_KEY_RELEASE);
        held_.clear();
    }

    /// Waits until another window has the focus, one with this title, and releases all keys there.
    void turnTo(const std::string& title) {
        waitForFocus(title);
        releaseAllThere();
        focus();
    }

    /// As `turnTo`, back to the box of the logic.
    void turnToBox() {
        waitForFocus(form_.Caption());
        keyboard.focusLost();
        keyboard.focusGained(FocusFrom::Elsewhere);
    }

    /// The window that has the focus when all events so far are on their way.
    std::uint32_t focus() {
        const std::unique_ptr<xcb_get_input_focus_reply_t, decltype(&std::free)> reply(
            xcb_get_input_focus_reply(connection_.get(), xcb_get_input_focus(connection_.get()),
                                      nullptr),
            &std::free);
        return reply ? reply->focus : throw std::runtime_error("the display does not answer");
    }

  private:
    bool isHeld(const SoakKey& key) const {
        return std::find(held_.begin(), held_.end(), key) != held_.end();
    }

    SoakKey editingKey() {
        const SoakKey keys[] = {soak::shift,     soak::shift,
                                soak::shift,     soak::left,
                                soak::left,      soak::right,
                                soak::backspace, soak::del,
                                soak::enter,     isHeld(soak::shift) ? soak::right : soak::tab};
        return keys[upTo(std::size(keys))];
    }

    void strikeWithCtrl(const SoakKey& key) {
        press(soak::ctrl);
        press(key);
        release(key);
        release(soak::ctrl);
    }

    // The logic alone knows nothing of displayed lines: it has to be told where the caret goes.
    void strikeLineKey() {
        const SoakKey keys[] = {soak::home,     soak::end,          soak::down,
                                {111, key::up}, {112, key::pageUp}, {117, key::pageDown}};
        const SoakKey key = keys[upTo(std::size(keys))];
        press(key);
        release(key);
        strikeWithCtrl(upTo(2) == 0 ? soak::home : soak::end);
    }

    // As the program should see it.
    KeyStroke strokeOf(const SoakKey& key) const {
        int shift = 0;
        for (const SoakKey& held : held_)
            shift |= held.modifier;
        KeyStroke stroke{key.place, key.code, static_cast<std::int16_t>(shift), {}};
        const std::int16_t character = (shift & modifier::shift) != 0 ? key.shifted : key.plain;
        if ((shift & modifier::ctrl) == 0 && character != 0)
            stroke.character = character;
        else if (key == soak::backspace)
            stroke.character = 127;
        else if (key.code >= 'A' && key.code <= 'Z')
            stroke.character = static_cast<std::int16_t>(key.code - '@');
        return stroke;
    }

    // There is little flow control, since neither the server nor the toolkit bounds its queues. But
    // where a key goes down in the very millisecond of its release, as no finger can do, the
    // toolkit takes both for its auto-repeat.
    void send(const SoakKey& key, std::uint8_t type) {
        if (type == XCB_KEY_PRESS && released_.test(key.place)) {
            focus();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            released_.reset();
        }
        released_[key.place] = type == XCB_KEY_RELEASE;
        xcb_test_fake_input(connection_.get(), type, key.place, XCB_CURRENT_TIME, XCB_NONE, 0, 0,
                            0);
        ++events_;
    }

    // Two windows with the same title may follow each other.
    void waitForFocus(const std::string& title) {
        const auto now = [] { return DesktopSession::title(); };
        if (!waitUntil([&] { return focus() != window_ && now() == title; }))
            throw std::runtime_error("\"" + now() + "\" has the focus, not \"" + title + '"');
        window_ = focus();
    }

    std::mt19937 random_;
    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection_{
        xcb_connect(nullptr, nullptr), &xcb_disconnect};
    std::vector<SoakKey> held_;
    std::bitset<256> released_; // in this millisecond, perhaps
    std::uint32_t window_ = 0;  // that had the focus last
    int events_ = 0;
};

} // namespace quillet
