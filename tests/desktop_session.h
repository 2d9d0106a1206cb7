// The real program on a display of its own, driven by real key events.
#pragma once

#include "tests/shell.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
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
    Process& operator=(const Process&) = delete;

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
class Screen {
  public:
    Screen();
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    const std::filesystem::path& folder() const { return folder_; }

  private:
    std::filesystem::path folder_;
    std::unique_ptr<Process> server_;
    std::unique_ptr<Process> windowManager_;
};

/// A screen with one running program.
class DesktopSession {
  public:
    /// Waits for the program's window. Meanwhile it runs `whileStarting`.
    explicit DesktopSession(
        const Program& program = {}, const std::function<void()>& whileStarting = [] {});

    /// Strikes US keys one after the other by their places on the keyboard, whatever the layout.
    void type(std::string_view characters);

    /// Sends raw input: `xdotool` commands such as "key Return" or "keydown 26".
    void send(const std::string& commands);

    /// The xdotool name of the key of a character: "45", or "shift+45".
    static std::string keyOf(char character);

    /// Sets the keyboard layout by the arguments of `setxkbmap`.
    static void setLayout(const std::string& arguments);

    /// The title of the window that has the focus.
    static std::string title();
    static bool waitForTitle(const std::string& title);

    /// Saves through the Save As dialog and returns the bytes of the file, whose name is a new one.
    std::string saveAs(const std::string& name);

    std::string path(const std::string& name) const { return (screen_.folder() / name).string(); }
    std::string read(const std::string& name) const;
    void write(const std::string& name, const std::string& bytes) const;

    Process& program() { return *program_; }

  private:
    Screen screen_;
    std::unique_ptr<Process> program_;
};

} // namespace quillet
