// Presses keys on a display and watches for the glyphs that they draw.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <xcb/damage.h>

namespace quillet {

/// A rectangle of the screen, its far edges left out.
struct Area {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

/// The pixels of an area, row by row.
struct Picture {
    Area area;
    std::vector<std::uint32_t> pixels;

    std::uint32_t at(int x, int y) const;
};

/// Types into the window that has the focus, as a keyboard would, and sees what is on the screen.
/// The window must show a caret on a plain ground.
class KeyProbe {
  public:
    using Clock = std::chrono::steady_clock;

    /// Connects to the display of the environment.
    KeyProbe();

    /// Strikes a key and returns the time from its press until pixels of its glyph are on the
    /// screen, right of where the caret was.
    Clock::duration strike(std::uint8_t keycode);

    /// Begins a paragraph of so many keys in words of seven, and some more until there is room for
    /// what will be struck in its last line.
    void beginParagraph(std::uint8_t keycode, int length);

    /// Waits until an area shows something, which is named when it never comes.
    void waitFor(const Area& area, const std::function<bool(const Picture&)>& shown,
                 const std::string& what) const;

  private:
    void key(std::uint8_t keycode, bool down);
    void typeUnseen(std::uint8_t keycode);
    void typeWords(std::uint8_t keycode, int length);
    void waitUntilQuiet() const;
    Area drawnBy(std::uint8_t keycode);
    Picture picture(const Area& area) const;
    bool waitForDamage(Clock::time_point end) const;

    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection_;
    xcb_screen_t* screen_;
    std::uint8_t damageEvent_;
    Area line_; // from the caret's first place to the right
};

} // namespace quillet
