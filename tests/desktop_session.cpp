#include "tests/desktop_session.h"

#include <csignal>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillet {

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

VirtualScreen::VirtualScreen() {
    setenv("HOME", folder().c_str(), 1);
    setenv("XDG_RUNTIME_DIR", folder().c_str(), 1);
    // Where there is no bus, the library of the buses would fork a program with many threads to
    // start one, and under the address sanitizer the child may wait for a lock of its allocator.
    setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 0);
    const std::string display = folder() / "display"; // Xvfb chooses one
    server_ = std::make_unique<Process>(std::vector<std::string>{
        "sh", "-c", "exec Xvfb -displayfd 1 -screen 0 1280x860x24 -nolisten tcp >" + display});
    waitUntil([&] { return !output("cat " + display).empty(); });
    setenv("DISPLAY", (":" + output("cat " + display)).c_str(), 1);
    const std::string managed = folder() / "managed";
    windowManager_ = std::make_unique<Process>(
        std::vector<std::string>{"openbox", "--startup", "touch " + managed});
    if (!waitUntil([&] { return fs::exists(managed); }))
        throw std::runtime_error("no window manager could be started");
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

bool DesktopSession::open(const std::string& name, const std::string& bytes) {
    std::ofstream(path(name), std::ios::binary) << bytes;
    send(ctrl('o'));
    if (!waitForTitle("Open"))
        return false;
    type(path(name));
    send("key Return");
    return waitForTitle("Quillet: Hindi Word Processor  " + path(name));
}

std::string DesktopSession::saveAs(const std::string& name) {
    send(ctrl('s'));
    if (!waitForTitle("Save As"))
        return "no dialog";
    type(path(name));
    send("key Return");
    waitForTitle("Quillet: Hindi Text Editor (" + path(name) + ")");
    return read(name);
}

std::string DesktopSession::read(const std::string& name) const {
    std::ifstream file(path(name), std::ios::binary);
    return (std::stringstream() << file.rdbuf()).str();
}

} // namespace quillet
