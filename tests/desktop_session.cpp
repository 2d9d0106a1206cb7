#include "tests/desktop_session.h"

#include <array>
#include <cctype>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillet {
namespace {

// Lets Xvfb choose a display and say which; the tests may run beside each other.
std::unique_ptr<Process> startServer() {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        throw std::runtime_error("no pipe could be opened");
    auto server = std::make_unique<Process>(
        std::vector<std::string>{"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0",
                                 "1280x860x24", "-nolisten", "tcp"});
    close(ends[1]);
    std::string display = ":";
    for (char digit = 0; read(ends[0], &digit, 1) == 1 && digit != '\n';)
        display += digit;
    close(ends[0]);
    if (display == ":")
        throw std::runtime_error("no display could be started");
    setenv("DISPLAY", display.c_str(), 1);
    return server;
}

} // namespace

Process::Process(std::vector<std::string> command) : pid_(fork()) {
    if (pid_ != 0)
        return;
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (std::string& argument : command)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    prctl(PR_SET_PDEATHSIG, SIGTERM); // a test that is killed takes its processes along
    static_cast<void>(std::freopen("/dev/null", "w", stderr));
    execvp(arguments[0], arguments.data());
    _exit(127);
}

Process::~Process() {
    if (pid_ < 0)
        return;
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
}

int Process::waitForExit() {
    int status = 0;
    if (!waitUntil([&] { return waitpid(pid_, &status, WNOHANG) == pid_; }))
        return -1;
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

Screen::Screen() {
    std::string pattern = std::filesystem::temp_directory_path() / "quillet-test-XXXXXX";
    folder_ = mkdtemp(pattern.data());
    setenv("HOME", folder_.c_str(), 1);
    setenv("XDG_RUNTIME_DIR", folder_.c_str(), 1);
    server_ = startServer();
    const std::string managed = folder_ / "managed";
    windowManager_ = std::make_unique<Process>(
        std::vector<std::string>{"openbox", "--startup", "touch " + managed});
    if (!waitUntil([&] { return std::filesystem::exists(managed); }))
        throw std::runtime_error("no window manager could be started");
}

Screen::~Screen() {
    std::filesystem::remove_all(folder_);
}

DesktopSession::DesktopSession(const Program& program, const std::function<void()>& whileStarting) {
    program_ = std::make_unique<Process>(std::vector<std::string>{program.path});
    whileStarting();
    if (!waitForTitle(program.title))
        throw std::runtime_error("the program did not show its window");
}

std::string DesktopSession::keyOf(char character) {
    constexpr std::string_view plain = "1234567890-=  qwertyuiop[]  asdfghjkl;'` \\zxcvbnm,./";
    constexpr std::string_view shifted = "!@#$%^&*()_+  QWERTYUIOP{}  ASDFGHJKL:\"~ |ZXCVBNM<>?";
    constexpr std::size_t firstKeycode = 10;
    if (character == ' ')
        return "65";
    if (const auto at = plain.find(character); at != std::string_view::npos)
        return std::to_string(firstKeycode + at);
    return "shift+" + std::to_string(firstKeycode + shifted.find(character));
}

void DesktopSession::type(std::string_view characters) {
    std::string keys = "key --delay 4";
    for (const char character : characters)
        keys += ' ' + keyOf(character);
    send(keys);
}

void DesktopSession::send(const std::string& commands) {
    output("xdotool " + commands);
}

// The window manager takes its own keys anew then, and the focus with them for a moment.
void DesktopSession::setLayout(const std::string& arguments) {
    output("setxkbmap " + arguments + "; sleep 0.5");
}

std::string DesktopSession::title() {
    return output("xdotool getwindowfocus getwindowname");
}

bool DesktopSession::waitForTitle(const std::string& title) {
    return waitUntil([&] { return DesktopSession::title() == title; });
}

std::string DesktopSession::saveAs(const std::string& name) {
    send("keydown ctrl key 39 keyup ctrl"); // S by its place
    if (!waitForTitle("Save As"))
        return "no dialog";
    type(path(name));
    send("key Return");
    waitForTitle("Quillet: Hindi Text Editor (" + path(name) + ")");
    return read(name);
}

std::string DesktopSession::read(const std::string& name) const {
    std::ifstream file(path(name), std::ios::binary);
    std::stringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

void DesktopSession::write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path(name), std::ios::binary) << bytes;
}

} // namespace quillet
