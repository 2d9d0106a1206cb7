// A program on a display of its own, which is typed into.
#pragma once

#include "bench/key_probe.h"
#include "tests/desktop_session.h"

#include <array>
#include <chrono>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace quillet {

/// A program to measure: its command, to which a file's name may be added, and the title of its
/// window without one.
struct Editor {
    std::string name;
    std::vector<std::string> command;
    std::string title;
};

class Typist {
  public:
    Typist(const Editor& editor, int paragraph) : program_(editor.command), paragraph_(paragraph) {
        if (!DesktopSession::waitForTitle(editor.title))
            throw std::runtime_error(editor.name + " did not show its window");
        DesktopSession::send("getwindowfocus windowmove 0 0 windowsize 100% 100%");
    }

    /// The seconds from the press of a key to its glyph, after a pause.
    double strike() {
        // Other programs are struck in turn: each of them some twenty times a second.
        std::this_thread::sleep_for(std::chrono::microseconds(pause_(random_)));
        if (count_ % lastLine == 0)
            probe_.beginParagraph(keys[0], paragraph_);
        const std::uint8_t key = keys[count_++ % keys.size()];
        return std::chrono::duration<double>(probe_.strike(key)).count();
    }

  private:
    // V L N H P U: each gives one glyph in every program.
    static constexpr std::array<std::uint8_t, 6> keys = {55, 46, 57, 43, 33, 30};
    static constexpr int lastLine = 25;

    VirtualScreen screen_;
    Process program_;
    KeyProbe probe_; // on the screen, which was the last to begin
    int paragraph_;
    std::size_t count_ = 0;
    std::minstd_rand random_;
    std::uniform_int_distribution<int> pause_{3'000, 9'000};
};

} // namespace quillet
