// The real program on a display of its own, driven by real key events.
#pragma once

#include "tests/shell.h"

#include <memory>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace quillet {

/// A child process that does not outlive its object.
class Process {
  public:
    explicit Process(std::vector<std::string> command);
    ~Process();
    Process(const Process&) = delete;

    pid_t id() const { return pid_; }

    /// The exit code once the process has ended by itself, or -1 after ten seconds.
    int waitForExit();

  private:
    pid_t pid_;
};

/// What to run, and the title that its window gets the focus under.
struct Program {
    std::string path = QUILLET_PROGRAM;
    std::string title = "Quillet: Inscript Based Basic Devnagari Word Processor";
};

/// Xvfb and a window manager, with a folder for the files of what runs there.
class VirtualScreen {
  public:
    VirtualScreen();

    const fs::path& folder() const { return folder_.path; }

  private:
    TempFolder folder_;
    std::unique_ptr<Process> server_;
    std::unique_ptr<Process> windowManager_;
};

/// A screen with one running program. Keys are struck by their places on a US keyboard.
class DesktopSession {
  public:
    explicit DesktopSession(
        const Program& program = {}, const std::function<void()>& whileStarting = [] {});

    void type(std::string_view characters);
    static void send(const std::string& commands); // of xdotool, such as "key Return"

    /// The xdotool name of the key of a character: "45", or "shift+45".
    static std::string keyOf(char character);

    /// The command that strikes a letter with Ctrl. The letter goes up first: the other way round
    /// its release rewrites text and drops the selection.
    static std::string ctrl(char letter) {
        return "keydown ctrl key " + keyOf(letter) + " keyup ctrl ";
    }

    static void setLayout(const std::string& arguments); // of setxkbmap

    /// Of the window that has the focus.
    static std::string title() { return output("xdotool getwindowfocus getwindowname"); }
    static bool waitForTitle(const std::string& title) {
        return waitUntil([&] { return DesktopSession::title() == title; });
    }

    /// Writes a file and opens it through the dialog; false if that does not show it.
    bool open(const std::string& name, const std::string& bytes);

    /// Saves through the Save As dialog and returns the bytes of the file, whose name is a new one.
    std::string saveAs(const std::string& name);

    std::string path(const std::string& name) const { return (screen_.folder() / name).string(); }
    std::string read(const std::string& name) const;

    Process& program() { return *program_; }

  private:
    VirtualScreen screen_;
    std::unique_ptr<Process> program_;
};

} // namespace quillet
